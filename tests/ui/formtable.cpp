// SPDX-License-Identifier: MIT
#include "formtable.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDebug>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTabWidget>

#include <algorithm>
#include <memory>

Q_DECLARE_METATYPE(setting::Font)

namespace setting {

namespace {

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

Setting text(const char* text)
{
    return {"text", latin1(text)};
}

Setting tip(std::initializer_list<const char*> paragraphs)
{
    QString body;
    for (const char* paragraph : paragraphs) {
        body += QStringLiteral("<p>%1</p>").arg(latin1(paragraph));
    }
    return {"toolTip", QString(QStringLiteral("<html><head/><body>") + body +
                               QStringLiteral("</body></html>"))};
}

Setting noTip()
{
    return {"toolTip", QString()};
}

Setting disabled()
{
    return {"enabled", false};
}

Setting enabled()
{
    return {"enabled", true};
}

Setting policy(QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical, int stretch)
{
    QSizePolicy policy(horizontal, vertical);
    policy.setHorizontalStretch(stretch);
    policy.setVerticalStretch(stretch);
    return {"sizePolicy", QVariant::fromValue(policy)};
}

Setting minimum(int width, int height)
{
    return {"minimumSize", QSize(width, height)};
}

Setting maximum(int width, int height)
{
    return {"maximumSize", QSize(width, height)};
}

Setting points(int size)
{
    return {"font", QVariant::fromValue(Font{size, Font::Weight::NotSet})};
}

Setting bold(int size)
{
    return {"font", QVariant::fromValue(Font{size, Font::Weight::Bold})};
}

Setting normal(int size)
{
    return {"font", QVariant::fromValue(Font{size, Font::Weight::Normal})};
}

Setting centred()
{
    return {"alignment", int(Qt::AlignCenter)};
}

Setting leftToRight()
{
    return {"layoutDirection", int(Qt::LeftToRight)};
}

Setting americanEnglish()
{
    return {"locale", QLocale(QLocale::English, QLocale::UnitedStates)};
}

Setting notAutoFilled()
{
    return {"autoFillBackground", false};
}

Setting icon(const char* file)
{
    return {"icon", QString(QStringLiteral(":/picture/") + latin1(file))};
}

Setting iconSize(int width, int height)
{
    return {"iconSize", QSize(width, height)};
}

Setting checkable()
{
    return {"checkable", true};
}

Setting checked(bool on)
{
    return {"checked", on};
}

Setting horizontal()
{
    return {"orientation", int(Qt::Horizontal)};
}

Setting ticks(QSlider::TickPosition position)
{
    return {"tickPosition", int(position)};
}

Setting property(const char* name, const QVariant& value)
{
    return {name, value};
}

std::vector<Setting> range(int lowest, int highest)
{
    return {{"minimum", lowest}, {"maximum", highest}};
}

std::vector<Setting> range(double lowest, double highest, int decimals)
{
    return {{"decimals", decimals}, {"minimum", lowest}, {"maximum", highest}};
}

} // namespace setting

namespace {

template<typename Widget> std::unique_ptr<QWidget> make()
{
    return std::make_unique<Widget>();
}

/// A widget as the toolkit makes it, or null for a class that no form of ours uses.
std::unique_ptr<QWidget> newWidget(const char* type)
{
    struct Maker {
        const QMetaObject& type;
        std::unique_ptr<QWidget> (*make)();
    };
    static const Maker makers[] = {
        {QWidget::staticMetaObject, make<QWidget>},
        {QLabel::staticMetaObject, make<QLabel>},
        {QPushButton::staticMetaObject, make<QPushButton>},
        {QCheckBox::staticMetaObject, make<QCheckBox>},
        {QComboBox::staticMetaObject, make<QComboBox>},
        {QSpinBox::staticMetaObject, make<QSpinBox>},
        {QDoubleSpinBox::staticMetaObject, make<QDoubleSpinBox>},
        {QSlider::staticMetaObject, make<QSlider>},
        {QPlainTextEdit::staticMetaObject, make<QPlainTextEdit>},
        {QTabWidget::staticMetaObject, make<QTabWidget>},
    };
    for (const Maker& maker : makers) {
        if (qstrcmp(maker.type.className(), type) == 0) {
            return maker.make();
        }
    }
    return nullptr;
}

QString shown(const QVariant& value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

/// Properties that follow from the place in the window or that have a comparison of their own.
bool isComparedElsewhere(const char* property)
{
    static const char* const names[] = {
        "objectName", "geometry", "x", "y", "pos", "size", "rect", "width", "height", "frameSize",
        "frameGeometry", "normalGeometry", "childrenRect", "childrenRegion", "frameRect",
        "sizeHint", "minimumSizeHint", "visible", "font", "palette", "locale", "layoutDirection",
        "windowIcon", "icon", "accessibleName",
        // Of a tab widget: its pages are sections of their own.
        "count", "currentIndex"};
    return std::any_of(std::begin(names), std::end(names),
                       [property](const char* name) { return qstrcmp(name, property) == 0; });
}

const QVariant* find(const WidgetRow& row, const char* property)
{
    for (const Setting& setting : row.settings) {
        if (qstrcmp(setting.property, property) == 0) {
            return &setting.value;
        }
    }
    return nullptr;
}

/// Which parts of a font were set, as bits.
uint setParts(const QFont& font)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return font.resolve();
#else
    return font.resolveMask();
#endif
}

/// A font that is not set is inherited, so what counts is which parts of it the form set.
QString fontDifference(const QWidget& widget, const QVariant* expected)
{
    using setting::Font;
    const QFont& font = widget.font();
    if (!expected) {
        return widget.testAttribute(Qt::WA_SetFont) ? QStringLiteral("sets a font") : QString();
    }
    const auto wanted = expected->value<Font>();
    if (!widget.testAttribute(Qt::WA_SetFont) || font.pointSize() != wanted.points) {
        return QStringLiteral("has %1 points, not %2").arg(font.pointSize()).arg(wanted.points);
    }
    QFont parts;
    parts.setPointSize(wanted.points);
    if (wanted.weight != Font::Weight::NotSet) {
        const bool bold = wanted.weight == Font::Weight::Bold;
        parts.setBold(bold);
        if (font.bold() != bold || font.weight() != (bold ? QFont::Bold : QFont::Normal)) {
            return QStringLiteral("has the weight %1").arg(font.weight());
        }
    }
    // Of what a child inherits nothing is its own, hence the parts that both set.
    const uint own = setParts(font) & ~setParts(widget.parentWidget()->font());
    if ((own & ~setParts(parts)) != 0) {
        return QStringLiteral("sets more of the font than it should");
    }
    return {};
}

QString iconDifference(const QWidget& widget, const QVariant* expected)
{
    const auto icon = widget.property("icon").value<QIcon>();
    if (!expected) {
        return icon.isNull() ? QString() : QStringLiteral("has an icon");
    }
    const QImage wanted = QIcon(expected->toString()).pixmap(64, 64).toImage();
    if (wanted.isNull()) {
        return QStringLiteral("there is no picture ") + expected->toString();
    }
    if (icon.pixmap(64, 64).toImage() != wanted) {
        return QStringLiteral("does not show ") + expected->toString();
    }
    return {};
}

/// Gives a new widget everything that the row says; what it does not take is a mistake in the row.
QStringList apply(const WidgetRow& row, QWidget& widget)
{
    QStringList found;
    if (!row.items.isEmpty()) {
        static_cast<QComboBox&>(widget).addItems(row.items);
    }
    for (const auto& [property, value] : row.settings) {
        if (qstrcmp(property, "font") == 0 || qstrcmp(property, "icon") == 0) {
            continue;
        }
        const QMetaObject* type = widget.metaObject();
        const QMetaProperty slot = type->property(type->indexOfProperty(property));
        if (!slot.write(&widget, value)) {
            found << QStringLiteral("cannot have a property ") + QLatin1String(property);
            continue;
        }
        const QVariant taken = slot.read(&widget);
        if (slot.isEnumType() ? taken.toInt() != value.toInt() : taken != value) {
            found << QStringLiteral("cannot have the %1 %2")
                         .arg(QLatin1String(property), shown(value));
        }
    }
    return found;
}

QStringList itemDifferences(const QWidget& widget, const WidgetRow& row)
{
    const auto* box = qobject_cast<const QComboBox*>(&widget);
    if (!box) {
        return {};
    }
    QStringList items;
    for (int index = 0; index < box->count(); ++index) {
        items << box->itemText(index);
    }
    if (items == row.items) {
        return {};
    }
    return {QStringLiteral("offers ") + items.join(QStringLiteral(", "))};
}

QString policyName(QSizePolicy::Policy policy)
{
    return QLatin1String(QMetaEnum::fromType<QSizePolicy::Policy>().valueToKey(policy));
}

QString alignmentName(Qt::Alignment alignment)
{
    // Leading and left are two names of one value.
    const auto keys =
        QMetaEnum::fromType<Qt::Alignment>().valueToKeys(int(Qt::Alignment::Int(alignment)));
    return QString::fromLatin1(keys).replace(QStringLiteral("AlignLeading"),
                                             QStringLiteral("AlignLeft"));
}

QString cellOf(const QLayout& layout, int index)
{
    if (const auto* grid = qobject_cast<const QGridLayout*>(&layout)) {
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        grid->getItemPosition(index, &row, &column, &rows, &columns);
        const QString cell = QStringLiteral("(%1,%2").arg(row).arg(column);
        if (rows == 1 && columns == 1) {
            return cell + QStringLiteral(") ");
        }
        return cell + QStringLiteral(" %1x%2) ").arg(rows).arg(columns);
    }
    if (const auto* form = qobject_cast<const QFormLayout*>(&layout)) {
        int row = 0;
        QFormLayout::ItemRole role = QFormLayout::SpanningRole;
        form->getItemPosition(index, &row, &role);
        return QStringLiteral("(%1,%2) ").arg(row).arg(int(role));
    }
    return {};
}

int spacingOf(const QLayout& layout)
{
    const auto* grid = qobject_cast<const QGridLayout*>(&layout);
    const auto* form = qobject_cast<const QFormLayout*>(&layout);
    // -1 stands for directions that differ.
    if (grid && grid->horizontalSpacing() != grid->verticalSpacing()) {
        return -1;
    }
    if (form && form->horizontalSpacing() != form->verticalSpacing()) {
        return -1;
    }
    return grid ? grid->horizontalSpacing() : form ? form->horizontalSpacing() : layout.spacing();
}

/// Stretches of rows and columns, which no layout of ours has.
QString stretchesOf(const QLayout& layout)
{
    bool any = false;
    if (const auto* box = qobject_cast<const QBoxLayout*>(&layout)) {
        for (int index = 0; index < box->count(); ++index) {
            any |= box->stretch(index) != 0;
        }
    }
    if (const auto* grid = qobject_cast<const QGridLayout*>(&layout)) {
        for (int row = 0; row < grid->rowCount(); ++row) {
            any |= grid->rowStretch(row) != 0 || grid->rowMinimumHeight(row) != 0;
        }
        for (int column = 0; column < grid->columnCount(); ++column) {
            any |= grid->columnStretch(column) != 0 || grid->columnMinimumWidth(column) != 0;
        }
    }
    return any ? QStringLiteral(" stretched") : QString();
}

QString headOf(const QLayout& layout)
{
    QString head = QStringLiteral("%1 %2 %3")
                       .arg(layout.objectName(), QLatin1String(layout.metaObject()->className()))
                       .arg(spacingOf(layout));
    if (const QMargins margins = layout.contentsMargins(); !margins.isNull()) {
        head += QStringLiteral(" margins %1 %2 %3 %4")
                    .arg(margins.left())
                    .arg(margins.top())
                    .arg(margins.right())
                    .arg(margins.bottom());
    }
    if (layout.sizeConstraint() != QLayout::SetDefaultConstraint) {
        head += QStringLiteral(" constraint ") +
                QLatin1String(QMetaEnum::fromType<QLayout::SizeConstraint>().valueToKey(
                    layout.sizeConstraint()));
    }
    if (const auto* form = qobject_cast<const QFormLayout*>(&layout)) {
        head +=
            QStringLiteral(" labels %1 form %2")
                .arg(alignmentName(form->labelAlignment()), alignmentName(form->formAlignment()));
    }
    if (layout.alignment() != Qt::Alignment()) {
        head += QStringLiteral(" aligned");
    }
    return head + stretchesOf(layout);
}

void appendOutline(QLayout& layout, int depth, const QString& cell, QStringList& lines)
{
    const auto line = [&lines](int level, const QString& text) {
        lines << QString(level * 2, QLatin1Char(' ')) + text;
    };
    line(depth, cell + headOf(layout));
    for (int index = 0; index < layout.count(); ++index) {
        QLayoutItem* item = layout.itemAt(index);
        const QString place = cellOf(layout, index);
        if (QLayout* inner = item->layout()) {
            appendOutline(*inner, depth + 1, place, lines);
        } else if (const QSpacerItem* spacer = item->spacerItem()) {
            const QSize size = spacer->sizeHint();
            const QSizePolicy policy = spacer->sizePolicy();
            line(depth + 1, place + QStringLiteral("spacer %1x%2 %3/%4")
                                        .arg(size.width())
                                        .arg(size.height())
                                        .arg(policyName(policy.horizontalPolicy()),
                                             policyName(policy.verticalPolicy())));
        } else {
            const QString aligned =
                item->alignment() == Qt::Alignment() ? QString() : QStringLiteral(" aligned");
            line(depth + 1, place + item->widget()->objectName() + aligned);
        }
    }
}

/// Pictures only compare as images.
QVariant comparable(const QVariant& value)
{
    return value.userType() == QMetaType::QPixmap ? value.value<QPixmap>().toImage() : value;
}

} // namespace

QStringList FormSection::lines() const
{
    return QString::fromLatin1(outline).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QStringList FormSection::members() const
{
    static const QRegularExpression cell(QStringLiteral(R"(^ *(\([^)]*\) )?)"));
    QStringList names;
    for (QString line : lines()) {
        const QString name = line.remove(cell).section(QLatin1Char(' '), 0, 0);
        names << (name == QLatin1String("spacer") ? QString() : name);
    }
    return names;
}

std::vector<Setting> with(std::initializer_list<Settings> parts)
{
    std::vector<Setting> all;
    for (const Settings& part : parts) {
        all.insert(all.end(), part.all.begin(), part.all.end());
    }
    return all;
}

QStringList differences(const QWidget& widget, const WidgetRow& row)
{
    const std::unique_ptr<QWidget> model = newWidget(row.type);
    if (!model || qstrcmp(widget.metaObject()->className(), row.type) != 0) {
        return {QStringLiteral("is a ") + QLatin1String(widget.metaObject()->className())};
    }

    QStringList found = apply(row, *model);
    const QMetaObject* type = widget.metaObject();
    for (int index = 0; index < type->propertyCount(); ++index) {
        const QMetaProperty property = type->property(index);
        if (isComparedElsewhere(property.name())) {
            continue;
        }
        const QVariant actual = comparable(property.read(&widget));
        const QVariant expected = comparable(property.read(model.get()));
        if (actual != expected) {
            found << QStringLiteral("%1 is %2, not %3")
                         .arg(QLatin1String(property.name()), shown(actual), shown(expected));
        }
    }

    const auto own = [&](Qt::WidgetAttribute attribute, const char* property) {
        if (widget.testAttribute(attribute) != (find(row, property) != nullptr)) {
            found << QStringLiteral("sets its %1, or fails to").arg(QLatin1String(property));
        }
    };
    own(Qt::WA_SetPalette, "palette");
    own(Qt::WA_SetLocale, "locale");
    own(Qt::WA_SetLayoutDirection, "layoutDirection");
    if (const QVariant* locale = find(row, "locale"); locale && widget.locale() != *locale) {
        found << QStringLiteral("has the locale ") + widget.locale().name();
    }
    if (widget.layoutDirection() != Qt::LeftToRight) {
        found << QStringLiteral("runs from right to left");
    }
    for (const QString& difference :
         {fontDifference(widget, find(row, "font")), iconDifference(widget, find(row, "icon"))}) {
        if (!difference.isEmpty()) {
            found << difference;
        }
    }
    return found + itemDifferences(widget, row);
}

QStringList outlineOf(QLayout& layout)
{
    QStringList lines;
    appendOutline(layout, 0, QString(), lines);
    return lines;
}
