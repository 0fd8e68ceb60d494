// SPDX-License-Identifier: MIT
// Takes commands from other processes of the same user, in a thread of its own.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <memory>

namespace simulator {

/// Listens at a local socket. A peer sends a request, ends its side, and gets the answer; whoever
/// does not end it keeps nobody else waiting, and whoever has gone altogether is not served.
class Listener {
public:
    using Handler = std::function<QByteArray(const QByteArray&)>;

    Listener();
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Begins to listen at the path, whose socket only the same user may use. handler: called in
    /// the other thread. Returns the reason when it cannot.
    QString start(const QString& path, Handler handler);
    /// Ends listening and takes the socket away if it is still its own; nothing happens when it
    /// does not listen.
    void stop();

private:
    class Thread;
    std::unique_ptr<Thread> thread;
};

} // namespace simulator
