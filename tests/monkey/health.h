// SPDX-License-Identifier: MIT
// What must hold for the window after every single event.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <string>

class MainWindow;

namespace monkey {

class Health : public QObject {
public:
    /// Watches a window that was just built.
    explicit Health(MainWindow& watched);

    /// What is wrong, or an empty text. Between two calls the timer may not tick by itself.
    QString finding();
    /// Whether the window shows a connection.
    [[nodiscard]] bool connected() const;

private:
    [[nodiscard]] QString connectionFinding();
    [[nodiscard]] QString rangeFinding() const;
    [[nodiscard]] QString logFinding();
    QString takeLines();

    MainWindow& window;
    std::string expectedLog; ///< every record since the pane was cleared
    int unread = 0;          ///< checks since the whole pane was compared
};

} // namespace monkey
