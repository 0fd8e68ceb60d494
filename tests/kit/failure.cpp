// SPDX-License-Identifier: MIT
#include "tests/kit/failure.h"

#include <QtTest/QTest>

namespace kit {

namespace {

Place latest;
int depth = 0;

} // namespace

CalledFrom::CalledFrom(const Place& place)
{
    if (depth++ == 0) {
        latest = place;
    }
}

CalledFrom::~CalledFrom()
{
    --depth;
}

Place calledFrom()
{
    return latest;
}

void fail(const QString& reason, const Place& place)
{
    // A failed test has said why; what follows from it would only hide that.
    if (!QTest::currentTestFailed()) {
        QTest::qFail(reason.toUtf8().constData(), place.file_name(),
                     static_cast<int>(place.line()));
    }
}

} // namespace kit
