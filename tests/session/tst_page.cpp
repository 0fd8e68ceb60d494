// SPDX-License-Identifier: MIT
// What the tour's page does by itself, in a browser that is as small as its program needs: five
// steps of 500 pixels each below a header of 300, in a window of 800.
#include <QtCore/QFile>
#include <QtQml/QJSEngine>
#include <QtTest/QTest>

namespace {

const QString browser = QStringLiteral(R"(
    var scrolled = 0, innerHeight = 800;
    var space = 16, handlers = {};
    var marks = () => {
        const names = new Set();
        return { add: name => names.add(name), remove: name => names.delete(name),
                 contains: name => names.has(name) };
    };
    var steps5 = [0, 1, 2, 3, 4].map(index => ({
        id: 'step-' + (index + 1),
        getBoundingClientRect: () => {
            const top = 300 + 500 * index - scrolled;
            return { top, bottom: top + 500 };
        },
    }));
    var picture = { classList: marks(), closest: () => picture };
    var frame = { clientWidth: 300, scrollLeft: 0, querySelector: () => ({ offsetLeft: 450 }) };
    var contentsList = { open: true };
    var document = {
        querySelectorAll: what => ({
            'section': steps5,
            '.frame': [frame],
            '.large': picture.classList.contains('large') ? [picture] : [],
        })[what],
        querySelector: what => what === 'nav details' ? contentsList : null,
        addEventListener: (what, handler) => { handlers[what] = handler; },
    };
    var location = {
        hash: '',
        replace: to => {
            location.hash = to;
            const step = steps5.find(each => '#' + each.id === to);
            const lowest = 300 + 500 * 5 - innerHeight;
            scrolled = Math.min(lowest, scrolled + step.getBoundingClientRect().top - space);
        },
    };
    var narrowHandler;
    var matchMedia = () => ({ matches: isNarrow,
                                addEventListener: (what, handler) => { narrowHandler = handler; } });
    var press = (key, held) => {
        let prevented = false;
        handlers.keydown(Object.assign({ key, preventDefault: () => { prevented = true; } }, held));
        return prevented;
    };
    var click = () => handlers.click({ target: picture });
)");

} // namespace

class TestPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { open(false); }
    void theArrowKeysGoFromStepToStep();
    void theLastStepIsReachedWhereThePageCannotScrollToIt();
    void afterScrollingTheKeysGoOnFromWhatIsInSight();
    void keysThatAreHeldWithOthersAreTheBrowsers();
    void aClickEnlargesAPictureAndEscapePutsItBack();
    void theContentsAreFoldedWhereThereIsNoRoomBesideThem();
    void aPictureBeginsWhereTheOperatorClicks();

private:
    void open(bool narrow)
    {
        page = std::make_unique<QJSEngine>();
        page->globalObject().setProperty(QStringLiteral("isNarrow"), narrow);
        QFile program(QStringLiteral(SOURCE_FOLDER "/tour/page.js"));
        QVERIFY(program.open(QIODevice::ReadOnly));
        const QJSValue result = page->evaluate(browser + QString::fromUtf8(program.readAll()));
        QVERIFY2(!result.isError(), qPrintable(result.toString()));
    }
    QString tell(const char* expression)
    {
        return page->evaluate(QString::fromLatin1(expression)).toString();
    }
    /// Presses the keys and returns where each of them went.
    QStringList press(const QStringList& keys)
    {
        QStringList places;
        for (const QString& key : keys) {
            page->evaluate(QStringLiteral("press('%1', {})").arg(key));
            places.append(tell("location.hash"));
        }
        return places;
    }

    const QString right = QStringLiteral("ArrowRight");
    const QString left = QStringLiteral("ArrowLeft");
    std::unique_ptr<QJSEngine> page;
};

void TestPage::theArrowKeysGoFromStepToStep()
{
    const QStringList places = press({right, right, right, left, left, left});
    QCOMPARE(places.join(QLatin1Char(' ')),
             QStringLiteral("#step-1 #step-2 #step-3 #step-2 #step-1 #step-1"));
    QCOMPARE(tell("press('ArrowRight', {})"), QStringLiteral("true"));
    QCOMPARE(tell("press('PageDown', {})"), QStringLiteral("false"));
}

void TestPage::theLastStepIsReachedWhereThePageCannotScrollToIt()
{
    const QStringList places = press({right, right, right, right, right, right, left});
    QCOMPARE(places.mid(3).join(QLatin1Char(' ')),
             QStringLiteral("#step-4 #step-5 #step-5 #step-4"));
}

void TestPage::afterScrollingTheKeysGoOnFromWhatIsInSight()
{
    press({right});
    tell("scrolled = 300 + 500 * 2 + 100");
    QCOMPARE(press({right}).constFirst(), QStringLiteral("#step-4"));
}

void TestPage::keysThatAreHeldWithOthersAreTheBrowsers()
{
    for (const char* const held : {"alt", "ctrl", "meta", "shift"}) {
        const QByteArray pressing = QByteArray("press('ArrowRight', { ") + held + "Key: true })";
        QCOMPARE(tell(pressing.constData()), QStringLiteral("false"));
    }
    QCOMPARE(tell("location.hash"), QString());
}

void TestPage::aClickEnlargesAPictureAndEscapePutsItBack()
{
    const char* const isLarge = "picture.classList.contains('large')";
    tell("click()");
    QCOMPARE(tell(isLarge), QStringLiteral("true"));
    press({QStringLiteral("Escape")});
    QCOMPARE(tell(isLarge), QStringLiteral("false"));
    tell("click(); click()");
    QCOMPARE(tell(isLarge), QStringLiteral("false"));
}

void TestPage::theContentsAreFoldedWhereThereIsNoRoomBesideThem()
{
    QCOMPARE(tell("contentsList.open"), QStringLiteral("true"));
    open(true);
    QCOMPARE(tell("contentsList.open"), QStringLiteral("false"));
}

void TestPage::aPictureBeginsWhereTheOperatorClicks()
{
    QCOMPARE(tell("frame.scrollLeft"), QStringLiteral("300"));
}

QTEST_GUILESS_MAIN(TestPage)
#include "tst_page.moc"
