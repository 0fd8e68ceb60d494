// SPDX-License-Identifier: MIT
#include "ctl/tasks.h"

#include "app/platform.h"

namespace tavrel::ctl {

namespace {

struct Row {
    const char* task;
    Status (*perform)(const Request& request, Answer& answer);
};

constexpr Row rows[] = {
    {"ports", &listPorts},        {"list", &listParameters},  {"info", &showInfo},
    {"get", &getParameters},      {"set", &setParameters},    {"nuc", &requestNuc},
    {"shutter", &moveShutter},    {"save", &saveProfile},     {"apply", &applyProfile},
    {"diff", &compareProfiles},   {"table read", &readTable}, {"table write", &writeTable},
    {"table reset", &resetTable}, {"map show", &showMap},     {"map diff", &compareMaps},
};

} // namespace

SessionOptions sessionOptions(const Request& request)
{
    constexpr double perSecond = 1000;
    return {.port = request.port,
            .timeout = std::chrono::milliseconds(static_cast<int>(request.timeout * perSecond)),
            .linkRate = request.linkRate,
            .json = request.json,
            .showsProgress = platform::isTerminal(platform::Stream::Errors)};
}

std::uint32_t serialNumber(Session& session)
{
    const std::uint32_t number = session.ask(QStringLiteral("serial number"),
                                             [](auto& camera) { return camera.getSerialNumber(); });
    session.expectPresence();
    // Every camera that does not tell answers 0, so their files would be one.
    if (number == 0) {
        throw Failure(Status::Differs, QStringLiteral("the camera does not tell its serial number; "
                                                      "nothing was written"));
    }
    return number;
}

Status perform(const Request& request, Answer& answer)
{
    for (const Row& row : rows) {
        if (request.task == QLatin1String(row.task)) {
            return row.perform(request, answer);
        }
    }
    throw Failure(Status::Usage, QStringLiteral("no such command: %1").arg(request.task));
}

} // namespace tavrel::ctl
