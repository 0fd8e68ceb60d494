// SPDX-License-Identifier: MIT
// The window that holds all state and every handler of the tool. Each folder implements the members
// of its own concern: app/ the window and its log, link/ ports and connection, params/ image and
// expert parameters, bpr/ the bad pixel table.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <QtCore/QDir>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtSerialPort/QSerialPortInfo>
#include <QtWidgets/QMainWindow>

#include <cstdint>
#include <string>

class QTimer;
class Ui_MainWindow;

namespace tavrel {
struct Coordinate;
struct ExpertValue;
struct TableEdit;
struct SwitchButton;
struct Value;
enum class Group;

namespace bpr {
struct Refusal;
} // namespace bpr
} // namespace tavrel

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    // The order of the slots is the order of the class's slot table; their irregular spelling is
    // kept, because slots are reached by name.
public Q_SLOTS:
    /// Puts the SDK's defaults into the widgets, then applies them.
    void ResetParamsUser();
    /// Sends every user parameter as the widgets stand, then has the SDK save its configuration.
    void ApplyParamsUser();
    /// Sends the expert values and the baud rate; without a camera, stores the values in the SDK
    /// configuration. No control triggers it; it is reached by name.
    void ApplyParamsExpert();
    /// Fills the Expert tab from the camera.
    void ReadParamsExpert();
    /// One NUC, asked for by the operator.
    void ApplyNucRequest();

    // Spin box to slider.
    void GammaUserValueChanged(double value);
    void ClheUserValueChanged(double value);
    void SharpeningUserValueChanged(double value);
    void SharpeningTHValueChanged(double value);
    void GSKExpertValueChanged(double value);
    void GFIDExpertValueChanged(double value);
    void GMSExpertValueChanged(double value);
    void TINTExpertValueChanged(double value);
    void AhcBlackGainLimSpinValueChanged(int value);
    void AhcWhiteGainLimSpinValueChanged(int value);
    void TempoFiltSpinValueChanged(int value);

    // Slider to spin box.
    void GammaUserSliderChanged(int value);
    void ClheUserSliderChanged(int value);
    void SharpeningUserSliderChanged(int value);
    void SharpeningTHSliderChanged(int value);
    void GSKExpertSliderChanged(int value);
    void GFIDExpertSliderChanged(int value);
    void GMSExpertSliderChanged(int value);
    void TINTExpertSliderChanged(int value);
    void AhcBlackGainlimSliderChanged(int value);
    void AhcWhiteGainlimSliderChanged(int value);
    void TempoFilterSliderChanged(int value);

    // Spin box value to camera; nothing without a camera.
    void gammaUserSendCommand();
    void clheSendCommand();
    void sharpeningSendCommand();
    void ahcGainSendCommand();
    void tempoFilterSendCommand();
    void gskSendCommand();
    void gfiSendCommand();
    void gmsSendCommand();
    void tintSendCommand();

    void bprControlChanged();
    void offsetControlChanged();
    void gainControlChanged();
    void shutterPositionChanged();
    /// One NUC of the automatic routine; blocks for 1600 ms, then reads the shutter back.
    void AutoNucRequest();
    void nucControlRequest();
    void verticalFlipChanged();
    /// Sends the camera's own baud rate.
    void changeCameraBaudRate();
    /// Refreshes both temperature boxes; a failed read stops the monitoring.
    void getTemperature();
    /// One tick of the monitoring: is the port still there, and how warm is the camera?
    void monitoringSystem();
    void roi1IncCheck();
    void roi0ExcCheck();
    void roi1ExcCheck();

    // region: 0 ROI0 inclusive, 1 ROI0 exclusive, 2 ROI1 inclusive, 3 ROI1 exclusive.
    void x1RoiUserValueChanged(int region);
    void x2RoiUserValueChanged(int region);
    void y1RoiUserValueChanged(int region);
    void y2RoiUserValueChanged(int region);

    void scanDevice();
    void connectDevice();
    void disconnectDevice();
    /// Tells the SDK the rate of the next link.
    void ChangeBaudRate();
    void createAboutWindow();
    void changePermanentButtonText();

protected:
    /// Looks after colours and sizes when the desktop hands out others.
    bool event(QEvent* event) override;
    /// Keeps the wheel from lists that it only passes.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // app/
    void makeSliderConnections();
    void makeEditConnections();
    void makeControlConnections();
    void removeExpertTab();
    void createOutputDirectories();
    /// Writes one line to the log pane and one record to the SDK's log.
    void appendLog(std::string line);
    /// Stores the result of a camera operation and logs one of the two texts.
    void reportResult(ombrix_sdk::Flag result, const std::string& ok, const std::string& ko);
    /// Stores the result of a camera operation and logs the command with OK or KO.
    void reportResult(ombrix_sdk::Flag result, const std::string& command);

    // link/
    /// Opens the link and the camera on a port; false when the operator was told why not.
    bool openCameraLink(std::string port);
    void setupExpertSliders();
    void showNotConnected();
    ombrix_sdk::Flag sendCameraBaudRate();
    /// Whether a command may be sent: there is a camera, and it is not being closed.
    [[nodiscard]] bool mayCommand() const { return camera != nullptr && !disconnecting; }

    // params/
    /// Shows the camera's whole user state; false when the camera did not answer.
    bool readCameraParameters();
    void readIdentity(std::uint32_t versions);
    void readSwitch(const tavrel::SwitchButton& row);
    /// Shows switches and values that belong together.
    void readGroup(tavrel::Group group);
    void readVideo();
    void readRegions();
    void readLut();
    void readZoom();
    void readEdgeCorrection();
    void readShutterPosition();
    void setSwitch(const tavrel::SwitchButton& row);
    // The handlers of the switches that are no slots.
#define SWITCH(group, name, word, get, set, button, caption, label, on, off, ok, ko, handler)      \
    void handler();
#define SLOT_SWITCH(...)
#include "params/switches.def"
    /// Sends what the spin box of a value shows.
    void sendValue(const tavrel::Value& value, double number);
    void onVideoOutputCBChanged();
    void onFrameRateCBChanged();
    void onConfigureZoomResolutionClicked();
    void onConfigureZoomClicked();
    void onContrastTypeEditChanged();
    void onLutColorEditChanged();
    void onEdgeCorrectionCBChanged();
    void sendCoordinate(const tavrel::Coordinate& coordinate, int region);
    void enableRegion(int region);
    void requestNuc(bool automatic);
    void sendExpertValue(const tavrel::ExpertValue& value);

    // bpr/
    void readBprTable();
    void writeBprTable();
    void resetBprTable();
    void addBadPixel();
    void addBadPixelLine();
    void addBadPixelColumn();
    void removeBadPixel();
    void removeBadPixelLine();
    void removeBadPixelColumn();
    void editTable(const tavrel::TableEdit& edit);
    /// Tells the operator in a box why an operation has ended.
    void showRefusal(const tavrel::bpr::Refusal& refusal);

    std::uint8_t lastResult = 0; ///< result of the latest camera operation, 0 is failure
    Ui_MainWindow* ui;
    ombrix_sdk::ICamera* camera = nullptr; ///< null until the first connection
    ombrix_sdk::ISerialLink* link = nullptr;
    std::string portName;    ///< port of the current link
    QTimer* timer = nullptr; ///< monitoring, 1000 ms while connected
    QDir outputDir;
    QSerialPortInfo* portInfo = nullptr;
    QList<QSerialPortInfo> availablePorts;
    QString selectedPort;
    /// Handed to the camera's connect; never deleted, because the SDK may keep it.
    struct ConnectionContext {};
    ConnectionContext* connectionContext = nullptr;
    bool disconnecting = false;    ///< the connection is being taken down right now
    unsigned endedConnections = 0; ///< for handlers that wait under a box, see ConnectionWatch
};
