// SPDX-License-Identifier: MIT
#include "tests/kit/warnings.h"

#include <algorithm>
#include <array>

namespace kit {

namespace {

Warnings* current = nullptr;

/// What the platform says about itself; no fault of the tool's. First the plugin without a display,
/// then Windows' own where Wine stands for Windows, with the number of a window or an error behind.
bool isPlatformRemark(const QString& message)
{
    static constexpr std::array remarks = {
        "This plugin does not support propagateSizeHints()",
        "This plugin does not support raise()",
        "This plugin does not support grabbing the keyboard",
        "EnableNonClientDpiScaling() failed for HWND",
        "QPixmap::fromWinHICON(), failed to GetIconInfo()",
    };
    return std::any_of(remarks.begin(), remarks.end(), [&](const char* remark) {
        return message.startsWith(QLatin1String(remark));
    });
}

} // namespace

Warnings::Warnings() : previous(qInstallMessageHandler(&Warnings::receive))
{
    current = this;
}

Warnings::~Warnings()
{
    current = nullptr;
    qInstallMessageHandler(previous);
}

void Warnings::expect(const QString& message, const Place& place)
{
    awaited.push_back({message, place});
}

void Warnings::settle()
{
    for (const Message& message : unannounced) {
        fail(QStringLiteral("unexpected warning: ") + message.text, message.place);
    }
    for (const Message& message : awaited) {
        fail(QStringLiteral("a warning did not come: ") + message.text, message.place);
    }
    unannounced.clear();
    awaited.clear();
}

void Warnings::receive(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const bool isWarning = type == QtWarningMsg || type == QtCriticalMsg;
    if (current == nullptr || !isWarning) {
        if (current != nullptr) {
            current->previous(type, context, message);
        }
        return;
    }
    auto& awaited = current->awaited;
    const auto announced =
        std::find_if(awaited.begin(), awaited.end(),
                     [&](const Message& expected) { return expected.text == message; });
    if (announced != awaited.end()) {
        awaited.erase(announced);
    } else if (!isPlatformRemark(message)) {
        current->unannounced.push_back({message, calledFrom()});
    }
}

} // namespace kit
