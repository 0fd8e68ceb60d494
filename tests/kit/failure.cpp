// SPDX-License-Identifier: MIT
#include "tests/kit/failure.h"

#include <QtTest/QTest>

namespace kit {

void fail(const QString& reason)
{
    // A failed test has said why; what follows from it would only hide that.
    if (!QTest::currentTestFailed()) {
        QTest::qFail(reason.toUtf8().constData(), __FILE__, __LINE__);
    }
}

} // namespace kit
