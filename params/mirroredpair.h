// SPDX-License-Identifier: MIT
// A slider and a spin box that show one value, each in its own scale. The spin box holds the value
// of record; the slider follows it and leads it.
#pragma once

#include "params/scale.h"
#include "ui_mainwindow.h"

#include <type_traits>

namespace tavrel {

/// Number: the spin box's, double or int.
template<typename Number> struct MirroredPair {
    using SpinBox = std::conditional_t<std::is_same_v<Number, int>, QSpinBox, QDoubleSpinBox>;

    QSlider* Ui_MainWindow::*slider;
    SpinBox* Ui_MainWindow::*spinBox;
    Scale scale;
};

/// Shows a slider's new value in its spin box. An equal value is left alone, which ends the
/// exchange of change signals after one round.
template<typename Number>
void mirrorToSpinBox(const Ui_MainWindow& ui, const MirroredPair<Number>& pair, int sliderValue)
{
    const auto converted = static_cast<Number>(pair.scale.toValue(sliderValue));
    if ((ui.*pair.spinBox)->value() != converted) {
        (ui.*pair.spinBox)->setValue(converted);
    }
}

/// Shows a spin box's new value on its slider. A slider that stops at its end hands the clamped
/// value back, unless it stood there already.
template<typename Number>
void mirrorToSlider(const Ui_MainWindow& ui, const MirroredPair<Number>& pair, double spinBoxValue)
{
    const int converted = pair.scale.toStep(spinBoxValue);
    if ((ui.*pair.slider)->value() != converted) {
        (ui.*pair.slider)->setValue(converted);
    }
}

namespace pair {

#define PAIR(name, Number, slider, spinBox, scale)                                                 \
    inline constexpr MirroredPair<Number> name{&Ui_MainWindow::slider, &Ui_MainWindow::spinBox,    \
                                               scale};
#include "params/values.def"

} // namespace pair

} // namespace tavrel
