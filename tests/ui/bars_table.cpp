// SPDX-License-Identifier: MIT
#include "mainwindow_table.h"

#include <QPlainTextEdit>
#include <QTabWidget>

using namespace setting;

namespace {

constexpr auto Fixed = QSizePolicy::Fixed;
constexpr auto Minimum = QSizePolicy::Minimum;

/// What the buttons of the three upper rows have in common.
std::vector<Setting> barButton(const char* caption, const char* explanation)
{
    return {text(caption), tip({explanation}), policy(Minimum, Fixed), minimum(150, 40),
            points(10)};
}

std::vector<Setting> infoLabel(const char* caption)
{
    return {text(caption), policy(Fixed, Fixed), minimum(150, 0), centred()};
}

std::vector<Setting> readOnlyLine()
{
    return {property("readOnly", true), property("overwriteMode", true),
            property("verticalScrollBarPolicy", int(Qt::ScrollBarAlwaysOff))};
}

std::vector<Setting> temperatureLine()
{
    return with({readOnlyLine(), policy(Fixed, Fixed), minimum(100, 30), maximum(150, 30),
                 property("horizontalScrollBarPolicy", int(Qt::ScrollBarAlwaysOff))});
}

} // namespace

FormSection barsTable()
{
    return {
        "centralWidget",
        R"(
horizontalLayout_3 QHBoxLayout 6 margins 11 11 11 11
  Main QVBoxLayout 0 constraint SetMinimumSize
    Buttons QVBoxLayout 0
      ScanButtons QHBoxLayout 0 margins 0 5 0 5 constraint SetMinimumSize
        spacer 20x20 Expanding/Minimum
        scanDeviceButton
        spacer 20x20 Expanding/Minimum
        selectDeviceComboBox
        spacer 20x20 Expanding/Minimum
      ConnectButtons QHBoxLayout 0 margins 0 5 0 5 constraint SetMinimumSize
        spacer 20x20 Expanding/Minimum
        connectDeviceButton
        spacer 20x20 Expanding/Minimum
        BaudRateConnectCB
        spacer 20x20 Expanding/Minimum
        disconnectDeviceButton
        spacer 20x20 Expanding/Minimum
      CommandButtons QHBoxLayout 0 margins 0 5 0 5 constraint SetMinimumSize
        horizontalLayout_9 QHBoxLayout 6
        spacer 40x20 Expanding/Minimum
        resetParamButtonUser
        spacer 20x20 Expanding/Minimum
        readParamButtonUser
        spacer 40x20 Expanding/Minimum
    Params QVBoxLayout 0 constraint SetMinimumSize
      tabWidget
    InfoBar QHBoxLayout 0
      spacer 40x20 Expanding/Minimum
      SystemInfos QVBoxLayout 6 margins 0 5 0 5
        spacer 20x40 Minimum/Expanding
        label_2
        BitTextEdit
        spacer 20x40 Minimum/Expanding
        label_6
        FpgaTempTextEdit
        spacer 20x40 Minimum/Expanding
        label_12
        SensorTempTextEdit
        spacer 20x40 Minimum/Expanding
      spacer 20x20 Expanding/Minimum
      Log QVBoxLayout 0
        spacer 20x10 Minimum/Minimum
        logView
        clearLogButton
        spacer 20x10 Minimum/Minimum
      spacer 20x20 Expanding/Minimum
      About QVBoxLayout 0
        spacer 20x10 Minimum/Expanding
        KVLogo
        spacer 20x10 Minimum/Expanding
        HTLogo
        spacer 20x10 Minimum/Expanding
        AboutButton
        spacer 20x10 Minimum/Expanding
)",
        {
            {"QPushButton", "scanDeviceButton",
             with({barButton("Scan Devices", "Scan devices on Com port"),
                   maximum(unlimited, unlimited), leftToRight(), icon("search.png"),
                   iconSize(20, 20)})},
            {"QComboBox",
             "selectDeviceComboBox",
             {tip({"Found devices"}), policy(Minimum, Fixed), minimum(150, 40), points(10)}},
            {"QPushButton", "connectDeviceButton",
             with({barButton("Connect", "Connect to device selected in the list"),
                   icon("connect.png"), iconSize(20, 20)})},
            {"QComboBox",
             "BaudRateConnectCB",
             {policy(Fixed, Fixed), minimum(150, 40), property("currentIndex", 1)},
             {QStringLiteral("9600"), QStringLiteral("115200")}},
            {"QPushButton", "disconnectDeviceButton",
             with({barButton("Disconnect", "Disconnect from actual connected device"),
                   icon("disconnect.png"), iconSize(20, 20)})},
            {"QPushButton", "resetParamButtonUser",
             with({barButton("Reset", "Rest default parameter"), disabled(), icon("reset.png"),
                   iconSize(20, 20)})},
            {"QPushButton", "readParamButtonUser",
             with({barButton("Read", "Read parameters from camera"), disabled(), icon("read.png"),
                   iconSize(19, 20)})},
            {"QTabWidget",
             "tabWidget",
             {enabled(), policy(QSizePolicy::Expanding, QSizePolicy::Maximum), minimum(700, 0),
              points(10), property("tabPosition", int(QTabWidget::North)),
              property("tabShape", int(QTabWidget::Rounded)), property("documentMode", false),
              property("tabBarAutoHide", false)}},

            {"QLabel", "label_2", with({infoLabel("BIT "), disabled(), maximum(100, unlimited)})},
            {"QPlainTextEdit", "BitTextEdit",
             with(
                 {readOnlyLine(), disabled(), policy(Fixed, Fixed, 1), minimum(150, 30),
                  maximum(100, 30),
                  property("sizeAdjustPolicy", int(QPlainTextEdit::AdjustToContentsOnFirstShow))})},
            {"QLabel", "label_6", infoLabel("FPGA temperature")},
            {"QPlainTextEdit", "FpgaTempTextEdit", temperatureLine()},
            {"QLabel", "label_12", infoLabel("Sensor temperature")},
            {"QPlainTextEdit", "SensorTempTextEdit", temperatureLine()},

            {"QPlainTextEdit",
             "logView",
             {tip({"Log messages with camera"}), notAutoFilled(), property("readOnly", true),
              property("verticalScrollBarPolicy", int(Qt::ScrollBarAlwaysOn))}},
            {"QPushButton", "clearLogButton", {text("Clear Log"), minimum(0, 30)}},

            {"QLabel",
             "KVLogo",
             {text(R"(<html><head/><body><p><img src=":picture/OmbrixKV.png"/></p></body></html>)"),
              noTip(), enabled(), notAutoFilled(), property("scaledContents", false)}},
            {"QLabel",
             "HTLogo",
             {text(
                  R"(<html><head/><body><p><img src=":picture/Halvorn Tech.png"/></p></body></html>)"),
              tip({R"(<a href="https://halvorn.example/"><span style="text-decoration: underline; color:#0000ff;">Halvorn Technologies</span></a>)"}),
              leftToRight(), property("scaledContents", false), centred()}},
            {"QPushButton",
             "AboutButton",
             {text("About..."), tip({"About this application, version, more..."}),
              policy(Minimum, Minimum), minimum(0, 40), points(10)}},
        }};
}
