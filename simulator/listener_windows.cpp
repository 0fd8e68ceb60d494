// SPDX-License-Identifier: MIT
#include "simulator/listener.h"

namespace simulator {

class Listener::Thread {};

Listener::Listener() = default;
Listener::~Listener() = default;

QString Listener::start(const QString& /*path*/, Handler /*handler*/)
{
    return QStringLiteral("there are no commands from outside on this system");
}

void Listener::stop() {}

} // namespace simulator
