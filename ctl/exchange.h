// SPDX-License-Identifier: MIT
// Setting parameters of a camera: what goes out, in which order, and what became of it.
#pragma once

#include "ctl/answer.h"
#include "ctl/session.h"
#include "params/parameters.h"

#include <functional>
#include <vector>

namespace tavrel::ctl {

/// Commands that set these values of a camera that holds those, in the order in which they go out.
/// A region's coordinates stay in their order at every moment.
std::vector<std::size_t> orderOnTheWire(const Values& wanted, const Values& held);

/// Commands whose parameters have to be known before the wanted ones are set.
std::vector<std::size_t> commandsAround(const Values& wanted);

/// The wanted values, and the held ones where none is wanted.
Values merged(const Values& wanted, const Values& held);

/// Throws when a region's coordinates would end in the wrong order. told: how a place is named.
void expectOrder(const Values& wanted, const Values& held,
                 const std::function<QString(std::size_t)>& told);

/// Throws when both of the camera's own rates are wanted: it does not hear the second one.
void expectOneRate(const Values& wanted, const std::function<QString(std::size_t)>& told);

enum class Fate {
    Done,
    Refused,
    Differs,    ///< accepted, but the camera holds something else
    NotSent,    ///< would have broken an order that a refused command was to make
    Unverified, ///< accepted; the camera does not tell what it holds
};

struct Result {
    std::size_t place;
    double wanted;
    std::optional<double> before;
    std::optional<double> after;
    Fate fate;
};

/// Sends what is wanted, reads it back and compares everything in expected with the camera.
std::vector<Result> exchange(Session& session, const Values& wanted, const Values& held,
                             const Values& expected);

const char* wordOf(Fate fate);

/// Adds the results to an answer; whether all is well.
bool report(Answer& answer, const std::vector<Result>& results);

} // namespace tavrel::ctl
