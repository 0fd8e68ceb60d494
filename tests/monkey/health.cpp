// SPDX-License-Identifier: MIT
#include "tests/monkey/health.h"

#include "app/mainwindow.h"
#include "tests/kit/widgets.h"
#include "tests/monkey/hostile_sdk.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTimer>
#include <QtGui/QTextDocument>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>

#include <algorithm>
#include <array>

namespace monkey {

namespace {

/// The widgets that show the state of the connection.
constexpr std::array connectionWidgets = {
    "scanDeviceButton",     "selectDeviceComboBox", "connectDeviceButton", "disconnectDeviceButton",
    "resetParamButtonUser", "readParamButtonUser",  "tabWidget",
};

struct ConnectionRow {
    const char* name;
    std::array<bool, connectionWidgets.size()> enabled;
    bool mayBeMonitored;
};

// clang-format off
//                             scan   list   connect  disconnect  reset  read   tabs
constexpr std::array connectionRows = {
    ConnectionRow{"start",     {true,  true,  false,   false,      false, false, false}, false},
    ConnectionRow{"ready",     {true,  true,  true,    false,      false, false, false}, false},
    // A failed temperature ends the monitoring of a connection.
    ConnectionRow{"connected", {false, false, false,   true,       true,  true,  true},  true},
};

/// Everything that the log may say; one pattern for each family of lines.
constexpr std::array logForms = {
    "Set .+ (OK|KO)",
    "Configure .+ (OK|KO)",
    "[^=]+ = .*",
    "(Start|End) .+",
    "ALTERNATIVE SERIAL PORT : ttyUSB\\d|ALTERNATIVE SERIAL PORT : ",
    "No camera connected",
    "NUC applied",
    "Shutter (closed|opened)",
    "Unable to get shutter position",
    "AHC gain limitation read error",
    "BP table reset succeed\\.",
    "Pixel.* correctly (added|removed)\\.",
    "Unable to remove pixel .*\\.",
    "(Backup table|Table) written to .+",
    "Table containing : \\d+ Bad Pixels",
    "Bad pixels found \\d+ < 1024",
    "BPR table .+ correctly written\\.",
};
// clang-format on

bool isKnownLine(const QString& line)
{
    static const QRegularExpression known = [] {
        QStringList forms;
        for (const char* const form : logForms) {
            forms.append(QLatin1String(form));
        }
        return QRegularExpression(
            QRegularExpression::anchoredPattern(forms.join(QLatin1Char('|'))));
    }();
    return known.match(line).hasMatch();
}

template<typename Ranged> QString outside(const Ranged& control)
{
    // Written so that a value that is no number is outside as well.
    if (control.minimum() <= control.value() && control.value() <= control.maximum()) {
        return {};
    }
    return QStringLiteral("%1 shows %2, outside %3 to %4")
        .arg(control.objectName())
        .arg(control.value())
        .arg(control.minimum())
        .arg(control.maximum());
}

} // namespace

Health::Health(MainWindow& watched) : window(watched)
{
    hostile::takeLogged();
    expectedLog = widgets::find<QPlainTextEdit>(window, QStringLiteral("logView"))
                      ->toPlainText()
                      .toStdString();
    connect(widgets::find<QAbstractButton>(window, QStringLiteral("clearLogButton")),
            &QAbstractButton::clicked, this, [this] {
                takeLines();
                expectedLog.clear();
            });
}

QString Health::finding()
{
    for (const QString& found : {connectionFinding(), rangeFinding(), logFinding()}) {
        if (!found.isEmpty()) {
            return found;
        }
    }
    return {};
}

bool Health::connected() const
{
    return widgets::find<QWidget>(window, QStringLiteral("disconnectDeviceButton"))->isEnabled();
}

QString Health::connectionFinding()
{
    std::array<bool, connectionWidgets.size()> enabled{};
    std::transform(connectionWidgets.begin(), connectionWidgets.end(), enabled.begin(),
                   [this](const char* name) {
                       return widgets::find<QWidget>(window, QLatin1String(name))->isEnabled();
                   });
    const auto row =
        std::find_if(connectionRows.begin(), connectionRows.end(),
                     [&](const ConnectionRow& known) { return known.enabled == enabled; });
    if (row == connectionRows.end()) {
        QString shown;
        for (std::size_t index = 0; index < enabled.size(); ++index) {
            shown += QLatin1Char(' ') + QLatin1String(connectionWidgets[index]) +
                     QLatin1String(enabled[index] ? " on" : " off");
        }
        return QStringLiteral("no state of the connection looks like this:") + shown;
    }
    if (widgets::timer(window).isActive() && !row->mayBeMonitored) {
        return QStringLiteral("the monitoring runs in the state \"%1\"")
            .arg(QLatin1String(row->name));
    }
    return {};
}

QString Health::rangeFinding() const
{
    QString found;
    for (const auto* const slider : window.findChildren<QSlider*>()) {
        found += outside(*slider);
    }
    for (const auto* const spinBox : window.findChildren<QSpinBox*>()) {
        found += outside(*spinBox);
    }
    for (const auto* const spinBox : window.findChildren<QDoubleSpinBox*>()) {
        found += outside(*spinBox);
    }
    return found;
}

/// Takes over what was logged since the last time; an unknown line is the result.
QString Health::takeLines()
{
    const std::string lines = hostile::takeLogged();
    expectedLog += lines;
    QStringList texts = QString::fromStdString(lines).split(QLatin1Char('\n'));
    texts.removeLast();
    const auto unknown = std::find_if_not(texts.cbegin(), texts.cend(), isKnownLine);
    return unknown == texts.cend() ? QString()
                                   : QStringLiteral("the log says \"%1\"").arg(*unknown);
}

QString Health::logFinding()
{
    QString found = takeLines();
    if (!found.isEmpty()) {
        return found;
    }
    const auto* const pane = widgets::find<QPlainTextEdit>(window, QStringLiteral("logView"));
    // The document counts the end of its last paragraph as well.
    const auto length = static_cast<std::size_t>(pane->document()->characterCount()) - 1;
    if (length != expectedLog.size()) {
        return QStringLiteral("the log pane holds %1 characters, %2 were logged")
            .arg(length)
            .arg(expectedLog.size());
    }
    // Comparing a long pane takes longer than the event before it.
    constexpr std::size_t shortLog = 2000;
    constexpr int checksBetween = 50;
    if (length > shortLog && ++unread < checksBetween) {
        return {};
    }
    unread = 0;
    return pane->toPlainText().toStdString() == expectedLog
               ? QString()
               : QStringLiteral("the log pane differs from what was logged");
}

} // namespace monkey
