// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"

#include "app/platform.h"
#include "ui/dialog.h"
#include "ui/largefonts.h"
#include "ui/lightcolours.h"
#include "ui/numberinput.h"
#include "ui_mainwindow.h"

#include <QtCore/QTimer>

namespace {

const std::string companyLogoFile = "HalvornTech.png";
const std::string companyName = "Halvorn Technologies";
const std::string productLogoHtml =
    "<html><head/><body><p><img src=:picture/OmbrixKV.png/></p></body></html>";

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent, Qt::WindowFlags()), ui(new Ui_MainWindow()), outputDir(QString())
{
    ombrix_sdk::IOmbrixSdk* sdk = ombrix_sdk::OmbrixSdk::get_instance();
    sdk->initialize();
    ombrix_sdk::ISdkConfiguration* configuration = sdk->getConfiguration();

    timer = new QTimer(this);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Icons take all the pixels that a fine screen has.
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    tavrel::keepColoursReadable();
    ui->setupUi(this);
    tavrel::makeRoomForFonts(*ui);
    tavrel::takeDotAsDecimalSign(*this);
    QCoreApplication::instance()->installEventFilter(this);

    makeSliderConnections();
    // Between the two groups: the sliders already pass their values on, the edit boxes not yet.
    setupExpertSliders();
    makeEditConnections();
    makeControlConnections();

    if (configuration->isExpertModeEnabled() == 0) {
        removeExpertTab();
    }
    ui->BaudRateConnectCB->setCurrentText(QString::number(configuration->getDefaultBaudRate()));
    ui->connectDeviceButton->setEnabled(false);
    ui->disconnectDeviceButton->setEnabled(false);
    ui->tabWidget->setEnabled(false);
    setupExpertSliders();

    portInfo = new QSerialPortInfo();
    connectionContext = new ConnectionContext();

    ui->HTLogo->setText(QString::fromStdString("<html><head/><body><p><img src=:picture/" +
                                               companyLogoFile + "/></p></body></html>"));
    ui->KVLogo->setText(QString::fromStdString(productLogoHtml));
    setWindowTitle(QString::fromStdString(companyName + " OBKV camera Tavrel"));
    createOutputDirectories();
}

MainWindow::~MainWindow()
{
    // A window that is destroyed while it is shown loses its focus on the way; its fields must not
    // report the end of an edit to a window that is half gone.
    const QList<QObject*> children = findChildren<QObject*>();
    for (QObject* child : children) {
        child->disconnect(this);
    }
    // Neither the link nor the camera is closed here, and what the SDK may still hold is kept.
    delete ui;
}

void MainWindow::removeExpertTab()
{
    constexpr int noTab = 99;
    int expertTab = noTab;
    for (int index = 0; index < ui->tabWidget->count(); ++index) {
        if (ui->tabWidget->tabText(index) == QLatin1String("Expert")) {
            expertTab = index;
        }
    }
    if (expertTab != noTab) {
        ui->tabWidget->removeTab(expertTab);
    }
}

void MainWindow::createOutputDirectories()
{
    struct OutputDirectory {
        const char* name;
        const char* failure;
    };
    // Both texts report a directory that could not be made, the first one in misleading words that
    // operators' log filters rely on.
    static constexpr OutputDirectory directories[] = {
        {"bpr", "Output directory bpr\\ created"},
        {"bprBackup", "Unable to create output directory bprBackup\\"},
    };
    const QDir base{QString()};
    for (const OutputDirectory& directory : directories) {
        const QString name =
            QLatin1String(directory.name) + QLatin1Char(tavrel::platform::pathSeparator);
        // An existing directory also refuses to be made; only a base directory that is gone is
        // worth a line.
        if (!base.mkdir(name) && !base.exists()) {
            appendLog(directory.failure);
        }
    }
}

void MainWindow::createAboutWindow()
{
    Dialog dialog;
    dialog.setModal(true);
    dialog.exec();
}
