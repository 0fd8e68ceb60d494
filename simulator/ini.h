// SPDX-License-Identifier: MIT
// An INI file as the simulator reads it. Whatever is wrong in it becomes one message for each line,
// which names file, line, section and key, what was read and what is allowed.
#pragma once

#include "simulator/fields.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <map>
#include <optional>

namespace simulator {

class IniFile {
public:
    /// Reads the whole file; a file that cannot be read is a problem and empty. whatComesOfIt: in
    /// the messages, of a line that means nothing.
    IniFile(QString filePath, QString whatComesOfIt);
    /// The same of a content that is there already. filePath: as the messages name it; empty: they
    /// name neither file nor line.
    IniFile(QString filePath, QString whatComesOfIt, QByteArray content);

    /// The bytes that were read, up to the longest file.
    [[nodiscard]] const QByteArray& content() const { return bytes; }
    /// The sections in their order; one that stands there twice counts where it stands first.
    [[nodiscard]] const QStringList& sections() const { return order; }
    /// Whether nothing stands in the section.
    [[nodiscard]] bool isEmpty(const QString& section) const;
    /// The text of a key, or nothing.
    std::optional<QString> text(const QString& section, const QString& key);
    /// The number of a field, or nothing when it is absent. A value of the wrong kind is a problem
    /// and absent; consequence: what the message says of that.
    std::optional<double> number(const QString& section, const Field& field,
                                 const QString& consequence);
    /// The number of a field, or else its fallback, which the message names as used.
    double numberOr(const QString& section, const Field& field, double fallback);

    /// A mistake in a value. reason: what was read, what is allowed, what happens now.
    void addProblem(const QString& section, const QString& key, const QString& reason);
    /// A section that means nothing; its lines are not told as well.
    void rejectSection(const QString& section, const QString& reason);

    /// Tells of the keys that nobody asked for, when all of a section has been read, and answers
    /// whether the section is free of mistakes.
    bool finish(const QString& section);
    /// The keys that were asked for, as a list for messages.
    [[nodiscard]] QString keysOf(const QString& section) const;
    /// All problems in the order of the lines, one for each. Every section is finished by then.
    QStringList problems();

private:
    struct Entry {
        QString value;
        int line = 0;
        bool asked = false;
    };
    struct Section {
        QString name = {};
        int line = 0;
        bool faulty = false;
        QMap<QString, Entry> entries = {};
        QStringList keys = {}; ///< that were asked for
    };

    void parse();
    void readLine(const QByteArray& content, int line);
    void readHeader(const QString& text, int line);
    void readValue(const QString& key, const QString& value, int line);
    /// A line that means nothing. text: what stands there.
    void reject(int line, const QString& text, const QString& reason);
    /// A value that is not taken.
    void rejectValue(const QString& key, int line, const QString& reason);
    void report(int line, const QString& text);
    [[nodiscard]] Section* sectionNamed(const QString& name);

    QString path;
    QString lineConsequence;
    QByteArray bytes;
    QStringList order;
    std::map<QString, Section> found;
    Section outside;             ///< what stands before the first section
    Section* current = &outside; ///< where a line belongs; null: to a section that is not used
    QMap<int, QString> messages; ///< by line; 0: of the file as a whole
};

/// A text as a message quotes it: shortened when it is long.
QString quoted(const QString& text);

} // namespace simulator
