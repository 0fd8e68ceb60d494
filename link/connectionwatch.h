// SPDX-License-Identifier: MIT
#pragma once

namespace tavrel {

/// Tells a handler that waited under a message box whether its connection has ended meanwhile: the
/// monitoring goes on behind most boxes and disconnects when the port is gone.
class ConnectionWatch {
public:
    /// endedConnections: the window's count of connections that came to their end.
    explicit ConnectionWatch(const unsigned& endedConnections)
        : ended(endedConnections), atBegin(endedConnections)
    {}

    [[nodiscard]] bool connectionEnded() const { return ended != atBegin; }

private:
    const unsigned& ended;
    const unsigned atBegin;
};

} // namespace tavrel
