// SPDX-License-Identifier: MIT
// Numbers as operators of several languages type them.
#include "tests/kit/operator.h"
#include "ui/numberinput.h"

#include <QtCore/QLocale>
#include <QtGui/QClipboard>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSlider>

#include <cmath>

namespace {

/// A desktop in another language, from before the window is built to its end.
class Desktop {
public:
    explicit Desktop(const QString& language) { QLocale::setDefault(QLocale(language)); }
    ~Desktop() { QLocale::setDefault(QLocale::c()); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
};

void connectCamera(kit::Operator& user)
{
    user.sdk.configuration.expertMode = 1;
    user.connectCamera();
    user.rest();
}

double value(kit::Operator& user, const QByteArray& field)
{
    return user.widget(field.constData()).property("value").toDouble();
}

} // namespace

class TestNumbers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDotIsTheDecimalSignInEveryLanguage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QByteArray>("shown");
        QTest::newRow("German") << QStringLiteral("de_DE") << QByteArray("1,3");
        QTest::newRow("French") << QStringLiteral("fr_FR") << QByteArray("1,3");
        QTest::newRow("Swiss") << QStringLiteral("de_CH") << QByteArray("1.3");
        QTest::newRow("English") << QStringLiteral("en_US") << QByteArray("1.3");
        QTest::newRow("Russian") << QStringLiteral("ru_RU") << QByteArray("1,3");
        QTest::newRow("none") << QStringLiteral("C") << QByteArray("1.3");
    }

    void theDotIsTheDecimalSignInEveryLanguage()
    {
        QFETCH(QString, language);
        QFETCH(QByteArray, shown);
        const Desktop desktop(language);
        kit::Operator user;
        connectCamera(user);
        user.type("gammaEdit", "1.3");
        QCOMPARE(user.calls(), kit::lines({"camera.setGamma(85196)"}));
        QCOMPARE(user.text("gammaEdit").toUtf8(), shown);
        QCOMPARE(user.newLog(), kit::lines({"Set GAMMA value OK"}));
        QCOMPARE(user.sliderValue("gammaSlider"), 8);
    }

    void theDotIsTheDecimalSignInAnyLanguageOfTheToolkit()
    {
        QStringList wrong;
        for (const QLocale& locale : QLocale::matchingLocales(
                 QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
            const Desktop desktop(locale.name());
            QWidget window;
            auto* const spinBox = new QDoubleSpinBox(&window);
            tavrel::takeDotAsDecimalSign(window);
            auto& edit = *spinBox->findChild<QLineEdit*>();
            edit.clear();
            edit.insert(QStringLiteral("2.5"));
            if (spinBox->value() != 2.5 || !edit.hasAcceptableInput()) {
                wrong << locale.name();
            }
        }
        QCOMPARE(wrong.join(QLatin1Char(' ')), QString());
    }

    void whatIsTypedIsSentOrNothingOfIt_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QByteArray>("typed");
        QTest::addColumn<double>("expected"); // not a number: the value from before
        const double refused = std::nan("");
        const auto row = [](const char* language, const char* field, const char* typed,
                            double expected) {
            QTest::addRow("%s, %s, %s", language, field, typed)
                << QString::fromLatin1(language) << QByteArray(field) << QByteArray(typed)
                << expected;
        };
        for (const char* language : {"de_DE", "C", "en_US", "fr_FR"}) {
            row(language, "gammaEdit", "1.3", 1.3);
            row(language, "gammaEdit", "1,3", 1.3);
            row(language, "gammaEdit", ".9", 0.9);
            row(language, "gammaEdit", "1.3.5", refused);
            row(language, "sharpeningGainEdit", "1.5", 1.5);
            row(language, "sharpeningGainEdit", "1000", 1000.0);
            row(language, "sharpeningGainEdit", "1.000,5", refused);
            row(language, "SharpeningTHEdit", "12,5", 12.5);
            row(language, "factorZoomEdit", "2.125", 2.125);
            row(language, "factorZoomEdit", "2,125", 2.125);
            // A whole number has no decimals, and no sign that groups its digits.
            row(language, "clheEdit", "1.500", refused);
            row(language, "clheEdit", "1,500", refused);
            row(language, "clheEdit", "1.5", 1.0);
            row(language, "gskEdit", "1.75", 1.0);
            row(language, "clheEdit", "1500", 1500.0);
            row(language, "AhcBlackGainLimSpin", "1.5", refused);
            row(language, "AhcBlackGainLimSpin", "1,5", refused);
            row(language, "Roi0IncX1", "1.5", refused);
            row(language, "TempoFilterSpin", "1.5", refused);
            row(language, "gfidEdit", "1.000", refused);
            row(language, "gmsEdit", "1.234.567", refused);
            row(language, "xResolutionZoomEdit", "1.000", refused);
            row(language, "xBadPixelCoordinate", "1.5", refused);
        }
        // In German a comma begins decimals, elsewhere it may group thousands.
        row("de_DE", "sharpeningGainEdit", "1,5", 1.5);
        row("en_US", "sharpeningGainEdit", "1,024", refused);
        row("en_US", "sharpeningGainEdit", "1,5", refused);
        row("C", "sharpeningGainEdit", "1,5", refused);
    }

    void whatIsTypedIsSentOrNothingOfIt()
    {
        QFETCH(QString, language);
        QFETCH(QByteArray, field);
        QFETCH(QByteArray, typed);
        QFETCH(double, expected);
        for (const Qt::Key end : {Qt::Key_Tab, Qt::Key_Return}) {
            const Desktop desktop(language);
            kit::Operator user;
            connectCamera(user);
            const double before = value(user, field);
            user.type(field.constData(), typed.constData(), end);
            QCOMPARE(value(user, field), std::isnan(expected) ? before : expected);
            // What the field shows is what it holds.
            const auto& spinBox = user.find<QAbstractSpinBox>(field.constData());
            QCOMPARE(spinBox.locale().toDouble(spinBox.text()), value(user, field));
        }
    }

    void aNumberThatIsNoneSendsTheValueFromBefore()
    {
        const Desktop desktop(QStringLiteral("de_DE"));
        kit::Operator user;
        connectCamera(user);
        user.type("AhcBlackGainLimSpin", "1.5");
        QCOMPARE(user.calls(), kit::lines({"camera.setAhcGainsLimitation(10, 20)"}));
        user.forget();
        user.type("clheEdit", "1.500");
        QCOMPARE(user.calls(), kit::lines({"camera.setClhe(2000)"}));
    }

    void whatCannotBeANumberStaysInSightUntilTheEditEnds()
    {
        kit::Operator user;
        connectCamera(user);
        user.type("AhcBlackGainLimSpin", "1.5", Qt::Key_unknown);
        QCOMPARE(user.text("AhcBlackGainLimSpin"), QStringLiteral("1.5"));
    }

    void aSignThatWasDeletedIsForgotten()
    {
        kit::Operator user;
        connectCamera(user);
        user.type("sharpeningGainEdit", "7,", Qt::Key_unknown);
        user.press("sharpeningGainEdit", Qt::Key_Backspace);
        user.press("sharpeningGainEdit", Qt::Key_Period);
        user.press("sharpeningGainEdit", Qt::Key_5);
        user.press("sharpeningGainEdit", Qt::Key_Tab);
        QCOMPARE(user.text("sharpeningGainEdit"), QStringLiteral("7.5"));
    }

    void aValueThatTakesThePlaceOfWhatWasTypedIsSent_data()
    {
        QTest::addColumn<bool>("bySlider");
        QTest::newRow("by a key") << false;
        QTest::newRow("by the slider") << true;
    }

    void aValueThatTakesThePlaceOfWhatWasTypedIsSent()
    {
        QFETCH(bool, bySlider);
        kit::Operator user;
        connectCamera(user);
        user.type("sharpeningGainEdit", "1,5", Qt::Key_unknown);
        if (bySlider) {
            user.find<QSlider>("sharpeningGainSlider").setValue(7);
        } else {
            user.press("sharpeningGainEdit", Qt::Key_Up);
        }
        const QString shown = user.text("sharpeningGainEdit");
        QVERIFY(shown != QStringLiteral("1.5"));
        user.forget();
        user.press("sharpeningGainEdit", Qt::Key_Tab);
        QCOMPARE(user.text("sharpeningGainEdit"), shown);
        QCOMPARE(user.calls().size(), 1);
    }

    void anEditGoesBackToWhatTheEditBeforeItLeft()
    {
        kit::Operator user;
        connectCamera(user);
        user.type("clheEdit", "1500", Qt::Key_Return);
        user.forget();
        user.type("clheEdit", "1.700", Qt::Key_Return);
        QCOMPARE(user.calls(), kit::lines({"camera.setClhe(1500)"}));
        QCOMPARE(user.text("clheEdit"), QStringLiteral("1500"));
    }

    void pastedTextIsTakenLikeTypedText_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("expected");
        const double refused = std::nan("");
        QTest::newRow("dot") << QStringLiteral("de_DE") << QByteArray("gammaEdit")
                             << QStringLiteral("1.3") << 1.3;
        QTest::newRow("comma") << QStringLiteral("C") << QByteArray("gammaEdit")
                               << QStringLiteral("1,3") << 1.3;
        QTest::newRow("grouped") << QStringLiteral("de_DE") << QByteArray("clheEdit")
                                 << QStringLiteral("1.500") << refused;
        QTest::newRow("grouped twice") << QStringLiteral("C") << QByteArray("gmsEdit")
                                       << QStringLiteral("1,500,000") << refused;
        QTest::newRow("words") << QStringLiteral("C") << QByteArray("clheEdit")
                               << QStringLiteral("about 7") << refused;
    }

    void pastedTextIsTakenLikeTypedText()
    {
        QFETCH(QString, language);
        QFETCH(QByteArray, field);
        QFETCH(QString, text);
        QFETCH(double, expected);
        const Desktop desktop(language);
        kit::Operator user;
        connectCamera(user);
        const double before = value(user, field);
        QApplication::clipboard()->setText(text);
        user.press(field.constData(), Qt::Key_A, Qt::ControlModifier);
        user.press(field.constData(), Qt::Key_V, Qt::ControlModifier);
        user.press(field.constData(), Qt::Key_Tab);
        QCOMPARE(value(user, field), std::isnan(expected) ? before : expected);
    }
};

TAVREL_TEST_MAIN(TestNumbers)
#include "tst_numbers.moc"
