// SPDX-License-Identifier: MIT
#include "tour/chapters.h"

#include "tour/sight.h"

namespace tour {

namespace {

/// The number at the beginning of the rest of a log line.
int numberIn(const QString& rest)
{
    return rest.section(QLatin1Char(' '), 0, 0).toInt();
}

void expectCount(int counted, int expected)
{
    if (counted != expected) {
        throw Failure(
            QStringLiteral("the table has %1 bad pixels, not %2").arg(counted).arg(expected));
    }
}

} // namespace

void changeBadPixels(Operator& user)
{
    int atFirst = 0;
    user.chapter("Bad Pixels");

    user.step("Read the table from the camera", [&] {
        user.showTab("Bad Pixels");
        user.click("readBPRTableButton");
        user.expectLogBeginning("Backup table written to ");
        user.expectLogBeginning("Table written to ");
        atFirst = numberIn(user.expectLogBeginning("Table containing : "));
    });

    user.step("Declare a pixel and a column", [&] {
        user.type("xBadPixelCoordinate", "320");
        user.type("yBadPixelCoordinate", "100");
        user.click("addBadPixelButton");
        user.expectLog({"Pixel X:320 Y: 100 correctly added."});
        user.click("addBadPixelColumnButton");
        user.expectLog({"Pixel Column X: 320 correctly added."});
    });

    user.step("Declare more than the table holds", [&] {
        user.click("addBadPixelLineButton");
        user.answerBox("Bad pixel failure",
                       "Unable to add line of bad pixels to table. Either bad pixel table doesn't "
                       "exist or too much bad pixels in table to add a line.");
    });

    user.step("Undeclare the column, declare and undeclare a line", [&] {
        user.click("removeBadPixelColumnButton");
        user.expectLog({"Pixel column X: 320 correctly removed."});
        user.click("addBadPixelLineButton");
        user.expectLog({"Pixel line Y: 100 correctly added."});
        user.click("removeBadPixelLineButton");
        user.expectLog({"Pixel line Y: 100 correctly removed."});
        user.type("xBadPixelCoordinate", "12");
        user.type("yBadPixelCoordinate", "34");
        user.click("addBadPixelButton");
        user.expectLog({"Pixel X:12 Y: 34 correctly added."});
    });

    user.step("Write the table and read it back", [&] {
        user.click("writeBPRTableButton");
        const int written = numberIn(user.expectLogBeginning("Bad pixels found "));
        user.expectLogBeginning("BPR table ");
        user.click("readBPRTableButton");
        user.expectLogBeginning("Table written to ");
        expectCount(numberIn(user.expectLogBeginning("Table containing : ")), written);
    });

    user.step("Go back to the factory's table", [&] {
        user.click("resetBPRTableButton");
        user.expectLog({"BP table reset succeed."});
        user.click("writeBPRTableButton");
        expectCount(numberIn(user.expectLogBeginning("Bad pixels found ")), atFirst);
        user.expectLogBeginning("BPR table ");
        user.click("readBPRTableButton");
        expectCount(numberIn(user.expectLogBeginning("Table containing : ")), atFirst);
    });
}

} // namespace tour
