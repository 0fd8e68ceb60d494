// SPDX-License-Identifier: MIT
// The X display of the tour: pointer and keyboard by the server's own test extension, so that the
// program receives what a person's hands would have made, and pictures of what the screen shows.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtGui/QImage>

#include <cstdint>
#include <memory>
#include <vector>

struct xcb_connection_t;
struct xcb_screen_t;

namespace tour {

/// Keys that are no characters, by their X names.
enum class Key : std::uint32_t {
    Tab = 0xff09,
    Return = 0xff0d,
    Escape = 0xff1b,
    Right = 0xff53,
    Shift = 0xffe1,
    Control = 0xffe3
};

class XServer {
public:
    /// Connects to the display of the environment; throws std::runtime_error when that fails.
    XServer();
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    [[nodiscard]] QSize size() const;
    /// Gives the root window one plain colour (0xRRGGBB).
    void paintBackground(std::uint32_t colour);

    void movePointer(QPoint position);
    void pressButton();
    void releaseButton();
    void pressKey(Key key);
    void releaseKey(Key key);
    void tapKey(Key key);
    /// Taps the key of an ASCII character, with Shift where the keyboard needs it.
    void tapCharacter(char character);

    /// Asks the window manager to close a window, as its close button does.
    void requestClose(std::uint32_t window);

    /// What the screen shows there; parts outside of the screen are left out.
    [[nodiscard]] QImage picture(QRect area) const;

private:
    struct Stroke {
        std::uint8_t code;
        bool shift;
    };

    [[nodiscard]] Stroke strokeFor(std::uint32_t symbol) const;
    void fake(std::uint8_t type, std::uint8_t detail, QPoint position = {});
    /// Returns once the server has carried out everything that was sent.
    void synchronize() const;

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const;
    };
    std::unique_ptr<xcb_connection_t, Disconnect> connection;
    const xcb_screen_t* screen = nullptr;
    std::vector<std::uint32_t> symbols; ///< of all keys, keyWidth columns each
    int keyWidth = 0;
    int firstKey = 0;
};

} // namespace tour
