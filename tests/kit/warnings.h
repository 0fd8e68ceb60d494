// SPDX-License-Identifier: MIT
// Watches what Qt has to say: a warning that nobody announced fails the test.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace kit {

class Warnings {
public:
    Warnings();
    ~Warnings();
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;

    /// The next warning with exactly this text is wanted.
    void expect(const QString& message);
    /// Fails the test for each warning that came unannounced or was announced and never came.
    void settle();

private:
    static void receive(QtMsgType type, const QMessageLogContext& context, const QString& message);

    QtMessageHandler previous;
    QStringList awaited;
    QStringList unannounced;
};

} // namespace kit
