// SPDX-License-Identifier: MIT
#include "tests/bpr/processortime.h"

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QList>

#include <unistd.h>

namespace tablefiles {

double processorTime(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly)) {
        return -1;
    }
    // The fields are counted behind the name, which may hold blanks.
    const QByteArray line = file.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    constexpr int userTime = 11;
    constexpr int systemTime = 12;
    return (fields.at(userTime).toDouble() + fields.at(systemTime).toDouble()) /
           static_cast<double>(::sysconf(_SC_CLK_TCK));
}

} // namespace tablefiles
