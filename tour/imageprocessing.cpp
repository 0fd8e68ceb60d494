// SPDX-License-Identifier: MIT
#include "tour/chapters.h"

namespace tour {

void clickSwitch(Operator& user, const char* button, bool on, const char* caption,
                 const char* logLine)
{
    user.click(button);
    user.expectLog({logLine});
    user.expectChecked(button, on);
    user.expectText(button, caption);
}

void changeImageProcessing(Operator& user)
{
    user.chapter("Image Processing");

    user.step("Switch the corrections off", [&] {
        user.showTab("Image Processing");
        clickSwitch(user, "ColumnCorrectionButton", false, "Column Correction: Deactivated",
                    "Set column correction value OK");
        clickSwitch(user, "VignettingCorrectionButton", false, "Vignetting Correction: Deactivated",
                    "Set vignetting correction value OK");
    });

    user.step("Switch the NUC off, then ask for one", [&] {
        clickSwitch(user, "nucEnablingButton", false, "NUC: Deactivated", "Set NUC control OK");
        user.picture("Switched off");
        user.click("userNucRequest");
        user.expectLog({"NUC applied"});
        user.expectText("nucEnablingButton", "NUC: Activated");
    });

    user.step("Show the test pattern", [&] {
        clickSwitch(user, "TestPatternButton", true, "Test Pattern: Activated",
                    "Set TEST PATTERN value OK");
    });

    user.step("Choose the video output", [&] {
        user.chooseInPicture("VideoOutputCB", "LUT CORRECTION", "The nine outputs");
        user.expectLog({"Set VIDEO OUTPUT value OK"});
    });

    user.step("Switch the outputs", [&] {
        clickSwitch(user, "sdiOutputButton", false, "BT656/SDI Output: Deactivated",
                    "Set BT656/SDI OUTPUT value OK");
        clickSwitch(user, "parallelOutputButton", true, "Parallel Output: Activated",
                    "Set PARALLEL OUTPUT value OK");
        clickSwitch(user, "mipiOutputButton", true, "MIPI Output: Activated",
                    "Set MIPI OUTPUT value OK");
    });

    user.step("Change the frame rate, which unchecks the test pattern", [&] {
        user.choose("frameRateCB", "30Hz");
        user.expectLog({"Set FRAME RATE value OK"});
        user.expectChecked("TestPatternButton", false);
        user.expectText("TestPatternButton", "Test Pattern: Deactivated");
    });

    user.step("Close the shutter, then run the automatic NUC", [&] {
        clickSwitch(user, "shutterCtrlPB", true, "Shutter closed", "Set shutter position OK");
        user.picture("Closed");
        user.click("autoNucPB");
        user.expectLog({"NUC applied", "Shutter opened"});
        user.expectChecked("shutterCtrlPB", false);
        user.expectText("shutterCtrlPB", "Shutter opened");
    });
}

} // namespace tour
