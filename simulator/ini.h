// SPDX-License-Identifier: MIT
// An INI file as the simulator reads it: every value that cannot be used and every key that means
// nothing becomes a line that names file, key and reason.
#pragma once

#include "simulator/fields.h"

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace simulator {

class IniFile {
public:
    /// Reads the whole file; a file that cannot be read is a problem and empty.
    explicit IniFile(QString filePath);

    /// The sections in which a value stands, sorted.
    [[nodiscard]] QStringList sections() const;
    /// The text of a key, or nothing. Lists keep their commas.
    std::optional<QString> text(const QString& section, const QString& key);
    /// The number of a field, or nothing when it is absent. A value of the wrong kind is a problem
    /// and absent; fallback is what the problem names as used instead.
    std::optional<double> number(const QString& section, const Field& field, double fallback);
    /// The number of a field, or its fallback.
    double numberOr(const QString& section, const Field& field, double fallback)
    {
        return number(section, field, fallback).value_or(fallback);
    }

    void addProblem(const QString& section, const QString& key, const QString& reason);
    /// All problems, with the keys that nobody asked for. To be called last.
    QStringList problems();

private:
    /// Takes in one line without the blanks around it; section is the one in which it stands.
    void readLine(const QString& line, int number, QString& section);

    QString path;
    QHash<QString, QString> values; ///< by "section/key"; a value that was asked for is gone
    QStringList found;
};

} // namespace simulator
