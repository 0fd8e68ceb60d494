// SPDX-License-Identifier: MIT
// Reading and resetting everything, unplugging, and the end of the session.
#include "tour/chapters.h"

#include "tour/adapter.h"
#include "tour/sight.h"

#include <QtWidgets/QComboBox>

namespace tour {

void readAndReset(Operator& user)
{
    user.chapter("Read and reset");

    user.step("Read everything back", [&] {
        user.showTab("LUT");
        user.click("readParamButtonUser");
        user.expectLog(
            {"Start reading camera parameters", "Vignetting Correction state = Disabled",
             "Column Correction state = Disabled", "Video output = LUT CORRECTION",
             "Frame rate = 30Hz", "Polarity value = 1", "Gamma value = 1.29999",
             "ROI0 inclusive X2 value = 400", "Color Lut = IRON", "LUT temporal filter = 6",
             "AHC black gain limitation = 35", "ZOOM factor value = 2.5", "X zoom resolution = 640",
             "Horizontal flip value = 1", "Correction type = 2", "End reading camera parameters"});
    });

    user.step("Reset to the defaults", [&] {
        user.click("resetParamButtonUser");
        user.expectLog({"Set FRAME RATE value OK", "Start applying camera parameters",
                        "Set ROI 3 Y2 value OK", "Configure EDGE CORRECTION OK",
                        "End applying camera parameters"});
        user.expectText("contrastTypeEdit", "CLHE (ROI)");
        user.expectText("polarityButton", "Invert Polarity: Deactivated");
    });
}

void unplugAndEnd(Operator& user)
{
    user.chapter("Unplugged");

    const Adapter adapter("ttyUSB0");
    user.step("The adapter is pulled out", [&] {
        user.tell("Pull out the camera's adapter");
        adapter.unplug();
        user.expectConnected(false);
        user.expectText("selectDeviceComboBox", "ttyUSB1");
    });

    user.step("Plug it in again and connect", [&] {
        user.tell("Plug the adapter in");
        adapter.plug();
        user.click("scanDeviceButton");
        user.expectText("selectDeviceComboBox", "ttyUSB0");
        user.click("connectDeviceButton");
        user.expectLog(
            {"ALTERNATIVE SERIAL PORT : ttyUSB0", "End reading camera expert parameters"});
        user.expectConnected(true);
    });

    user.chapter("The end");

    user.step("About", [&] {
        user.click("AboutButton");
        user.expectDialog("Tavrel KV");
        user.expectDialog("1.4.1");
        user.picture("Product and version");
        user.closeDialog();
    });

    user.step("Clear the log", [&] {
        user.click("clearLogButton");
        user.expect("the log is empty", [] { return sight::logLines().isEmpty(); });
    });

    user.step("Disconnect", [&] {
        user.click("disconnectDeviceButton");
        user.expectConnected(false);
    });
}

} // namespace tour
