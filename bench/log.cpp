// SPDX-License-Identifier: MIT
// What a line of the event log costs when the log is long, beside the same line in a short log; and
// whether the window can still be used then.
#include "tests/kit/operator.h"

#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <functional>
#include <string>

namespace {

constexpr int shortLog = 1'000;
constexpr int longLog = 100'000;

/// Lines per measurement, half of them before the line in question and half of them after.
constexpr int linesMeasured = 400;

std::size_t memoryInUse()
{
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd; // the second: large blocks, kept apart
}

/// Counts how often a widget is painted.
class Paintings : public QObject {
public:
    explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

/// A connected window whose log has so many lines.
class Session {
public:
    explicit Session(int lines)
    {
        user.connectCamera();
        // A tick in the middle of a measurement is not what is measured.
        user.timer().stop();
        log().clear();
        const QPlainTextEdit& filled = log();
        const std::size_t before = memoryInUse();
        while (filled.blockCount() <= lines) {
            addLine();
            if (filled.blockCount() % 1000 == 0) {
                show();
                user.sdk.clearJournal();
            }
        }
        show();
        user.sdk.clearJournal();
        bytesPerLine = static_cast<double>(memoryInUse() - before) / lines;
    }

    QPlainTextEdit& log() { return user.find<QPlainTextEdit>("logView"); }

    /// One value to the camera and one line to the log: "Set GAMMA value OK".
    void addLine() { user.window().gammaUserSendCommand(); }

    /// Everything that waits to be painted.
    static void show() { QCoreApplication::processEvents(); }

    kit::Operator user;
    double bytesPerLine = 0;
};

using Work = std::function<void(Session&)>;

void measure(benchmark::State& state, int lines, bool paints, const Work& work)
{
    Session session(lines - linesMeasured / 2);
    Paintings paintings(*session.log().viewport());
    for (const auto _ : state) {
        work(session);
    }
    if (paints && paintings.count < static_cast<int>(state.iterations())) {
        state.SkipWithError("the log was not painted");
    }
    state.counters["bytesPerLine"] = session.bytesPerLine;
}

/// What a line costs the SDK, which is to be taken off: the log has no part in it.
void sdkAlone(benchmark::State& state)
{
    recording::Sdk::instance().reset();
    ombrix_sdk::ICamera* const camera =
        ombrix_sdk::OmbrixSdk::get_instance()->createSerialLink()->openCamera("ttyUSB0");
    const std::string line = "Set GAMMA value OK";
    for (const auto _ : state) {
        camera->setGamma(65536);
        ombrix_sdk::SDKLogger record(ombrix_sdk::event_severity);
        record.GetILogger() << line;
    }
}

} // namespace

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    kit::prepareProcess();
    const QApplication application(argc, argv);

    struct Figure {
        const char* name;
        int times; ///< per measurement
        bool paints;
        Work work;
    };
    const Figure figures[] = {
        {"line", linesMeasured, false,
         [](Session& session) {
             session.addLine();
         }},
        {"lineShown", linesMeasured, true,
         [](Session& session) {
             session.addLine();
             Session::show();
         }},
        {"clickShown", linesMeasured, true,
         [](Session& session) {
             session.user.click("ColumnCorrectionButton");
             Session::show();
         }},
        {"scrollToTopAndBack", 20, true,
         [](Session& session) {
             QScrollBar* const bar = session.log().verticalScrollBar();
             bar->setValue(bar->minimum());
             Session::show();
             bar->setValue(bar->maximum());
             Session::show();
         }},
        {"resizeAndBack", 20, true,
         [](Session& session) {
             MainWindow& window = session.user.window();
             const QSize size = window.size();
             window.resize(size + QSize(60, 60));
             Session::show();
             window.resize(size);
             Session::show();
         }},
        {"clear", 1, true,
         [](Session& session) {
             session.user.click("clearLogButton");
             Session::show();
         }},
    };
    for (const Figure& figure : figures) {
        for (const int lines : {shortLog, longLog}) {
            const std::string name = std::string(figure.name) + '/' + std::to_string(lines);
            benchmark::RegisterBenchmark(name.c_str(), &measure, lines, figure.paints, figure.work)
                ->Iterations(figure.times)
                ->Unit(benchmark::kMicrosecond);
        }
    }
    benchmark::RegisterBenchmark("line/sdkAlone", &sdkAlone)
        ->Iterations(linesMeasured)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
