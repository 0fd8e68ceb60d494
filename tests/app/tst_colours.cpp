// SPDX-License-Identifier: MIT
// Whether the operator can read what the window paints, whatever colours and style the desktop
// hands out. Measured from the painted pixels, not from the palette.
#include "tests/kit/operator.h"
#include "ui/dialog.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOptionComboBox>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QToolTip>

#include <cmath>
#include <map>

namespace {

constexpr double enabledText = 4.5;
constexpr double disabledText = 3.0;

double luminance(QRgb colour)
{
    const auto linear = [](int byte) {
        const double part = byte / 255.0;
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

double contrast(QRgb one, QRgb other)
{
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

/// The contrast of a text, 1 when there is none: between the colour that most of the place has and
/// the one that differs most from it.
double contrastIn(const QImage& image)
{
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    QRgb ground = 0;
    int most = 0;
    for (const auto& [colour, count] : counts) {
        if (count > most) {
            ground = colour;
            most = count;
        }
    }
    double greatest = 1.0;
    for (const auto& [colour, count] : counts) {
        greatest = std::max(greatest, contrast(colour, ground));
    }
    return greatest;
}

QRect editField(const QComboBox& box)
{
    struct Access : QComboBox {
        using QComboBox::initStyleOption;
    };
    QStyleOptionComboBox option;
    (box.*&Access::initStyleOption)(&option);
    return box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField,
                                       &box);
}

struct Text {
    QString name;
    QWidget* widget;
    QRect place;
};

/// Every text that can be seen under a widget, with the place in which nothing but it is painted.
QList<Text> textsIn(QWidget& root)
{
    QList<Text> texts;
    const auto add = [&](QWidget* widget, const QString& name, const QRect& place) {
        texts.append({name, widget, place});
    };
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        if (!widget->isVisible()) {
            continue;
        }
        const QString name = widget->objectName();
        if (const auto* label = qobject_cast<QLabel*>(widget)) {
            if (!label->text().isEmpty() && !label->text().contains(QLatin1String("<img"))) {
                add(widget, name, label->rect());
            }
        } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
            // An icon could be taken for the text.
            button->setIcon(QIcon());
            add(widget, name, button->rect().adjusted(6, 6, -6, -6));
        } else if (const auto* check = qobject_cast<QCheckBox*>(widget)) {
            QStyleOptionButton option;
            option.initFrom(check);
            add(widget, name,
                check->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, check));
        } else if (const auto* list = qobject_cast<QComboBox*>(widget)) {
            if (!list->currentText().isEmpty()) {
                add(widget, name, editField(*list));
            }
        } else if (const auto* edit = qobject_cast<QLineEdit*>(widget)) {
            add(widget, widget->parentWidget()->objectName(), edit->rect());
        } else if (const auto* pane = qobject_cast<QPlainTextEdit*>(widget)) {
            if (!pane->toPlainText().isEmpty()) {
                add(pane->viewport(), name, pane->viewport()->rect());
            }
        } else if (const auto* bar = qobject_cast<QTabBar*>(widget)) {
            for (int index = 0; index < bar->count(); ++index) {
                add(widget, bar->tabText(index), bar->tabRect(index).adjusted(8, 6, -8, -4));
            }
        }
    }
    return texts;
}

QImage painted(QWidget& widget, const QRect& place)
{
    return widget.grab(place).toImage().convertToFormat(QImage::Format_RGB32);
}

/// What cannot be read under a widget, with its contrast.
QStringList unreadableIn(QWidget& root)
{
    QStringList found;
    for (const Text& text : textsIn(root)) {
        // From the whole window: a widget alone does not know its ground.
        const QRect place(text.widget->mapTo(root.window(), text.place.topLeft()),
                          text.place.size());
        const double reached = contrastIn(painted(*root.window(), place));
        if (reached < (text.widget->isEnabled() ? enabledText : disabledText)) {
            found << QStringLiteral("%1 %2").arg(text.name).arg(reached, 0, 'f', 1);
        }
    }
    return found;
}

/// All tabs, before or after a connection.
QStringList unreadable(kit::Operator& user)
{
    QStringList found;
    auto& tabs = user.find<QTabWidget>("tabWidget");
    for (int index = 0; index < tabs.count(); ++index) {
        tabs.setCurrentIndex(index);
        QCoreApplication::processEvents();
        // Where the focus or the mouse is, a text may be marked.
        user.window().setFocus();
        found << unreadableIn(user.window());
    }
    found.removeDuplicates();
    return found;
}

bool canListBeRead(QComboBox& list)
{
    list.showPopup();
    QAbstractItemView& view = *list.view();
    bool readable = QTest::qWaitForWindowExposed(view.window());
    for (int row = 0; row < list.count(); ++row) {
        const QRect place = view.visualRect(list.model()->index(row, 0)).adjusted(2, 2, -2, -2);
        readable &= contrastIn(painted(*view.viewport(), place)) >= enabledText;
    }
    list.hidePopup();
    return readable;
}

bool canTipBeRead(QWidget& widget)
{
    QToolTip::showText(QPoint(0, 0), widget.toolTip(), &widget);
    bool readable = false;
    for (QWidget* tip : QApplication::topLevelWidgets()) {
        if (tip->inherits("QTipLabel") && tip->isVisible()) {
            readable = contrastIn(painted(*tip, tip->rect().adjusted(3, 3, -3, -3))) >= enabledText;
        }
    }
    QToolTip::hideText();
    return readable;
}

QPalette all(const QColor& text, const QColor& ground)
{
    QPalette palette;
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText,
          QPalette::ToolTipText, QPalette::HighlightedText, QPalette::PlaceholderText}) {
        palette.setColor(role, text);
    }
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button,
                            QPalette::AlternateBase, QPalette::ToolTipBase, QPalette::Light,
                            QPalette::Midlight, QPalette::Dark, QPalette::Mid}) {
        palette.setColor(role, ground);
    }
    return palette;
}

QPalette darkPalette()
{
    return all(QColor(252, 252, 252), QColor(42, 46, 50));
}

/// A style that takes no notice of palettes, as several dark ones are: it paints all grounds dark.
class DarkStyle : public QProxyStyle {
public:
    /// handsOut: it replaces the application's palette, too.
    explicit DarkStyle(bool handsOut) : QProxyStyle(QStringLiteral("windows")), replaces(handsOut)
    {}
    using QProxyStyle::polish;
    void polish(QPalette& palette) override
    {
        if (replaces) {
            palette = darkPalette();
        }
    }
    [[nodiscard]] QPalette standardPalette() const override { return darkPalette(); }
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        if (element == CE_PushButtonBevel || element == CE_TabBarTabShape) {
            painter->fillRect(option->rect, QColor(42, 46, 50));
            return;
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }

private:
    bool replaces;
};

constexpr char darkStyle[] = "dark";
constexpr char paintingStyle[] = "paints dark only";

QStyle* styleCalled(const char* name)
{
    if (name == darkStyle || name == paintingStyle) {
        return new DarkStyle(name == darkStyle);
    }
    return QStyleFactory::create(QLatin1String(name));
}

struct Desktop {
    const char* style;
    QPalette palette;

    void apply() const
    {
        applyStyle();
        applyColours();
    }

    void applyStyle() const { QApplication::setStyle(styleCalled(style)); }

    void applyColours() const
    {
        QApplication::setPalette(palette);
        QToolTip::setPalette(palette);
    }
};

void hostileDesktops()
{
    QTest::addColumn<Desktop>("desktop");
    QTest::newRow("dark") << Desktop{"fusion", darkPalette()};
    QTest::newRow("dark, another style") << Desktop{"windows", darkPalette()};
    QTest::newRow("dark style") << Desktop{darkStyle, darkPalette()};
    QTest::newRow("dark style, light colours")
        << Desktop{paintingStyle, all(Qt::black, QColor(239, 239, 239))};
    QTest::newRow("black") << Desktop{"fusion", all(Qt::white, Qt::black)};
    QTest::newRow("white on white") << Desktop{"fusion", all(Qt::white, Qt::white)};
    QTest::newRow("black on black") << Desktop{"fusion", all(Qt::black, Qt::black)};
    QTest::newRow("yellow on white") << Desktop{"fusion", all(Qt::yellow, Qt::white)};
    QTest::newRow("grey on grey") << Desktop{"fusion", all(QColor(140, 140, 140), Qt::gray)};
    QPalette half;
    half.setColor(QPalette::Text, Qt::white);
    QTest::newRow("only fields") << Desktop{"fusion", half};
    half = QPalette();
    half.setColor(QPalette::WindowText, Qt::white);
    QTest::newRow("only labels") << Desktop{"fusion", half};
    half = QPalette();
    half.setColor(QPalette::Button, Qt::black);
    QTest::newRow("only buttons") << Desktop{"fusion", half};
    half = QPalette();
    half.setColor(QPalette::Inactive, QPalette::Text, Qt::white);
    QTest::newRow("only in the background") << Desktop{"fusion", half};
    half = QPalette();
    half.setColor(QPalette::Text, QColor(0, 0, 0, 60));
    QTest::newRow("see-through") << Desktop{"fusion", half};
}

} // namespace

Q_DECLARE_METATYPE(Desktop)

class TestColours : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { ordinary().apply(); }
    void cleanupTestCase() { ordinary().apply(); }

    void everyTextCanBeReadOnAHostileDesktop_data() { hostileDesktops(); }
    void everyTextCanBeReadOnAHostileDesktop()
    {
        QFETCH(Desktop, desktop);
        desktop.apply();
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        QCOMPARE(unreadable(user).join(QStringLiteral("; ")), QString());
        user.connectCamera();
        QCOMPARE(unreadable(user).join(QStringLiteral("; ")), QString());
        // Behind another window.
        QApplication::setActiveWindow(nullptr);
        QCOMPARE(unreadable(user).join(QStringLiteral("; ")), QString());
    }

    void everyTextCanBeReadWhenTheDesktopTurnsHostile_data() { hostileDesktops(); }
    void everyTextCanBeReadWhenTheDesktopTurnsHostile()
    {
        QFETCH(Desktop, desktop);
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        user.connectCamera();
        desktop.applyStyle();
        // Most desktops change their colours alone.
        QCoreApplication::processEvents();
        desktop.applyColours();
        QCOMPARE(unreadable(user).join(QStringLiteral("; ")), QString());
        // And back again.
        ordinary().apply();
        QCOMPARE(QApplication::palette(), ordinary().palette);
    }

    void listsBoxesAndTipsCanBeReadToo_data() { hostileDesktops(); }
    void listsBoxesAndTipsCanBeReadToo()
    {
        QFETCH(Desktop, desktop);
        desktop.apply();
        {
            kit::Operator user;
            user.start();
            QVERIFY(canListBeRead(user.find<QComboBox>("BaudRateConnectCB")));
            QVERIFY(canTipBeRead(user.widget("HTLogo")));
        }
        // What the window opens takes the application's colours.
        Dialog about;
        about.show();
        QCOMPARE(unreadableIn(about).join(QStringLiteral("; ")), QString());
        QMessageBox box(QMessageBox::NoIcon, QStringLiteral("ROI"), QStringLiteral("a note"),
                        QMessageBox::Ok);
        box.show();
        QCOMPARE(unreadableIn(box).join(QStringLiteral("; ")), QString());
    }

    void theFormStaysWhite_data() { hostileDesktops(); }
    void theFormStaysWhite()
    {
        QFETCH(Desktop, desktop);
        desktop.apply();
        kit::Operator user;
        const QPalette palette = user.window().palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QCOMPARE(palette.color(group, QPalette::Window), QColor(Qt::white));
            QCOMPARE(palette.color(group, QPalette::Base), QColor(Qt::white));
        }
    }

    void aLightDesktopIsLeftAlone_data()
    {
        QTest::addColumn<Desktop>("desktop");
        QTest::newRow("usual") << ordinary();
        QTest::newRow("another style") << Desktop{
            "windows", QStyleFactory::create(QStringLiteral("windows"))->standardPalette()};
        QTest::newRow("bluish") << Desktop{"fusion",
                                           all(QColor(35, 38, 41), QColor(239, 240, 241))};
        QPalette marked = ordinary().palette;
        marked.setColor(QPalette::Highlight, QColor(61, 174, 233));
        marked.setColor(QPalette::Disabled, QPalette::WindowText, QColor(190, 190, 190));
        QTest::newRow("pale marks") << Desktop{"fusion", marked};
        QPalette backdrop = ordinary().palette;
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            backdrop.setColor(QPalette::Inactive, role, QColor(146, 149, 149));
        }
        QTest::newRow("pale in the background") << Desktop{"fusion", backdrop};
    }

    void aLightDesktopIsLeftAlone()
    {
        QFETCH(Desktop, desktop);
        desktop.apply();
        const QPalette before = QApplication::palette();
        const QPalette tips = QToolTip::palette();
        const QStyle* const style = QApplication::style();
        kit::Operator user;
        user.start();
        QCOMPARE(QApplication::palette(), before);
        QCOMPARE(QToolTip::palette(), tips);
        QCOMPARE(QApplication::style(), style);
    }

private:
    static Desktop ordinary()
    {
        return {"fusion", QStyleFactory::create(QStringLiteral("fusion"))->standardPalette()};
    }
};

TAVREL_TEST_MAIN(TestColours)
#include "tst_colours.moc"
