// SPDX-License-Identifier: MIT
#include "ctl/program.h"

#include "app/platform.h"
#include "ctl/completion.h"
#include "ctl/tasks.h"

#include <QtCore/QtGlobal>

#include <cstdio>
#include <optional>

namespace tavrel::ctl {

namespace {

bool wantsColours()
{
    return platform::isTerminal(platform::Stream::Output) && !qEnvironmentVariableIsSet("NO_COLOR");
}

/// Questions of the shell and of whoever makes the manual page; no words of a user.
std::optional<int> answerOwnQuestion(int argc, char** argv)
{
    const QLatin1String question(argc > 1 ? argv[1] : "");
    QString text;
    if (question == QLatin1String("--complete")) {
        QStringList words;
        for (int index = 2; index < argc; ++index) {
            words.append(QString::fromLocal8Bit(argv[index]));
        }
        text = completions(words).join(QLatin1Char('\n')) + QLatin1Char('\n');
    } else if (question == QLatin1String("--manual")) {
        text = manualText();
    } else {
        return std::nullopt;
    }
    std::fputs(text.toLocal8Bit().constData(), stdout);
    return std::fflush(stdout);
}

} // namespace

int runProgram(int argc, char** argv)
{
    if (const auto status = answerOwnQuestion(argc, argv)) {
        return *status;
    }
    platform::takeInterruptions();
    Request request;
    try {
        std::variant<Request, int> asked = requestOf(argc, argv);
        if (const int* const status = std::get_if<int>(&asked)) {
            return *status;
        }
        request = std::get<Request>(std::move(asked));
        Answer answer;
        const Status status = perform(request, answer);
        write(answer.text(request.json, wantsColours()));
        return static_cast<int>(status);
    } catch (const Failure& failure) {
        complain(failure, request.json);
        return static_cast<int>(failure.status);
    }
}

} // namespace tavrel::ctl
