// SPDX-License-Identifier: MIT
// Every signal connection of the window, in the order in which they are made.
#include "app/mainwindow.h"
#include "params/mirroredpair.h"
#include "params/regions.h"
#include "params/values.h"
#include "ui_mainwindow.h"

#include <QtCore/QTimer>

void MainWindow::makeSliderConnections()
{
    connect(timer, &QTimer::timeout, this, &MainWindow::monitoringSystem);

#define SLOT_PAIR(name, Number, slider, spinBox, scale, moved, changed, send)                      \
    connect(ui->slider, SIGNAL(valueChanged(int)), this, SLOT(moved(int)));
#define PAIR(name, Number, slider, spinBox, scale)                                                 \
    connect(ui->slider, &QSlider::valueChanged, this,                                              \
            [this](int step) { mirrorToSpinBox(*ui, tavrel::pair::name, step); });
#include "params/values.def"
#define SLOT_PAIR(name, Number, slider, spinBox, scale, moved, changed, send)                      \
    connect(ui->slider, SIGNAL(sliderReleased()), this, SLOT(send()));
#define PAIR(name, Number, slider, spinBox, scale)                                                 \
    connect(ui->slider, &QSlider::sliderReleased, this,                                            \
            [this] { sendValue(tavrel::value::name, ui->spinBox->value()); });
#include "params/values.def"
}

void MainWindow::makeEditConnections()
{
#define SLOT_PAIR(name, Number, slider, spinBox, scale, moved, changed, send)                      \
    connect(ui->spinBox, SIGNAL(valueChanged(Number)), this, SLOT(changed(Number)));
#define PAIR(name, Number, slider, spinBox, scale)                                                 \
    connect(ui->spinBox, qOverload<Number>(&tavrel::MirroredPair<Number>::SpinBox::valueChanged),  \
            this, [this](Number number) { mirrorToSlider(*ui, tavrel::pair::name, number); });
#include "params/values.def"

    const auto forward = [this](QSpinBox* spinBox, void (MainWindow::*slot)(int), int region) {
        connect(spinBox, &QSpinBox::editingFinished, this,
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

#define SLOT_PAIR(name, Number, slider, spinBox, scale, moved, changed, send)                      \
    connect(ui->spinBox, SIGNAL(editingFinished()), this, SLOT(send()));
#define PAIR(name, Number, slider, spinBox, scale)                                                 \
    connect(ui->spinBox, &QAbstractSpinBox::editingFinished, this,                                 \
            [this] { sendValue(tavrel::value::name, ui->spinBox->value()); });
#include "params/values.def"
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
#define SWITCH(group, name, word, get, set, button, caption, label, on, off, ok, ko, handler)      \
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

    const auto onIndex = [this](QComboBox* comboBox, void (MainWindow::*handler)()) {
        connect(comboBox, qOverload<int>(&QComboBox::currentIndexChanged), this, handler);
    };
    onIndex(ui->BaudRateConnectCB, &MainWindow::ChangeBaudRate);
    onIndex(ui->VideoOutputCB, &MainWindow::onVideoOutputCBChanged);
    onIndex(ui->frameRateCB, &MainWindow::onFrameRateCBChanged);
    onIndex(ui->contrastTypeEdit, &MainWindow::onContrastTypeEditChanged);
    onIndex(ui->lutColorEdit, &MainWindow::onLutColorEditChanged);
    onIndex(ui->EdgeCorrectionCB, &MainWindow::onEdgeCorrectionCBChanged);
}
