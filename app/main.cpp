// SPDX-License-Identifier: MIT
#include "app/commandline.h"
#include "app/mainwindow.h"
#include "app/platform.h"

#include <QtCore/QLibraryInfo>
#include <QtCore/QVersionNumber>
#include <QtWidgets/QApplication>

#include <iostream>
#include <string>

namespace {

/// Writes a start-up line to the SDK's log and to standard output.
void announce(const char* what, const std::string& value)
{
    {
        ombrix_sdk::SDKLogger record(ombrix_sdk::startup_severity);
        record.GetILogger() << what << value;
    }
    std::cout << what << value << std::endl;
}

} // namespace

int main(int argc, char* argv[])
{
    // What is announced below must not reach a camera's port.
    tavrel::platform::holdStandardStreams();
    if (const std::optional<int> status = tavrel::answerCommandLine(argc, argv)) {
        return *status;
    }
    std::cout << "Start QT ombrix command application" << std::endl;
    ombrix_sdk::OmbrixSdk::get_instance()->initialize();

    announce("QT Version ", QLibraryInfo::version().toString().toLocal8Bit().toStdString());
    announce("QT Built in ", QLibraryInfo::isDebugBuild() ? "DEBUG" : "RELEASE");
    std::cout << "Test log in debug" << std::endl;

    QApplication application(argc, argv);
    MainWindow window;
    window.show();
    return QApplication::exec();
}
