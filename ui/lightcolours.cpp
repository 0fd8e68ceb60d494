// SPDX-License-Identifier: MIT
#include "ui/lightcolours.h"

#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QToolTip>

#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {

/// What a text needs at least. Many a light desktop has fainter ones in a window behind another
/// one, and still fainter ones where they are disabled.
double neededContrast(QPalette::ColorGroup group)
{
    switch (group) {
    case QPalette::Disabled:
        return 1.4;
    case QPalette::Inactive:
        return 2.5;
    default:
        return readableContrast;
    }
}

/// Luminance of a colour as seen, 0 for black to 1 for white.
double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor over(const QColor& colour, const QColor& ground)
{
    using Component = decltype(colour.alphaF()); // float or double, as the toolkit has it
    const Component part = colour.alphaF();
    const auto mixed = [part](Component above, Component below) {
        return part * above + (1 - part) * below;
    };
    return QColor::fromRgbF(mixed(colour.redF(), ground.redF()),
                            mixed(colour.greenF(), ground.greenF()),
                            mixed(colour.blueF(), ground.blueF()));
}

/// From 1 for equal colours to 21 for black on white.
double contrast(const QColor& text, const QColor& ground)
{
    const QColor solid = over(ground, Qt::white);
    const double one = luminance(over(text, solid));
    const double other = luminance(solid);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

const QString& styleByPalette()
{
    static const QString name = QStringLiteral("fusion");
    return name;
}

bool isStyleByPalette()
{
    return QApplication::style()->objectName() == styleByPalette();
}

/// A style with dark colours of its own paints dark, whatever palette it is given.
bool paintsReadably()
{
    return isStyleByPalette() || canBeRead(QApplication::style()->standardPalette());
}

} // namespace

bool canBeRead(const QPalette& palette)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const double least = neededContrast(group);
        const auto reads = [&](QPalette::ColorRole text, const QColor& ground) {
            return contrast(palette.color(group, text), ground) >= least;
        };
        const auto readsOn = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
            return reads(text, palette.color(group, ground));
        };
        // Selected texts are left out: on many a light desktop they are fainter than this.
        if (!reads(QPalette::WindowText, Qt::white) || !reads(QPalette::Text, Qt::white) ||
            !readsOn(QPalette::WindowText, QPalette::Window) ||
            !readsOn(QPalette::Text, QPalette::Base) ||
            !readsOn(QPalette::ButtonText, QPalette::Button) ||
            !readsOn(QPalette::ToolTipText, QPalette::ToolTipBase)) {
            return false;
        }
    }
    return true;
}

QPalette lightPalette()
{
    const QColor ground(239, 239, 239);
    // All shades of frames and grooves follow from the colour of the buttons.
    QPalette palette(ground, ground);
    palette.setColor(QPalette::AlternateBase, QColor(247, 247, 247));
    palette.setColor(QPalette::Highlight, QColor(32, 100, 160));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0, 0, 238));
    palette.setColor(QPalette::LinkVisited, QColor(102, 0, 153));
    palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 220));
    palette.setColor(QPalette::ToolTipText, Qt::black);
    palette.setColor(QPalette::PlaceholderText, QColor(96, 96, 96));
    for (const auto text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, text, QColor(112, 112, 112));
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(145, 145, 145));
    return palette;
}

void keepColoursReadable()
{
    if (canBeRead(QApplication::palette()) && paintsReadably()) {
        return;
    }
    // The style first: it may hand out colours of its own, and replace whatever it is given.
    if (!isStyleByPalette()) {
        QApplication::setStyle(QStyleFactory::create(styleByPalette()));
    }
    QApplication::setPalette(lightPalette());
    // Tool tips have colours of their own, which the desktop sets apart.
    QToolTip::setPalette(lightPalette());
}

void keepColoursReadable(QObject& window)
{
    // Later: it may be a style that is just changing them, which must not be replaced meanwhile.
    QMetaObject::invokeMethod(
        &window, [] { keepColoursReadable(); }, Qt::QueuedConnection);
}

} // namespace tavrel
