// SPDX-License-Identifier: MIT
#include "tests/simulator/program.h"

#include "tests/simulator/scene.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>

namespace program {

Output run(const QStringList& variables, const QStringList& arguments)
{
    QProcess process;
    QStringList environment = QProcess::systemEnvironment();
    for (const QString& line : QStringList(environment)) {
        if (line.startsWith(QStringLiteral("TAVREL_SIMULATOR_"))) {
            environment.removeAll(line);
        }
    }
    process.setEnvironment(environment + variables);
    process.start(QStringLiteral(TAVREL_PROBE), arguments);
    Output output;
    if (process.waitForFinished()) {
        output = {process.exitCode(), scene::linesOf(process.readAllStandardOutput()),
                  scene::linesOf(process.readAllStandardError())};
    }
    return output;
}

QStringList withoutTime(QStringList lines)
{
    static const QRegularExpression head(
        QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} "
                       "\\[simulated SDK\\] "));
    for (QString& line : lines) {
        if (!head.match(line).hasMatch()) {
            line.prepend(QStringLiteral("without time and mark: "));
        }
        line.remove(head);
    }
    return lines;
}

} // namespace program
