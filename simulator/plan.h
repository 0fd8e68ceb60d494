// SPDX-License-Identifier: MIT
// The plan of faults: which operations fail, when and how. Read from an INI file with one section
// per operation or group of operations, and read again whenever the file changes. A section with a
// mistake in it does nothing.
#pragma once

#include "simulator/operations.h"
#include "simulator/random.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <bitset>
#include <optional>
#include <utility>
#include <vector>

namespace simulator {

class IniFile;

/// What the plan wants of one call.
struct Verdict {
    bool planned = false;        ///< a rule of the plan applies to this call
    bool carryOut = true;        ///< do what was asked for
    bool hangUp = false;         ///< from this call on, no answer at all
    qint64 delay = 0;            ///< milliseconds before anything else happens
    std::optional<qint64> value; ///< to be answered instead
    QString word;                ///< the same for the operations that do not answer a number
};

class Plan {
public:
    /// Reads the plan for the first time; an empty path means no plan.
    void setFile(const QString& path);
    /// False while there is no such file: nothing fails then, and the file may come later.
    [[nodiscard]] bool isThere() const { return QFileInfo::exists(file); }
    /// Reads the plan again when the file has changed, and says whether it did.
    bool refresh();
    /// Takes the rules from a file that has been read.
    void read(IniFile& ini);
    /// The problems of the last reading, one line each.
    [[nodiscard]] const QStringList& problems() const { return found; }
    /// Grows when the cameras' power is to be switched off and on.
    [[nodiscard]] qint64 powerCycles() const { return cycles; }

    /// Counts the call and answers what is to become of it.
    Verdict judge(Operation operation);

private:
    struct Rule {
        QString pattern;                        ///< name of an operation; * stands for any letters
        std::bitset<operationCount> operations; ///< those that the pattern matches
        std::vector<std::pair<qint64, qint64>> calls; ///< first and last, counted from 1
        double probability = 1;
        Random random{1};
        Verdict verdict;
        qint64 count = 0;
    };

    /// Nothing when there is a mistake in the section.
    static std::optional<Rule> readRule(IniFile& ini, const QString& pattern);
    static void takeValue(IniFile& ini, const QString& text, Rule& rule);

    QString file;
    std::optional<std::pair<QDateTime, qint64>> lastState; ///< time and size of the file when read
    qint64 cycles = 0;
    std::vector<Rule> rules; ///< the most exact pattern first
    QStringList found;
};

} // namespace simulator
