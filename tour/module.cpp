// SPDX-License-Identifier: MIT
// Preloaded into the program: starts the operator's thread beside it. Without a folder for the
// report in the environment it does nothing.
#include "tour/chapters.h"
#include "tour/gui.h"
#include "tour/page.h"

#include <QtCore/QCoreApplication>

#include <iostream>
#include <thread>

namespace {

constexpr char folderVariable[] = "TAVREL_TOUR";
constexpr char paceVariable[] = "TAVREL_TOUR_PACE";

constexpr void (*chapters[])(tour::Operator&) = {
    tour::connectCamera,   tour::lookAtTabs,         tour::changeImageProcessing,
    tour::changeLut,       tour::changeZoomAndEdge,  tour::readAndReset,
    tour::changeBadPixels, tour::changeExpertValues, tour::moveBaudRate,
    tour::meetRefusals,    tour::unplugAndEnd,
};

std::thread operatorThread;

/// The program ends by its window being closed when all went well, else with exit code 1.
void takeTheTour(const QString& folder)
{
    try {
        tour::Report report(folder);
        tour::Operator user(report,
                            std::chrono::milliseconds(qEnvironmentVariableIntValue(paceVariable)));
        for (const auto chapter : chapters) {
            chapter(user);
            // What comes after a failure mostly shows what follows from it.
            if (report.failures() > 0) {
                break;
            }
        }
        tour::writePage(report);
        if (report.failures() == 0) {
            user.closeMainWindow();
            return;
        }
        std::cout << "The tour ends here, because a step failed." << std::endl;
    } catch (const std::exception& problem) {
        std::cout << "The tour cannot go on: " << problem.what() << std::endl;
    }
    tour::inGui([] { QCoreApplication::exit(1); });
}

void startTour()
{
    const QString folder = qEnvironmentVariable(folderVariable);
    if (folder.isEmpty()) {
        return;
    }
    qAddPostRoutine([] { operatorThread.join(); });
    operatorThread = std::thread(takeTheTour, folder);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(startTour)
