// SPDX-License-Identifier: MIT
#include "tests/kit/warnings.h"

#include "tests/kit/failure.h"

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

void Warnings::expect(const QString& message)
{
    awaited.append(message);
}

void Warnings::settle()
{
    for (const QString& message : qAsConst(unannounced)) {
        fail(QStringLiteral("unexpected warning: ") + message);
    }
    for (const QString& message : qAsConst(awaited)) {
        fail(QStringLiteral("a warning did not come: ") + message);
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
    if (current->awaited.removeOne(message) || isPlatformRemark(message)) {
        return;
    }
    current->unannounced.append(message);
}

} // namespace kit
