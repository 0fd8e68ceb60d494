// SPDX-License-Identifier: MIT
// Start window, ports, connection, and a first look at every tab.
#include "tour/chapters.h"

#include "tour/adapter.h"
#include "tour/sight.h"

#include <QtGui/QScreen>

namespace tour {

void connectCamera(Operator& user)
{
    user.chapter("Connecting");

    user.step("The tool has started", [&] {
        user.expect(
            "the window is active",
            [] {
                const QWidget* const window = sight::mainWindow();
                return window != nullptr && window->isActiveWindow();
            },
            std::chrono::seconds(20));
        user.expect("the whole window is on the screen", [] {
            const QWidget* const window = sight::mainWindow();
            return window->screen()->geometry().contains(window->geometry());
        });
        user.expectText("selectDeviceComboBox", "");
        user.expectEnabled("connectDeviceButton", false);
        user.expectEnabled("tabWidget", false);
    });

    user.step("Scan while no adapter is plugged in", [&] {
        const Adapter first("ttyUSB0");
        const Adapter second("ttyUSB1");
        user.tell("Pull out both serial adapters");
        first.unplug();
        second.unplug();
        user.click("scanDeviceButton");
        user.answerBox("", "No COM port found!\nPlease, plug a COM port ans scan again.");
        user.expectEnabled("connectDeviceButton", false);
        user.tell("Plug both adapters in");
        first.plug();
        second.plug();
    });

    user.step("Scan the serial ports", [&] {
        user.click("scanDeviceButton");
        user.expectText("selectDeviceComboBox", "ttyUSB0");
        user.expectEnabled("connectDeviceButton", true);
        user.chooseInPicture("selectDeviceComboBox", "ttyUSB1", "The ports that the system lists");
    });

    user.step("Connect to a port without a camera", [&] {
        user.click("connectDeviceButton");
        user.expectLog({"ALTERNATIVE SERIAL PORT : ttyUSB1"});
        user.answerBox("Invalid communication", "Select an other serial port");
        user.expectConnected(false);
    });

    user.step("Connect to the camera", [&] {
        user.choose("selectDeviceComboBox", "ttyUSB0");
        user.click("connectDeviceButton");
        user.expectLog({"ALTERNATIVE SERIAL PORT : ttyUSB0", "Start reading camera parameters"});
        user.expectLogBeginning("Serial number = ");
        user.expectLog({"End reading camera parameters", "Start reading camera expert parameters",
                        "End reading camera expert parameters"});
        user.expectConnected(true);
    });

    user.step("The temperatures are read every second", [&] {
        const QString before = user.read("SensorTempTextEdit");
        user.tell("Wait for the next reading");
        user.expect("another temperature is shown", [&] {
            const QString now = sight::text(QStringLiteral("SensorTempTextEdit"));
            return now.endsWith(QLatin1String(" C")) && now != before;
        });
    });
}

void lookAtTabs(Operator& user)
{
    struct Tab {
        const char* title;
        const char* picture;
    };
    static constexpr Tab tabs[] = {
        {"Image Processing", "tab-1-image-processing"},
        {"LUT", "tab-2-lut"},
        {"Zoom", "tab-3-zoom"},
        {"Edge", "tab-4-edge"},
        {"Bad Pixels", "tab-5-bad-pixels"},
        {"Expert", "tab-6-expert"},
    };
    user.chapter("A look at every tab");
    for (const Tab& tab : tabs) {
        user.step(tab.title, [&] {
            user.showTab(tab.title);
            user.picture("", tab.picture);
        });
    }
}

} // namespace tour
