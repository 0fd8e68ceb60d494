// SPDX-License-Identifier: MIT
// What the program can do. Each task fills an answer and says how it went, or throws a Failure.
#pragma once

#include "ctl/answer.h"
#include "ctl/failure.h"
#include "ctl/request.h"
#include "ctl/session.h"

namespace tavrel::ctl {

/// The camera that a request names.
SessionOptions sessionOptions(const Request& request);

/// The number that a camera's files are called by; throws when the camera does not tell it.
std::uint32_t serialNumber(Session& session);

Status listPorts(const Request& request, Answer& answer);
Status listParameters(const Request& request, Answer& answer);
Status showInfo(const Request& request, Answer& answer);
Status getParameters(const Request& request, Answer& answer);
Status setParameters(const Request& request, Answer& answer);
Status saveProfile(const Request& request, Answer& answer);
Status applyProfile(const Request& request, Answer& answer);
Status compareProfiles(const Request& request, Answer& answer);
Status readTable(const Request& request, Answer& answer);
Status writeTable(const Request& request, Answer& answer);
Status resetTable(const Request& request, Answer& answer);
Status showMap(const Request& request, Answer& answer);
Status compareMaps(const Request& request, Answer& answer);
Status requestNuc(const Request& request, Answer& answer);
Status moveShutter(const Request& request, Answer& answer);

/// Does what a request asks for, whatever it is.
Status perform(const Request& request, Answer& answer);

} // namespace tavrel::ctl
