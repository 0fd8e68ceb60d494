#include "tour/chapters.h"

#include "tour/sight.h"

namespace tour {

void connectCamera(Operator& user)
{
    user.chapter(QStringLiteral("Connecting"));
    user.step(QStringLiteral("The tool has started"), [&] {
        user.expect(
            QStringLiteral("the window is active"),
            [] {
                const QWidget* const window = sight::mainWindow();
                return window != nullptr && window->isActiveWindow();
            },
            std::chrono::seconds(20));
        user.expectText(QStringLiteral("selectDeviceComboBox"), {});
        user.expectEnabled(QStringLiteral("connectDeviceButton"), false);
        user.expectEnabled(QStringLiteral("tabWidget"), false);
    });

    user.step(QStringLiteral("Scan the serial ports"), [&] {
        user.click(QStringLiteral("scanDeviceButton"));
        user.expectText(QStringLiteral("selectDeviceComboBox"), QStringLiteral("ttyUSB0"));
        user.expectEnabled(QStringLiteral("connectDeviceButton"), true);
    });

    user.step(QStringLiteral("Connect to the camera"), [&] {
        user.click(QStringLiteral("connectDeviceButton"));
        user.expectLog({QStringLiteral("ALTERNATIVE SERIAL PORT : ttyUSB0"),
                        QStringLiteral("Start reading camera parameters"),
                        QStringLiteral("End reading camera parameters")});
        user.expectConnected(true);
    });
}

void lookAtTabs(Operator& user)
{
    user.chapter(QStringLiteral("A look at every tab"));
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
    for (const Tab& tab : tabs) {
        const QString title = QLatin1String(tab.title);
        user.step(QStringLiteral("Look at the tab “%1”").arg(title), [&] {
            user.showTab(title);
            user.picture({}, QLatin1String(tab.picture));
        });
    }
}

} // namespace tour
