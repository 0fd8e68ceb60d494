// SPDX-License-Identifier: MIT
#include "ctl/program.h"

#include "app/platform.h"
#include "ctl/tasks.h"

#include <QtCore/QtGlobal>

namespace tavrel::ctl {

namespace {

bool wantsColours()
{
    return platform::isTerminal(platform::Stream::Output) && !qEnvironmentVariableIsSet("NO_COLOR");
}

} // namespace

int runProgram(int argc, char** argv)
{
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
        complain(failure.message);
        if (request.json) {
            Answer answer;
            answer.json = {{QStringLiteral("error"), failure.message},
                           {QStringLiteral("status"), static_cast<int>(failure.status)}};
            try {
                write(answer.text(true, false));
            } catch (const Failure&) {
                // Told already that nobody reads.
                return static_cast<int>(failure.status);
            }
        }
        return static_cast<int>(failure.status);
    }
}

} // namespace tavrel::ctl
