// SPDX-License-Identifier: MIT
#include "tour/chapters.h"

#include "tour/faults.h"

namespace tour {

void meetRefusals(Operator& user)
{
    user.chapter("When the camera refuses");

    user.step("A refused command leaves check state and caption at odds", [&] {
        const Faults faults(QStringLiteral("refuse-everything"));
        user.tell("The camera refuses every command from now on");
        user.showTab("Image Processing");
        user.click("TestPatternButton");
        user.expectLog({"Set TEST PATTERN value KO"});
        user.expectChecked("TestPatternButton", true);
        user.expectText("TestPatternButton", "Test Pattern: Deactivated");
    });

    user.step("A refused frame rate takes the mark away all the same", [&] {
        const Faults faults(QStringLiteral("refuse-everything"));
        user.choose("frameRateCB", "25Hz");
        user.expectLog({"Set FRAME RATE value KO"});
        user.expectChecked("TestPatternButton", false);
    });

    user.step("A refused NUC is answered with a box", [&] {
        const Faults faults(QStringLiteral("nuc-refused"));
        user.tell("The camera refuses the NUC");
        user.click("userNucRequest");
        user.answerBox("", "Error on processing the NUC request");
    });

    user.step("Reading shows the camera's state again", [&] {
        user.tell("The camera works as before");
        user.click("readParamButtonUser");
        user.expectLog({"Start reading camera parameters", "Test pattern value = Disabled",
                        "End reading camera parameters"});
        user.expectText("frameRateCB", "60Hz");
    });

    user.step("The bad pixel table cannot be read", [&] {
        const Faults faults(QStringLiteral("table-unreadable"));
        user.tell("The camera's table memory fails");
        user.showTab("Bad Pixels");
        user.click("readBPRTableButton");
        user.answerBox("BPR table", "BPR table not read correctly (error code = -3)");
    });

    user.step("A camera that does not answer", [&] {
        const Faults faults(QStringLiteral("silent-camera"));
        user.click("disconnectDeviceButton");
        user.expectConnected(false);
        user.tell("The camera does not answer the greeting any more");
        user.click("connectDeviceButton");
        user.expectLog({"ALTERNATIVE SERIAL PORT : ttyUSB0", "No camera connected"});
        user.expectConnected(false);
    });

    user.step("Connect again", [&] {
        user.tell("The camera works as before");
        user.click("connectDeviceButton");
        user.expectLog({"End reading camera expert parameters"});
        user.expectConnected(true);
    });
}

} // namespace tour
