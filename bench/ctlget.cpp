// SPDX-License-Identifier: MIT
// What "tavrelctl PORT get" costs over the calls of the SDK that it makes. The SDK is the recording
// one, whose answers take no time; the start of a process is not counted.
#include "ctl/tasks.h"
#include "tests/kit/ports.h"
#include "tests/kit/recording_sdk.h"

#include <QtCore/QCoreApplication>

#include <benchmark/benchmark.h>

namespace ctl = tavrel::ctl;

namespace {

void get(benchmark::State& state)
{
    recording::Sdk& sdk = recording::Sdk::instance();
    ctl::Request request;
    request.task = QStringLiteral("get");
    request.port = QStringLiteral("ttyUSB0");
    std::size_t calls = 0;
    for (const auto _ : state) {
        ctl::Answer answer;
        if (ctl::perform(request, answer) != ctl::Status::Done) {
            state.SkipWithError("the parameters were not read");
            break;
        }
        benchmark::DoNotOptimize(answer.text(false, false));
        state.PauseTiming();
        calls = sdk.entries().size();
        sdk.clearJournal();
        state.ResumeTiming();
    }
    state.counters["calls"] = static_cast<double>(calls);
}
BENCHMARK(get)->Unit(benchmark::kMicrosecond);

void bareCalls(benchmark::State& state)
{
    recording::Sdk& sdk = recording::Sdk::instance();
    std::vector<double> values(tavrel::parameters().size());
    for (const auto _ : state) {
        ombrix_sdk::IOmbrixSdk& root = *ombrix_sdk::OmbrixSdk::get_instance();
        root.getConfiguration()->getCommunicationType();
        ombrix_sdk::ISerialLink* link = root.createSerialLink();
        ombrix_sdk::ICamera* const camera = link->openCamera("ttyUSB0");
        std::uint32_t versions = 0;
        camera->connect(&versions);
        camera->getVersions(&versions);
        camera->refresh();
        for (const tavrel::Command& command : tavrel::commands()) {
            if (command.read) {
                command.read(*camera, std::span(values).first(command.count));
            }
        }
        camera->getVersions(&versions);
        link->closeCamera(camera);
        root.releaseSerialLink(&link);
        state.PauseTiming();
        sdk.clearJournal();
        state.ResumeTiming();
    }
}
BENCHMARK(bareCalls)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    kit::Ports ports;
    ports.plug(QStringLiteral("ttyUSB0"));
    recording::Sdk::instance().configuration.expertMode = 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
