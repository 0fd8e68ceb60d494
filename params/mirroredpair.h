// SPDX-License-Identifier: MIT
// A slider and a spin box that show one value, each in its own scale. The spin box holds the value
// of record; the slider follows it and leads it.
#pragma once

#include "params/scale.h"
#include "ui_mainwindow.h"

namespace tavrel {

/// Slider with a double spin box.
struct DecimalPair {
    QSlider* Ui_MainWindow::*slider;
    QDoubleSpinBox* Ui_MainWindow::*spinBox;
    Scale scale;

    [[nodiscard]] double toSpinBox(int sliderValue) const { return scale.toValue(sliderValue); }
    [[nodiscard]] int toSlider(double spinBoxValue) const { return scale.toStep(spinBoxValue); }
};

/// Slider with an integer spin box of the same scale.
struct IntegerPair {
    QSlider* Ui_MainWindow::*slider;
    QSpinBox* Ui_MainWindow::*spinBox;

    static int toSpinBox(int sliderValue) { return sliderValue; }
    static int toSlider(int spinBoxValue) { return spinBoxValue; }
};

/// Shows a slider's new value in its spin box. An equal value is left alone, which ends the
/// exchange of change signals after one round.
template<typename Pair>
void mirrorToSpinBox(const Ui_MainWindow& ui, const Pair& pair, int sliderValue)
{
    const auto converted = pair.toSpinBox(sliderValue);
    if ((ui.*pair.spinBox)->value() != converted) {
        (ui.*pair.spinBox)->setValue(converted);
    }
}

/// Shows a spin box's new value on its slider. A slider that stops at its end hands the clamped
/// value back, unless it stood there already.
template<typename Pair, typename Value>
void mirrorToSlider(const Ui_MainWindow& ui, const Pair& pair, Value spinBoxValue)
{
    const int converted = pair.toSlider(spinBoxValue);
    if ((ui.*pair.slider)->value() != converted) {
        (ui.*pair.slider)->setValue(converted);
    }
}

} // namespace tavrel
