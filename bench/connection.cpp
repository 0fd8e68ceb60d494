// SPDX-License-Identifier: MIT
// What a connection with its full read costs the tool. The SDK is the recording one, whose answers
// take no time.
#include "tests/kit/operator.h"

#include <QtWidgets/QPushButton>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>

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
    bool connected() { return user.enabled("disconnectDeviceButton"); }

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

/// Tells what the latest connection asked of the SDK; one that did not come about is an error.
void tellOf(benchmark::State& state, Session& session)
{
    if (!session.connected()) {
        state.SkipWithError("no connection came about");
        return;
    }
    const auto& entries = session.user.sdk.entries();
    const auto records =
        std::count_if(entries.begin(), entries.end(),
                      [](const recording::Entry& entry) { return entry.operation == "log"; });
    state.counters["calls"] = static_cast<double>(entries.size()) - static_cast<double>(records);
    state.counters["logRecords"] = static_cast<double>(records);
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
        tellOf(state, session);
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
    tellOf(state, session);
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

    // A new window for every first connection takes far longer than the connection.
    const auto add = [](const char* name, int times, auto&&... arguments) {
        benchmark::RegisterBenchmark(name, arguments...)
            ->Iterations(times)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    };
    add("firstConnection", 10, &firstConnection, Until::Handled);
    add("firstConnection/painted", 10, &firstConnection, Until::Painted);
    add("laterConnection", 50, &laterConnection);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
