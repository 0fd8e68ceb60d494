// SPDX-License-Identifier: MIT
// A camera on a serial port, from opening to closing.
#pragma once

#include "ctl/failure.h"
#include "ctl/watch.h"
#include "params/parameters.h"
#include "sdk/ombrix_sdk.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

namespace tavrel::ctl {

struct SessionOptions {
    QString port;
    std::chrono::milliseconds timeout{30000}; ///< for each answer of the camera
    std::optional<int> linkRate;              ///< baud; none: the SDK's own
    bool json = false;
    bool showsProgress = false; ///< a line on standard error that comes and goes
};

/// The serial ports of this machine.
QStringList portNames();

/// The SDK's settings; the SDK is ready to be used after the first call.
ombrix_sdk::ISdkConfiguration& configuration();

bool isExpertMode();

/// A command of a plan.
struct Step {
    enum class Fate { NotSent, UnderWay, Done, Refused };

    QString name;
    Fate fate = Fate::NotSent;
};

class Session {
public:
    /// Opens the camera, or throws why there is none.
    explicit Session(SessionOptions sessionOptions);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Makes one call to the camera, what: for the message when no answer comes. Throws before the
    /// call when the user has asked for an end.
    template<typename Call> auto ask(const QString& what, Call call)
    {
        return make(what, false, call);
    }

    /// The same for a command of the plan, which is under way until it is settled.
    template<typename Call> auto send(const QString& what, Call call)
    {
        return make(what, true, call);
    }

    /// Throws unless port and camera are still there.
    void expectPresence();

    [[nodiscard]] std::uint32_t versions() const { return versionWords; }
    [[nodiscard]] std::chrono::milliseconds timeout() const { return options.timeout; }

    /// The values of these commands' parameters.
    Values read(const std::vector<std::size_t>& wanted);

    /// Commands that will be sent, for what an early end tells. doubt: what it means when one of
    /// them is not settled.
    void plan(const QStringList& names, const QString& doubt = {});
    /// What has become of a command of the plan.
    void settle(const QString& what, Step::Fate fate);

private:
    template<typename Call> auto make(const QString& what, bool isStep, Call& call)
    {
        enter(what, isStep);
        auto result = call(*camera);
        watch.end();
        return result;
    }

    void enter(const QString& what, bool isStep = false);
    /// Why the session ends, and what has become of the plan.
    [[nodiscard]] Failure ending(Status status, QString message) const;
    void close();
    [[noreturn]] void endLate();
    void open();

    const SessionOptions options;
    mutable std::mutex mutex; ///< of what endLate tells
    QString current;
    std::vector<Step> steps;
    QString doubtfully;

    ombrix_sdk::ISerialLink* link = nullptr;
    ombrix_sdk::ICamera* camera = nullptr;
    std::uint32_t versionWords = 0;
    Watch watch;
};

} // namespace tavrel::ctl
