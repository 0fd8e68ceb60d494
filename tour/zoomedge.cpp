// SPDX-License-Identifier: MIT
#include "tour/chapters.h"

namespace tour {

void changeZoomAndEdge(Operator& user)
{
    user.chapter("Zoom");

    user.step("Zoom in", [&] {
        user.showTab("Zoom");
        user.type("factorZoomEdit", "2.5");
        user.type("xCenterZoomEdit", "200");
        user.choose("methodZoomEdit", "Nearest");
        user.type("yCenterZoomEdit", "150");
        user.type("xResolutionZoomEdit", "640");
        user.type("yResolutionZoomEdit", "480");
        user.click("configureZoomPB");
        user.expectLog({"Configure ZOOM RESOLUTION OK", "Configure Zoom OK"});
    });

    user.step("Flip the picture", [&] {
        clickSwitch(user, "horizontalFlipButton", true, "Horizontal Flip: Activated",
                    "Set HORIZONTAL FLIP value OK");
    });

    user.chapter("Edge");

    user.step("Choose the edge correction", [&] {
        user.showTab("Edge");
        user.choose("EdgeCorrectionCB", "Contouring");
        user.expectLog({"Configure EDGE CORRECTION OK"});
    });

    user.step("Sharpen", [&] {
        user.drag("sharpeningGainSlider", 5120);
        user.expectLog({"Configure EDGE CORRECTION OK"});
        user.type("SharpeningTHEdit", "60");
        user.expectLog({"Configure EDGE CORRECTION OK"});
        user.expectSlider("SharpeningTHSlider", 600);
    });
}

} // namespace tour
