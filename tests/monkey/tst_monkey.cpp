// SPDX-License-Identifier: MIT
// A run of the monkey: TAVREL_MONKEY_STEPS actions drawn from TAVREL_MONKEY_SEED, at a window whose
// SDK answers at random, with the window's health checked after each.
#include "tests/kit/warnings.h"
#include "tests/monkey/health.h"
#include "tests/monkey/hostile_sdk.h"
#include "tests/monkey/monkey.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace {

/// Longest time for one action before the program counts as stuck.
constexpr std::chrono::seconds patience{120};
/// Fewer actions than this may well pass without a connection.
constexpr quint64 fewActions = 500;
/// Actions before the window is closed and a new one opened.
constexpr quint64 actionsPerWindow = 1000;

/// Ends the program when a action takes too long; from a thread of its own, because the stuck one
/// cannot.
class Watchdog {
public:
    Watchdog() : guard([this](const std::stop_token& end) { watch(end); }) {}

    /// A action begins.
    void see(const QByteArray& action)
    {
        const std::lock_guard lock(mutex);
        doing = action;
        begun = std::chrono::steady_clock::now();
    }

private:
    void watch(const std::stop_token& end)
    {
        std::unique_lock lock(mutex);
        while (!end.stop_requested()) {
            wake.wait_until(lock, end, begun + patience, [] { return false; });
            if (!end.stop_requested() && std::chrono::steady_clock::now() >= begun + patience) {
                qFatal("stuck at %s", doing.constData());
            }
        }
    }

    std::mutex mutex;
    std::condition_variable_any wake;
    QByteArray doing;
    std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
    std::jthread guard;
};

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

        kit::Warnings warnings;
        Watchdog watchdog;
        hostile::start(seed);
        monkey::Monkey monkey(seed);
        std::unique_ptr<MainWindow> window;
        std::unique_ptr<monkey::Health> health;
        quint64 online = 0;
        for (quint64 step = 0; step < steps; ++step) {
            const QByteArray doing =
                QStringLiteral("step %1 of seed %2").arg(step).arg(seed).toUtf8();
            watchdog.see(doing);
            if (step % actionsPerWindow == 0) {
                health.reset();
                window = std::make_unique<MainWindow>();
                window->show();
                health = std::make_unique<monkey::Health>(*window);
                monkey.sitDownAt(*window);
            }
            monkey.act();
            const QString finding = monkey.finding() + health->finding();
            warnings.settle();
            online += health->connected() ? 1 : 0;
            if (!finding.isEmpty() || QTest::currentTestFailed()) {
                QFAIL(qPrintable(QStringLiteral("%1, %2: %3")
                                     .arg(QString::fromUtf8(doing), monkey.action(), finding)));
            }
        }
        window->close();
        // Windows does not let the current directory be deleted.
        QVERIFY(QDir::setCurrent(QDir::tempPath()));
        qInfo("seed %llu: %llu actions, %llu of them with a camera, %d boxes, %d adapters pulled",
              seed, steps, online, monkey.boxes(), monkey.pulls());
        // Most controls are out of reach without a camera; only a few actions prove nothing.
        QVERIFY(online > steps / 4 || steps < fewActions);
        QVERIFY(monkey.pulls() > 0 || steps < fewActions);
    }
};

int main(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("QT_FONT_DPI", "96");
    qputenv("QT_STYLE_OVERRIDE", "Fusion");
    // A long run is no hanging one; each action has its own limit.
    qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000");
    QLocale::setDefault(QLocale::c());
    QApplication application(argc, argv);
    TestMonkey test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_monkey.moc"
