// SPDX-License-Identifier: MIT
#include "tour/chapters.h"

namespace tour {

void changeExpertValues(Operator& user)
{
    user.chapter("Expert");

    user.step("Change the detector's values", [&] {
        user.showTab("Expert");
        const int gsk = user.drag("gskSlider", 12);
        user.expectLog({"Set GSK value OK"});
        user.expectText("gskEdit", QString::number(gsk));
        user.type("gfidEdit", "450");
        user.expectLog({"Set GFID value OK"});
        user.expectSlider("gfidSlider", 450);
        const int gms = user.drag("gmsSlider", 40);
        user.expectLog({"Set GMS value OK"});
        user.expectText("gmsEdit", QString::number(gms));
        user.type("tintEdit", "30");
        user.expectLog({"Set TINT value OK"});
        user.expectSlider("tintSlider", 30);
    });

    user.step("Switch the corrections and the flip", [&] {
        clickSwitch(user, "enableBprPB", false, "BPR Correction: Deactivated",
                    "Set BPR correction value OK");
        clickSwitch(user, "enableOffsetPB", false, "Offset Correction: Deactivated",
                    "Set Offset correction value OK");
        clickSwitch(user, "enableGainPB", false, "Gain Correction: Deactivated",
                    "Set Gain correction value OK");
        clickSwitch(user, "verticalFlipButton", true, "Vertical flip: Activated",
                    "Set VERTICAL FLIP value OK");
    });

    user.step("Read the expert values back", [&] {
        user.click("readParamButtonExpert");
        user.expectLog({"Start reading camera expert parameters", "GFID value = 450",
                        "TINT value = 30", "BPR state = Disabled", "OFFSET state = Disabled",
                        "GAIN state = Disabled", "vertical flip = Activated",
                        "End reading camera expert parameters"});
    });
}

void moveBaudRate(Operator& user)
{
    user.chapter("The camera's baud rate");

    user.step("Give the camera another baud rate", [&] {
        user.showTab("Expert");
        user.choose("BaudRateCB", "9600");
        user.click("PermanentButton");
        user.expectText("PermanentButton", "Permanent");
        user.click("PermanentButton");
        user.expectText("PermanentButton", "Not Permanent");
        user.click("applyBaudrateBP");
        user.expectLog({"Set baud rate value OK"});
    });

    user.step("The link still talks at the old rate", [&] {
        user.click("readParamButtonUser");
        user.answerBox("Camera not connected", "Unable to connect to ttyUSB0");
        user.expectLog(
            {"Start reading camera parameters", "End Read camera parameters : COM Error"});
    });

    user.step("Connect again at the new rate", [&] {
        user.click("disconnectDeviceButton");
        user.expectConnected(false);
        user.choose("BaudRateConnectCB", "9600");
        user.click("connectDeviceButton");
        user.expectLog({"ALTERNATIVE SERIAL PORT : ttyUSB0", "End reading camera parameters"});
        user.expectConnected(true);
    });

    user.step("Go back to the usual rate", [&] {
        user.choose("BaudRateCB", "115200");
        user.click("applyBaudrateBP");
        user.expectLog({"Set baud rate value OK"});
        user.click("disconnectDeviceButton");
        user.expectConnected(false);
        user.choose("BaudRateConnectCB", "115200");
        user.click("connectDeviceButton");
        user.expectLog({"End reading camera expert parameters"});
        user.expectConnected(true);
    });
}

} // namespace tour
