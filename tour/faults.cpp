// SPDX-License-Identifier: MIT
#include "tour/faults.h"

#include "tour/sight.h"

#include <QtCore/QFile>

namespace tour {

Faults::Faults(const QString& plan) : file(qEnvironmentVariable("TAVREL_SIMULATOR_PLAN"))
{
    const QString shipped =
        QStringLiteral("%1/%2.ini").arg(qEnvironmentVariable("TAVREL_TOUR_PLANS"), plan);
    if (!QFile::copy(shipped, file)) {
        throw Failure(QStringLiteral("the fault plan %1 cannot be used").arg(plan));
    }
}

Faults::~Faults()
{
    QFile::remove(file);
}

} // namespace tour
