// SPDX-License-Identifier: MIT
#include "tour/chapters.h"

namespace tour {

namespace {

void changeRegions(Operator& user)
{
    user.step("Narrow a region of interest", [&] {
        user.type("Roi0IncX1", "120");
        user.expectLog({"Set ROI 0 X1 value OK"});
        user.type("Roi0IncX2", "400");
        user.expectLog({"Set ROI 0 X2 value OK"});
    });

    user.step("Break the rule X1 ≤ X2", [&] {
        user.type("Roi0IncX1", "500");
        user.answerBox("ROI", "ROI 0 X1 must be lower than ROI X2");
        user.expectText("Roi0IncX1", "400");
        user.expectLog({"Set ROI 0 X1 value OK"});
    });

    user.step("Enable an exclusive region", [&] {
        user.click("roi0ExcEnable");
        user.expectChecked("roi0ExcEnable", true);
        user.expectEnabled("Roi0ExcY2", true);
        user.type("Roi0ExcY2", "90");
        user.expectLog({"Set ROI 1 Y2 value OK"});
    });
}

} // namespace

void changeLut(Operator& user)
{
    user.chapter("LUT");

    user.step("Invert the polarity", [&] {
        user.showTab("LUT");
        clickSwitch(user, "polarityButton", true, "Invert Polarity: Activated",
                    "Set POLARITY value OK");
    });

    user.step("Drag gamma, then type it", [&] {
        user.drag("gammaSlider", 17);
        user.expectText("gammaEdit", "2.2");
        user.expectLog({"Set GAMMA value OK"});
        user.picture("Dragged");
        user.type("gammaEdit", "1.3");
        user.expectLog({"Set GAMMA value OK"});
        user.expectSlider("gammaSlider", 8);
    });

    user.step("Ask what a region of interest is", [&] {
        user.pointAt("roiLabel");
        user.expectToolTip();
        user.picture("The tip appears where the pointer rests");
    });

    changeRegions(user);

    user.step("Choose method and colours", [&] {
        user.choose("contrastTypeEdit", "CLAHE (Local)");
        user.expectLog({"Configure contrast type OK"});
        user.chooseInPicture("lutColorEdit", "IRON", "The colour tables");
        user.expectLog({"Set COLOR LUT value OK"});
    });

    user.step("Drag contrast, gain limits and temporal filter", [&] {
        user.drag("clheSlider", 6000);
        user.expectLog({"Set CLHE value OK"});
        user.type("AhcBlackGainLimSpin", "35");
        user.expectLog({"Set AHC GAINS LIMITATION values OK"});
        user.expectSlider("AhcBlackGainLimSlider", 35);
        const int white = user.drag("AhcWhiteGainLimSlider", 60);
        user.expectLog({"Set AHC GAINS LIMITATION values OK"});
        user.expectText("AhcWhiteGainLimSpin", QString::number(white));
        user.drag("TempoFilterSlider", 6);
        user.expectLog({"Set LUT TEMPORAL FILTER value OK"});
        user.expectText("TempoFilterSpin", "6");
    });
}

} // namespace tour
