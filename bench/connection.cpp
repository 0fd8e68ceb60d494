// SPDX-License-Identifier: MIT
// What a connection with its full read costs the tool, beside the same calls of the same SDK made
// in a loop without a window. The SDK is the recording one, whose answers take no time.
#include "bench/replay.h"
#include "tests/kit/operator.h"

#include <QtWidgets/QPushButton>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace {

/// Processor time of this thread. A connection never waits, and other programs do not count.
std::chrono::nanoseconds processorTime()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

/// A camera of which every value differs from what a new window shows, so that a connection has the
/// most to do.
void prepareCamera(recording::Sdk& sdk)
{
    recording::CameraState& camera = sdk.camera;
    camera.regions = {
        {{5, 630, 6, 470}, {20, 120, 21, 121}, {30, 130, 31, 131}, {40, 140, 41, 141}}};
    camera.bprCorrection = camera.offsetCorrection = camera.gainCorrection = 1;
    camera.horizontalFlip = camera.verticalFlip = 1;
    camera.vignettingCorrection = camera.columnCorrection = camera.testPattern = 1;
    camera.bt656SdiOutput = camera.parallelOutput = camera.mipiOutput = 1;
    camera.frameRate = 60;
    camera.videoOutput = camera.contrastType = camera.colorLut = 1;
    camera.edgeCorrection = {1, 30, 40, 80};
    camera.zoom = {2.0F, 300, 200, 1};
    camera.zoomResolution = {640, 480};
    camera.gamma = 144179;
    camera.clhe = 3000;
    camera.polarity = camera.nucControl = camera.shutterClosed = 1;

    sdk.configuration.expertMode = 1;
    ombrix_sdk::ISdkConfiguration& limits = sdk.configurationObject();
    limits.gskMax = limits.gfidMax = limits.gmsMax = limits.tintMax = 1000;
}

/// An operator at a new window, who is about to press Connect.
class Session {
public:
    Session()
    {
        prepareCamera(user.sdk);
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.sdk.clearJournal();
    }

    void connectCamera() { user.find<QPushButton>("connectDeviceButton").click(); }

    /// As a connection leaves the window, but for the connection.
    void disconnectCamera()
    {
        user.find<QPushButton>("disconnectDeviceButton").click();
        QCoreApplication::processEvents();
        user.sdk.clearJournal();
    }

    kit::Operator user;
};

template<typename Work> void timed(benchmark::State& state, const Work& work)
{
    const auto start = processorTime();
    work();
    state.SetIterationTime(std::chrono::duration<double>(processorTime() - start).count());
}

enum class Until { Handled, Painted };

/// The first connection of a window.
void firstConnection(benchmark::State& state, Until until)
{
    for (const auto _ : state) {
        Session session;
        QCoreApplication::processEvents();
        timed(state, [&] {
            session.connectCamera();
            if (until == Until::Painted) {
                QCoreApplication::processEvents();
            }
        });
    }
}

/// Every later one, which finds the camera's values in the widgets.
void laterConnection(benchmark::State& state)
{
    Session session;
    session.connectCamera();
    for (const auto _ : state) {
        session.disconnectCamera();
        timed(state, [&] { session.connectCamera(); });
    }
}

/// Its floor: the journal's calls once more.
void callsAlone(benchmark::State& state, const std::vector<recording::Entry>& journal)
{
    recording::Sdk& sdk = recording::Sdk::instance();
    sdk.reset();
    prepareCamera(sdk);
    bench::Replay replay(journal);
    for (const auto _ : state) {
        sdk.clearJournal();
        timed(state, [&] { replay.run(); });
    }
    state.counters["calls"] = static_cast<double>(replay.calls());
    state.counters["logRecords"] = static_cast<double>(replay.records());
}

std::vector<recording::Entry> journalOf(bool later)
{
    Session session;
    if (later) {
        session.connectCamera();
        session.disconnectCamera();
    }
    session.connectCamera();
    if (!session.user.enabled("disconnectDeviceButton")) {
        std::fputs("no connection came about\n", stderr);
        std::abort();
    }
    return session.user.sdk.entries();
}

/// The floor must make exactly the calls of the window.
void requireEqualCalls(const std::vector<recording::Entry>& journal)
{
    recording::Sdk& sdk = recording::Sdk::instance();
    sdk.reset();
    prepareCamera(sdk);
    bench::Replay replay(journal);
    replay.run();
    const auto& replayed = sdk.entries();
    bool equal = replayed.size() == journal.size();
    for (std::size_t index = 0; equal && index < journal.size(); ++index) {
        equal = replayed[index].text() == journal[index].text();
        if (!equal) {
            std::fprintf(stderr, "the window called %s, the floor %s\n",
                         journal[index].text().c_str(), replayed[index].text().c_str());
        }
    }
    if (!equal) {
        std::fputs("the floor does not make the window's calls\n", stderr);
        std::abort();
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

    const auto first = journalOf(false);
    const auto later = journalOf(true);
    requireEqualCalls(first);
    requireEqualCalls(later);

    // A new window for every first connection takes far longer than the connection.
    const auto add = [](const char* name, int times, auto&&... arguments) {
        benchmark::RegisterBenchmark(name, arguments...)
            ->Iterations(times)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    };
    add("firstConnection", 10, &firstConnection, Until::Handled);
    add("firstConnection/callsAlone", 500, &callsAlone, first);
    add("firstConnection/painted", 10, &firstConnection, Until::Painted);
    add("laterConnection", 50, &laterConnection);
    add("laterConnection/callsAlone", 500, &callsAlone, later);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
