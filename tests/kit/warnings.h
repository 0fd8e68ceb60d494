// SPDX-License-Identifier: MIT
// Watches what Qt has to say: a warning that nobody announced fails the test.
#pragma once

#include "tests/kit/failure.h"

#include <QtCore/QString>

#include <vector>

namespace kit {

class Warnings {
public:
    Warnings();
    ~Warnings();
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;

    /// The next warning with exactly this text is wanted.
    void expect(const QString& message, const Place& place = Place::current());
    /// Fails the test for each warning that came unannounced or was announced and never came.
    void settle();

private:
    static void receive(QtMsgType type, const QMessageLogContext& context, const QString& message);

    QtMessageHandler previous;
    struct Message {
        QString text;
        Place place; ///< where it was announced; where the test was when it came
    };
    std::vector<Message> awaited;
    std::vector<Message> unannounced;
};

} // namespace kit
