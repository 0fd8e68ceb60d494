// SPDX-License-Identifier: MIT
// Tables that say how a form must look, and the comparison of a real form with them.
//
// A row names a widget and every property that is set on it. Whatever a row leaves out must be as
// it is in a new widget of that class, so a property set by mistake is a difference too.
#pragma once

#include <QLayout>
#include <QSizePolicy>
#include <QSlider>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <vector>

/// One property that a row sets.
struct Setting {
    const char* property;
    QVariant value;
};

/// One widget of a table.
struct WidgetRow {
    const char* type;
    const char* name;
    std::vector<Setting> settings = {};
    QStringList items = {}; ///< of a combo box, from index 0
};

Q_DECLARE_METATYPE(WidgetRow)

/// One widget with a layout: the whole window, one page of its tabs or a dialog.
struct FormSection {
    const char* root; ///< object name of the widget that is the parent of every row
    /// The layouts, two blanks deeper on each level, one line for each layout, widget and spacer in
    /// the order of their creation:
    ///   NAME CLASS SPACING [margins L T R B] [constraint NAME] [labels FLAGS form FLAGS]
    ///   NAME
    ///   spacer WxH HORIZONTAL/VERTICAL
    /// In a grid or form a line begins with its cell: (row,column) or (row,column RxC) if it spans.
    const char* outline;
    std::vector<WidgetRow> widgets;

    /// The lines of the outline.
    [[nodiscard]] QStringList lines() const;
    /// Object names in the order of the outline; a spacer is an empty string.
    [[nodiscard]] QStringList members() const;
};

namespace setting {

/// As much room as the toolkit can give.
inline constexpr int unlimited = 16777215;

/// A font of 'points', whose weight is not set unless said.
struct Font {
    enum class Weight { NotSet, Normal, Bold };
    int points;
    Weight weight;
};

Setting text(const char* text);
/// A tool tip in rich text of one or several paragraphs.
Setting tip(std::initializer_list<const char*> paragraphs);
Setting noTip();
Setting disabled();
Setting enabled();
Setting policy(QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical, int stretch = 0);
Setting minimum(int width, int height);
Setting maximum(int width, int height);
Setting points(int size);
Setting bold(int size);
Setting normal(int size);
Setting centred();
Setting leftToRight();
Setting americanEnglish();
Setting notAutoFilled();
/// A picture below ":/picture/".
Setting icon(const char* file);
Setting iconSize(int width, int height);
Setting checkable();
Setting checked(bool on);
Setting horizontal();
Setting ticks(QSlider::TickPosition position);
Setting property(const char* name, const QVariant& value);
/// Limits of a slider or an integer spin box.
std::vector<Setting> range(int lowest, int highest);
/// Limits of a spin box with decimals.
std::vector<Setting> range(double lowest, double highest, int decimals);

} // namespace setting

/// Joins settings and groups of settings to the list of a row.
class Settings {
public:
    Settings(Setting one) : all{std::move(one)} {}
    Settings(std::vector<Setting> group) : all(std::move(group)) {}
    std::vector<Setting> all;
};
std::vector<Setting> with(std::initializer_list<Settings> parts);

/// What differs between 'widget' and its row, one sentence for each difference.
QStringList differences(const QWidget& widget, const WidgetRow& row);

/// The outline of a layout as FormSection describes it.
QStringList outlineOf(QLayout& layout);
