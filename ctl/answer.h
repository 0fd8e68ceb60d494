// SPDX-License-Identifier: MIT
// What the program says on standard output: text for people, or one JSON document.
#pragma once

#include "ctl/failure.h"
#include "params/parameters.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

namespace tavrel::ctl {

/// A text with what would act on a terminal, instead of being seen there, written as "\u001b".
QString printable(const QString& text);

class Answer {
public:
    QJsonObject json;

    void line(const QString& text) { lines.append(printable(text)); }

    /// Rows whose columns stand below each other.
    void table(const std::vector<QStringList>& rows);

    /// The whole answer; colours stand for what needs a look, if wanted.
    [[nodiscard]] QByteArray text(bool asJson, bool coloured) const;

private:
    QStringList lines;
};

/// A value as JSON has it: a number, true or false, or the name of a choice.
QJsonValue jsonOf(const Parameter& parameter, const std::optional<double>& value);

/// Writes bytes to standard output; throws when nobody takes them.
void write(const QByteArray& bytes);

/// A line on standard error that says what is being done, until the next one or the end of it.
void showProgress(const QString& what);
/// Erases that line where one stands; needed before anything else is written there.
void endProgress();

/// Writes a line to standard error, or several.
void complain(const QString& text);

/// Says why the program ends: on standard error, and as the answer where that is a document.
void complain(const Failure& failure, bool asJson);

} // namespace tavrel::ctl
