// SPDX-License-Identifier: MIT
// The plan of faults: which operations fail, when and how. Read from an INI file with one section
// per operation or group of operations, and read again whenever the file changes. A section with a
// mistake in it does nothing.
#pragma once

#include "simulator/operations.h"
#include "simulator/random.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace simulator {

class IniFile;

/// A call, as far as rules look at it.
struct Call {
    Operation operation;
    std::optional<std::uint32_t> camera = {}; ///< its serial number; nothing: there is none
    QStringView port = {};                    ///< by which it is reached; empty: by none
    std::array<qint64, 5> arguments = {};     ///< those that are numbers, at their places
};

/// What the plan wants of one call.
struct CallOutcome {
    bool planned = false;        ///< a rule of the plan applies to this call
    bool carryOut = true;        ///< do what was asked for
    bool hangUp = false;         ///< from this call on, no answer at all
    int fault = 0;               ///< number of the fault that wants it; 0: the plan does
    bool lost = false;           ///< no answer, as long as the rule is there
    qint64 delay = 0;            ///< milliseconds before anything else happens
    std::optional<qint64> value; ///< to be answered instead
    QString word;                ///< the same for the operations that do not answer a number
    std::vector<double> record;  ///< numbers of the fields to be filled in; empty: as usual
    QByteArray table;            ///< the table region to be read; empty: as usual
};

class Plan {
public:
    /// Reads the plan for the first time; an empty path means no plan.
    void setFile(const QString& path);
    /// Whether there is a plan at all, its file there or not.
    [[nodiscard]] bool isOn() const { return !file.isEmpty(); }
    /// False while there is no such file: nothing fails then, and the file may come later.
    [[nodiscard]] bool isThere() const { return QFileInfo::exists(file); }
    /// Reads the plan again when the file has changed, and says whether it did.
    bool refresh();
    /// Takes the rules from a file that has been read.
    void read(IniFile& ini);
    /// Adds the rules of a text that has been read, each in the place of the one of the same
    /// section, or none of them when there is a mistake in it. Returns its problems.
    QStringList put(IniFile& ini);
    /// Takes the rule of a section away; false when there is none.
    bool lift(const QString& section);
    /// Whether the rule of this number has not been lifted or replaced since it was put.
    [[nodiscard]] bool hasFault(int number) const;
    /// The sections of the rules that there are.
    [[nodiscard]] QStringList sections() const;
    [[nodiscard]] bool isEmpty() const { return rules.empty(); }
    /// The problems of the last reading, one line each.
    [[nodiscard]] const QStringList& problems() const { return found; }
    /// Grows when the cameras' power is to be switched off and on.
    [[nodiscard]] qint64 powerCycles() const { return cycles; }

    /// Counts the call and answers what is to become of it: that of the first rule that hits it
    /// among the most exact ones.
    CallOutcome decide(const Call& call);

private:
    using Ranges = std::vector<std::pair<qint64, qint64>>; ///< first and last of each

    /// What an argument has to be: its place depends on the operation.
    struct Condition {
        QString argument;
        Ranges values;
    };

    struct Rule {
        QString section;                        ///< as the file has it
        QString pattern;                        ///< name of an operation; * stands for any letters
        std::bitset<operationCount> operations; ///< those that the pattern matches
        std::optional<std::uint32_t> camera;    ///< only calls of this one
        std::optional<QString> port;            ///< only calls by this one
        std::vector<Condition> where;           ///< only calls with these arguments
        Ranges calls;                           ///< counted from 1
        double probability = 1;
        Random random{1};
        CallOutcome outcome;
        std::tuple<bool, bool, qint64, std::size_t> exactness; ///< as sortRules says
        qint64 count = 0;

        [[nodiscard]] bool isGroup() const { return pattern.contains(QLatin1Char('*')); }
    };

    static bool isFor(const Rule& rule, const Call& call);
    /// Nothing when there is a mistake in the section.
    std::optional<Rule> readRule(IniFile& ini, const QString& section) const;
    static void readScope(IniFile& ini, const QString& section, Rule& rule);
    static void readWhere(IniFile& ini, const QString& section, Rule& rule);
    static void readValue(IniFile& ini, const QString& section, Rule& rule);
    static void readRecord(IniFile& ini, const QString& section, Rule& rule);
    void readTable(IniFile& ini, const QString& section, Rule& rule) const;
    /// Puts the more exact rules first; those that are equally exact stay as the file has them.
    void sortRules();

    QString file;
    // Of the file when it was read: time and size, content, whether the time would tell a change.
    std::optional<std::pair<QDateTime, qint64>> lastState;
    QByteArray content;
    bool isSettled = false;
    int faultsPut = 0; ///< since the start: a number is given once
    qint64 cycles = 0;
    std::vector<Rule> rules; ///< the most exact pattern first
    QStringList found;
};

} // namespace simulator
