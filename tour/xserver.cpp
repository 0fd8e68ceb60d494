// SPDX-License-Identifier: MIT
#include "tour/xserver.h"

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace tour {

namespace {

constexpr std::uint8_t leftButton = 1;

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template<typename Reply> using Owned = std::unique_ptr<Reply, Free>;

std::uint8_t extensionOpcode(xcb_connection_t* connection)
{
    const auto* const extension = xcb_get_extension_data(connection, &xcb_test_id);
    return extension != nullptr && extension->present != 0 ? extension->major_opcode
                                                           : std::uint8_t{0};
}

} // namespace

void XServer::Disconnect::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

XServer::XServer() : connection(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(connection.get()) != 0) {
        throw std::runtime_error("no X display can be reached");
    }
    if (extensionOpcode(connection.get()) == 0) {
        throw std::runtime_error("the X display takes no test input");
    }
    const xcb_setup_t* const setup = xcb_get_setup(connection.get());
    screen = xcb_setup_roots_iterator(setup).data;

    firstKey = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const Owned<xcb_get_keyboard_mapping_reply_t> mapping(xcb_get_keyboard_mapping_reply(
        connection.get(), xcb_get_keyboard_mapping(connection.get(), setup->min_keycode, count),
        nullptr));
    if (!mapping) {
        throw std::runtime_error("the X display names no keys");
    }
    keyWidth = mapping->keysyms_per_keycode;
    const xcb_keysym_t* const first = xcb_get_keyboard_mapping_keysyms(mapping.get());
    symbols.assign(first, first + xcb_get_keyboard_mapping_keysyms_length(mapping.get()));
}

XServer::~XServer() = default;

QSize XServer::size() const
{
    return {screen->width_in_pixels, screen->height_in_pixels};
}

void XServer::paintBackground(std::uint32_t colour)
{
    xcb_change_window_attributes(connection.get(), screen->root, XCB_CW_BACK_PIXEL, &colour);
    xcb_clear_area(connection.get(), 0, screen->root, 0, 0, 0, 0);
    synchronize();
}

void XServer::movePointer(QPoint position)
{
    fake(XCB_MOTION_NOTIFY, 0, position);
}

void XServer::pressButton()
{
    fake(XCB_BUTTON_PRESS, leftButton);
}

void XServer::releaseButton()
{
    fake(XCB_BUTTON_RELEASE, leftButton);
}

void XServer::pressKey(Key key)
{
    fake(XCB_KEY_PRESS, strokeFor(static_cast<std::uint32_t>(key)).code);
}

void XServer::releaseKey(Key key)
{
    fake(XCB_KEY_RELEASE, strokeFor(static_cast<std::uint32_t>(key)).code);
}

void XServer::tapKey(Key key)
{
    pressKey(key);
    releaseKey(key);
}

void XServer::tapCharacter(char character)
{
    // The symbols of ASCII characters are the characters themselves.
    const Stroke stroke = strokeFor(static_cast<std::uint8_t>(character));
    if (stroke.shift) {
        pressKey(Key::Shift);
    }
    fake(XCB_KEY_PRESS, stroke.code);
    fake(XCB_KEY_RELEASE, stroke.code);
    if (stroke.shift) {
        releaseKey(Key::Shift);
    }
}

XServer::Stroke XServer::strokeFor(std::uint32_t symbol) const
{
    for (int column = 0; column < std::min(keyWidth, 2); ++column) {
        for (std::size_t key = 0; key * static_cast<std::size_t>(keyWidth) < symbols.size();
             ++key) {
            if (symbols[key * static_cast<std::size_t>(keyWidth) +
                        static_cast<std::size_t>(column)] == symbol) {
                return {static_cast<std::uint8_t>(firstKey + static_cast<int>(key)), column == 1};
            }
        }
    }
    throw std::runtime_error("the keyboard lacks a key");
}

void XServer::fake(std::uint8_t type, std::uint8_t detail, QPoint position)
{
    xcb_test_fake_input(connection.get(), type, detail, XCB_CURRENT_TIME, screen->root,
                        static_cast<std::int16_t>(position.x()),
                        static_cast<std::int16_t>(position.y()), 0);
    synchronize();
}

void XServer::synchronize() const
{
    const Owned<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        connection.get(), xcb_get_input_focus(connection.get()), nullptr));
    if (!reply) {
        throw std::runtime_error("the X display is gone");
    }
}

void XServer::requestClose(std::uint32_t window)
{
    constexpr char name[] = "_NET_CLOSE_WINDOW";
    const Owned<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection.get(), xcb_intern_atom(connection.get(), 0, std::strlen(name), name), nullptr));
    if (!atom) {
        throw std::runtime_error("the X display is gone");
    }
    constexpr std::uint32_t asAPager = 2; // asked for by the person, not by the program itself
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom->atom;
    event.data.data32[0] = XCB_CURRENT_TIME;
    event.data.data32[1] = asAPager;
    xcb_send_event(connection.get(), 0, screen->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    synchronize();
}

QImage XServer::picture(QRect area) const
{
    const QRect visible = area.intersected(QRect(QPoint(), size()));
    const Owned<xcb_get_image_reply_t> reply(xcb_get_image_reply(
        connection.get(),
        xcb_get_image(connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root,
                      static_cast<std::int16_t>(visible.x()),
                      static_cast<std::int16_t>(visible.y()),
                      static_cast<std::uint16_t>(visible.width()),
                      static_cast<std::uint16_t>(visible.height()), ~std::uint32_t{0}),
        nullptr));
    constexpr int bytesPerPixel = 4;
    if (!reply || xcb_get_image_data_length(reply.get()) !=
                      visible.width() * visible.height() * bytesPerPixel) {
        throw std::runtime_error("the X display shows no picture of 32 bits per pixel");
    }
    return QImage(xcb_get_image_data(reply.get()), visible.width(), visible.height(),
                  visible.width() * bytesPerPixel, QImage::Format_RGB32)
        .copy();
}

} // namespace tour
