// SPDX-License-Identifier: MIT
// Feeds arbitrary files to the readers of the simulated camera's settings and of its plan of faults
// and checks what must hold for every one of them.
#include "simulator/settings.h"
#include "simulator/ini.h"
#include "simulator/plan.h"
#include "tests/fuzz/require.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <cstdint>
#include <tuple>
#include <vector>

using namespace simulator;

namespace {

const QString name = QStringLiteral("input.ini");

/// The lines that the problems name.
std::vector<int> linesOf(const QStringList& problems)
{
    static const QRegularExpression head(QStringLiteral("^input\\.ini:(\\d+): ."));
    std::vector<int> lines;
    for (const QString& problem : problems) {
        const QRegularExpressionMatch match = head.match(problem);
        require(match.hasMatch(), "a problem names file and line");
        require(!problem.contains(QLatin1Char('\n')), "a problem is one line");
        lines.push_back(match.captured(1).toInt());
        require(lines.size() == 1 || lines[lines.size() - 2] < lines.back(),
                "there is one problem for a line, in the order of the lines");
    }
    return lines;
}

using Course = std::vector<std::tuple<std::size_t, bool, bool, bool, qint64, std::optional<qint64>,
                                      QString, std::vector<double>>>;

/// What the plan does to the first calls of every operation; the problems that were told.
Course courseOf(const QByteArray& content, QStringList& problems)
{
    IniFile ini(name, QStringLiteral("nothing"), content);
    Plan plan;
    plan.read(ini);
    problems = plan.problems();
    Course course;
    const QString port = QStringLiteral("ttyUSB0");
    for (std::size_t call = 0; call < 3 * operationCount; ++call) {
        const CallOutcome outcome =
            plan.decide({static_cast<Operation>(call % operationCount), 20417, port});
        if (outcome.planned) {
            course.emplace_back(call, outcome.carryOut, outcome.hangUp, outcome.lost, outcome.delay,
                                outcome.value, outcome.word, outcome.record);
        } else {
            require(outcome.carryOut && !outcome.hangUp && !outcome.lost && !outcome.value,
                    "what no rule hits is carried out");
        }
    }
    course.emplace_back(0, false, false, false, plan.powerCycles(), std::nullopt, QString(),
                        std::vector<double>());
    return course;
}

/// The content without the sections in which a problem was told, and without byte order marks.
QByteArray without(const std::vector<int>& wrongLines, const QByteArray& content)
{
    int marks = 0;
    while (content.mid(marks).startsWith("\xEF\xBB\xBF")) {
        marks += 3;
    }
    const QList<QByteArray> lines = content.mid(marks).split('\n');
    std::vector<int> sections; // number of the section of every line; 0: before the first
    for (const QByteArray& line : lines) {
        const bool header = QString::fromUtf8(line).trimmed().startsWith(QLatin1Char('['));
        sections.push_back((sections.empty() ? 0 : sections.back()) + (header ? 1 : 0));
    }
    QSet<int> wrong;
    for (const int line : wrongLines) {
        if (marks == 0 || line > 1) {
            wrong.insert(sections[static_cast<std::size_t>(line) - 1]);
        }
    }
    QByteArray kept;
    for (int line = 0; line < lines.size(); ++line) {
        if (!wrong.contains(sections[static_cast<std::size_t>(line)])) {
            kept += lines.at(line);
        }
        kept += '\n';
    }
    return kept;
}

/// A wrong plan does what is left of it when every section with a mistake is taken out, and no
/// more.
void readPlan(QByteArray content)
{
    QStringList problems;
    const Course course = courseOf(content, problems);
    // A problem may hide another one of its line.
    for (int round = 0; round < 10 && !problems.isEmpty(); ++round) {
        content = without(linesOf(problems), content);
        require(courseOf(content, problems) == course, "a section with a mistake does nothing");
    }
    require(problems.isEmpty(), "without those sections nothing is wrong");
}

void readSettings(const QByteArray& content)
{
    static const Settings initial; // its table of bad pixels takes longer than the reading
    IniFile ini(name, QStringLiteral("nothing"), content);
    Settings settings = initial;
    settings.file = QStringLiteral("/nowhere/input.ini");
    settings.read(ini);
    linesOf(settings.problems);
    require(!settings.cameras.empty(), "there is a camera");
    QSet<QString> ports;
    QSet<qint64> serials;
    for (const CameraSettings& camera : settings.cameras) {
        QSet<QString> own;
        for (const QString& port : camera.ports) {
            own.insert(port);
        }
        require(!ports.intersects(own), "no two cameras are on a port");
        ports.unite(own);
        serials.insert(
            static_cast<qint64>(camera.values[static_cast<std::size_t>(Parameter::serialNumber)]));
        for (const ParameterFacts& facts : parameterTable()) {
            const double value = camera.values[static_cast<std::size_t>(facts.parameter)];
            require(parseField(facts.field.kind, formatField(facts.field.kind, value)) == value,
                    "a value is one of its kind");
        }
        require(camera.table.size() == 8192, "a table has 8192 bytes");
    }
    require(serials.size() == static_cast<int>(settings.cameras.size()),
            "no two cameras have the same number");
    const auto& members = settings.configuration.members;
    for (std::size_t row = 4; row < memberCount; row += 2) {
        require(members[row] <= members[row + 1], "no minimum is above its maximum");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<int>(size));
    readPlan(content);
    readSettings(content);
    return 0;
}
