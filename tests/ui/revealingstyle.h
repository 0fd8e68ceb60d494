// SPDX-License-Identifier: MIT
// A style whose default distances no form uses: what a form leaves to the style shows up.
#pragma once

#include <QApplication>
#include <QProxyStyle>

class RevealingStyle : public QProxyStyle {
public:
    static constexpr int spacing = 17;
    static constexpr int margin = 19;

    /// Becomes the style of everything that is built from now on.
    static void install() { QApplication::setStyle(new RevealingStyle); }

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override
    {
        switch (metric) {
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return spacing;
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
            return margin;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }

private:
    RevealingStyle() : QProxyStyle(QStringLiteral("Fusion")) {}
};
