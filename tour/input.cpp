// SPDX-License-Identifier: MIT
#include "tour/input.h"

extern "C" {
#include <xdo.h>
}

#include <stdexcept>

namespace tour {

namespace {

constexpr int leftButton = 1;
constexpr useconds_t betweenKeys = 2000; // microseconds

void require(int result)
{
    if (result != XDO_SUCCESS) {
        throw std::runtime_error("the X display takes no input");
    }
}

} // namespace

void Input::Release::operator()(xdo* display) const
{
    xdo_free(display);
}

Input::Input() : display(xdo_new(nullptr))
{
    if (!display) {
        throw std::runtime_error("no X display can be reached");
    }
}

void Input::movePointer(QPoint position)
{
    require(xdo_move_mouse(display.get(), position.x(), position.y(), 0));
}

void Input::pressButton()
{
    require(xdo_mouse_down(display.get(), CURRENTWINDOW, leftButton));
}

void Input::releaseButton()
{
    require(xdo_mouse_up(display.get(), CURRENTWINDOW, leftButton));
}

void Input::strike(const char* keys)
{
    require(xdo_send_keysequence_window(display.get(), CURRENTWINDOW, keys, betweenKeys));
}

void Input::type(const QString& text)
{
    require(xdo_enter_text_window(display.get(), CURRENTWINDOW, text.toUtf8().constData(),
                                  betweenKeys));
}

} // namespace tour
