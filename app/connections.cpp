// SPDX-License-Identifier: MIT
// Every signal connection of the window, in the order in which they are made.
#include "app/mainwindow.h"
#include "params/regions.h"
#include "ui_mainwindow.h"

#include <QtCore/QTimer>

void MainWindow::makeSliderConnections()
{
    connect(timer, &QTimer::timeout, this, &MainWindow::monitoringSystem);

    struct SliderRow {
        QSlider* slider;
        const char* changed;
        const char* released;
    };
    const SliderRow rows[] = {
        {ui->gammaSlider, SLOT(GammaUserSliderChanged(int)), SLOT(gammaUserSendCommand())},
        {ui->clheSlider, SLOT(ClheUserSliderChanged(int)), SLOT(clheSendCommand())},
        {ui->sharpeningGainSlider, SLOT(SharpeningUserSliderChanged(int)),
         SLOT(sharpeningSendCommand())},
        {ui->SharpeningTHSlider, SLOT(SharpeningTHSliderChanged(int)),
         SLOT(sharpeningSendCommand())},
        {ui->AhcBlackGainLimSlider, SLOT(AhcBlackGainlimSliderChanged(int)),
         SLOT(ahcGainSendCommand())},
        {ui->AhcWhiteGainLimSlider, SLOT(AhcWhiteGainlimSliderChanged(int)),
         SLOT(ahcGainSendCommand())},
        {ui->TempoFilterSlider, SLOT(TempoFilterSliderChanged(int)),
         SLOT(tempoFilterSendCommand())},
        {ui->gskSlider, SLOT(GSKExpertSliderChanged(int)), SLOT(gskSendCommand())},
        {ui->gfidSlider, SLOT(GFIDExpertSliderChanged(int)), SLOT(gfiSendCommand())},
        {ui->gmsSlider, SLOT(GMSExpertSliderChanged(int)), SLOT(gmsSendCommand())},
        {ui->tintSlider, SLOT(TINTExpertSliderChanged(int)), SLOT(tintSendCommand())},
    };
    for (const SliderRow& row : rows) {
        connect(row.slider, SIGNAL(valueChanged(int)), this, row.changed);
    }
    for (const SliderRow& row : rows) {
        connect(row.slider, SIGNAL(sliderReleased()), this, row.released);
    }
}

void MainWindow::makeEditConnections()
{
    struct EditRow {
        QAbstractSpinBox* box;
        const char* changedSignal;
        const char* changed;
        const char* finished;
    };
    const char* const decimal = SIGNAL(valueChanged(double));
    const char* const integer = SIGNAL(valueChanged(int));
    const EditRow rows[] = {
        {ui->gammaEdit, decimal, SLOT(GammaUserValueChanged(double)), SLOT(gammaUserSendCommand())},
        {ui->clheEdit, decimal, SLOT(ClheUserValueChanged(double)), SLOT(clheSendCommand())},
        {ui->sharpeningGainEdit, decimal, SLOT(SharpeningUserValueChanged(double)),
         SLOT(sharpeningSendCommand())},
        {ui->SharpeningTHEdit, decimal, SLOT(SharpeningTHValueChanged(double)),
         SLOT(sharpeningSendCommand())},
        {ui->AhcBlackGainLimSpin, integer, SLOT(AhcBlackGainLimSpinValueChanged(int)),
         SLOT(ahcGainSendCommand())},
        {ui->AhcWhiteGainLimSpin, integer, SLOT(AhcWhiteGainLimSpinValueChanged(int)),
         SLOT(ahcGainSendCommand())},
        {ui->TempoFilterSpin, integer, SLOT(TempoFiltSpinValueChanged(int)),
         SLOT(tempoFilterSendCommand())},
        {ui->gskEdit, decimal, SLOT(GSKExpertValueChanged(double)), SLOT(gskSendCommand())},
        {ui->gfidEdit, decimal, SLOT(GFIDExpertValueChanged(double)), SLOT(gfiSendCommand())},
        {ui->gmsEdit, decimal, SLOT(GMSExpertValueChanged(double)), SLOT(gmsSendCommand())},
        {ui->tintEdit, decimal, SLOT(TINTExpertValueChanged(double)), SLOT(tintSendCommand())},
    };
    for (const EditRow& row : rows) {
        connect(row.box, row.changedSignal, this, row.changed);
    }

    const auto forward = [this](QSpinBox* box, void (MainWindow::*slot)(int), int region) {
        connect(box, &QSpinBox::editingFinished, this,
                [this, slot, region] { (this->*slot)(region); });
    };
    // Both inclusive regions come before both exclusive ones.
    for (const int region : {0, 2, 1, 3}) {
        const tavrel::Region& row = tavrel::regions.at(static_cast<std::size_t>(region));
        forward(ui->*row.x1, &MainWindow::x1RoiUserValueChanged, region);
        forward(ui->*row.x2, &MainWindow::x2RoiUserValueChanged, region);
        forward(ui->*row.y1, &MainWindow::y1RoiUserValueChanged, region);
        forward(ui->*row.y2, &MainWindow::y2RoiUserValueChanged, region);
    }

    for (const EditRow& row : rows) {
        connect(row.box, SIGNAL(editingFinished()), this, row.finished);
    }
}

void MainWindow::makeControlConnections()
{
    const auto onClick = [this](QPushButton* button, auto handler) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    onClick(ui->resetParamButtonUser, &MainWindow::ResetParamsUser);
    onClick(ui->readParamButtonUser, &MainWindow::readCameraParameters);
    onClick(ui->readParamButtonExpert, &MainWindow::ReadParamsExpert);
    onClick(ui->scanDeviceButton, &MainWindow::scanDevice);
    onClick(ui->connectDeviceButton, &MainWindow::connectDevice);
    onClick(ui->disconnectDeviceButton, &MainWindow::disconnectDevice);
    onClick(ui->PermanentButton, &MainWindow::changePermanentButtonText);
    onClick(ui->AboutButton, &MainWindow::createAboutWindow);
    connect(ui->clearLogButton, &QPushButton::clicked, ui->logView, &QPlainTextEdit::clear);
#define SWITCH(tab, name, word, get, set, button, caption, label, on, off, ok, ko, handler)        \
    onClick(ui->button, &MainWindow::handler);
#include "params/switches.def"
    onClick(ui->userNucRequest, &MainWindow::ApplyNucRequest);
    onClick(ui->autoNucPB, &MainWindow::AutoNucRequest);
    onClick(ui->shutterCtrlPB, &MainWindow::shutterPositionChanged);
    // One click sends the resolution first, then the zoom.
    onClick(ui->configureZoomPB, &MainWindow::onConfigureZoomResolutionClicked);
    onClick(ui->configureZoomPB, &MainWindow::onConfigureZoomClicked);
    onClick(ui->readBPRTableButton, &MainWindow::readBprTable);
    onClick(ui->writeBPRTableButton, &MainWindow::writeBprTable);
    onClick(ui->resetBPRTableButton, &MainWindow::resetBprTable);
    onClick(ui->addBadPixelButton, &MainWindow::addBadPixel);
    onClick(ui->addBadPixelLineButton, &MainWindow::addBadPixelLine);
    onClick(ui->addBadPixelColumnButton, &MainWindow::addBadPixelColumn);
    onClick(ui->removeBadPixelButton, &MainWindow::removeBadPixel);
    onClick(ui->removeBadPixelLineButton, &MainWindow::removeBadPixelLine);
    onClick(ui->removeBadPixelColumnButton, &MainWindow::removeBadPixelColumn);
    onClick(ui->applyBaudrateBP, &MainWindow::changeCameraBaudRate);

    connect(ui->roi1IncEnable, &QCheckBox::stateChanged, this, &MainWindow::roi1IncCheck);
    connect(ui->roi0ExcEnable, &QCheckBox::stateChanged, this, &MainWindow::roi0ExcCheck);
    connect(ui->roi1ExcEnable, &QCheckBox::stateChanged, this, &MainWindow::roi1ExcCheck);

    const auto onIndex = [this](QComboBox* box, void (MainWindow::*handler)()) {
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, handler);
    };
    onIndex(ui->BaudRateConnectCB, &MainWindow::ChangeBaudRate);
    onIndex(ui->VideoOutputCB, &MainWindow::onVideoOutputCBChanged);
    onIndex(ui->frameRateCB, &MainWindow::onFrameRateCBChanged);
    onIndex(ui->contrastTypeEdit, &MainWindow::onContrastTypeEditChanged);
    onIndex(ui->lutColorEdit, &MainWindow::onLutColorEditChanged);
    onIndex(ui->EdgeCorrectionCB, &MainWindow::onEdgeCorrectionCBChanged);
}
