// A run of the monkey: TAVREL_MONKEY_STEPS deeds drawn from TAVREL_MONKEY_SEED, at a window whose
// SDK answers at random, with the window's health checked after each.
#include "tests/kit/warnings.h"
#include "tests/monkey/health.h"
#include "tests/monkey/hostile_sdk.h"
#include "tests/monkey/monkey.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <array>
#include <csignal>
#include <memory>

#include <unistd.h>

namespace {

/// Longest time for one deed, in seconds, before the program counts as stuck.
constexpr unsigned patience = 120;
/// Fewer deeds than this may well pass without a connection.
constexpr quint64 fewDeeds = 500;
/// Deeds before the window is closed and a new one opened.
constexpr quint64 deedsPerWindow = 1000;

/// What the run was doing, for a report that may not allocate.
std::array<char, 256> doing{};

void giveUp(int)
{
    static constexpr char stuck[] = "\nstuck at ";
    (void)!::write(STDERR_FILENO, stuck, sizeof stuck - 1);
    (void)!::write(STDERR_FILENO, doing.data(), qstrlen(doing.data()));
    (void)!::write(STDERR_FILENO, "\n", 1);
    std::abort();
}

quint64 fromEnvironment(const char* name, quint64 otherwise)
{
    bool valid = false;
    const quint64 value = qEnvironmentVariable(name).toULongLong(&valid);
    return valid ? value : otherwise;
}

} // namespace

class TestMonkey : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aWindowSurvivesRandomEventsAndRandomAnswers()
    {
        const quint64 steps = fromEnvironment("TAVREL_MONKEY_STEPS", 1000);
        const quint64 seed = fromEnvironment("TAVREL_MONKEY_SEED", 1);
        const QTemporaryDir directory;
        QVERIFY(QDir::setCurrent(directory.path()));
        (void)std::signal(SIGALRM, giveUp);

        kit::Warnings warnings;
        hostile::start(seed);
        monkey::Monkey monkey(seed);
        std::unique_ptr<MainWindow> window;
        std::unique_ptr<monkey::Health> health;
        quint64 online = 0;
        for (quint64 step = 0; step < steps; ++step) {
            ::alarm(patience);
            if (step % deedsPerWindow == 0) {
                health.reset();
                window = std::make_unique<MainWindow>();
                window->show();
                health = std::make_unique<monkey::Health>(*window);
                monkey.sitDownAt(*window);
            }
            qsnprintf(doing.data(), doing.size(), "step %llu of seed %llu", step, seed);
            monkey.act();
            const QString finding = monkey.finding() + health->finding();
            warnings.settle();
            online += health->connected() ? 1 : 0;
            if (!finding.isEmpty() || QTest::currentTestFailed()) {
                QFAIL(qPrintable(QStringLiteral("%1, %2: %3")
                                     .arg(QLatin1String(doing.data()), monkey.deed(), finding)));
            }
        }
        ::alarm(0);
        window->close();
        qInfo("seed %llu: %llu deeds, %llu of them with a camera, %d boxes", seed, steps, online,
              monkey.boxes());
        // Most controls are out of reach without a camera; only a few deeds prove nothing.
        QVERIFY(online > steps / 4 || steps < fewDeeds);
    }
};

int main(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("QT_FONT_DPI", "96");
    qputenv("QT_STYLE_OVERRIDE", "Fusion");
    // A long run is no hanging one; each deed has its own limit.
    qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000");
    QLocale::setDefault(QLocale::c());
    QApplication application(argc, argv);
    TestMonkey test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_monkey.moc"
