// SPDX-License-Identifier: MIT
#include "ctl/program.h"

#include "app/platform.h"
#include "ctl/completion.h"
#include "ctl/tasks.h"

#include <QtCore/QtGlobal>

#include <optional>

namespace tavrel::ctl {

namespace {

bool wantsColours()
{
    return platform::isTerminal(platform::Stream::Output) && !qEnvironmentVariableIsSet("NO_COLOR");
}

/// Questions of the shell and of whoever makes the manual page; no words of a user.
std::optional<QString> answerToOwnQuestion(int argc, char** argv)
{
    const QLatin1String question(argc > 1 ? argv[1] : "");
    if (question == QLatin1String("--complete")) {
        QStringList words;
        for (int index = 2; index < argc; ++index) {
            words.append(QString::fromLocal8Bit(argv[index]));
        }
        return completions(words).join(QLatin1Char('\n')) + QLatin1Char('\n');
    }
    if (question == QLatin1String("--manual")) {
        return manualText();
    }
    return std::nullopt;
}

} // namespace

int runProgram(int argc, char** argv)
{
    platform::holdStandardStreams();
    platform::takeInterruptions();
    try {
        if (const auto text = answerToOwnQuestion(argc, argv)) {
            write(text->toLocal8Bit());
            return static_cast<int>(Status::Done);
        }
        const std::variant<Request, QByteArray> asked = requestOf(argc, argv);
        if (const auto* const text = std::get_if<QByteArray>(&asked)) {
            write(*text);
            return static_cast<int>(Status::Done);
        }
        const auto& request = std::get<Request>(asked);
        Answer answer;
        const Status status = perform(request, answer);
        write(answer.text(request.json, wantsColours()));
        return static_cast<int>(status);
    } catch (const Failure& failure) {
        complain(failure, asksForJson(argc, argv));
        return static_cast<int>(failure.status);
    }
}

} // namespace tavrel::ctl
