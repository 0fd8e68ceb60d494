// SPDX-License-Identifier: MIT
// A program that uses the SDK as little as a program can, so that a test sees what a process of its
// own writes where. Before its calls it puts another plan in the place of the first, when it is
// given one. With --wait it connects, says so, and tells the camera's GSK for every line that it
// reads.
#include "sdk/ombrix_sdk.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

int main(int argc, char* argv[])
{
    ombrix_sdk::IOmbrixSdk* const sdk = ombrix_sdk::OmbrixSdk::get_instance();
    sdk->initialize();
    sdk->initialize();
    {
        ombrix_sdk::SDKLogger logger(ombrix_sdk::startup_severity);
        logger.GetILogger() << "QT Version " << std::string("5.15");
    }
    {
        ombrix_sdk::SDKLogger logger(ombrix_sdk::event_severity);
        logger.GetILogger() << std::string("first\nsecond \xC3\xA9");
    }
    {
        ombrix_sdk::SDKLogger logger(static_cast<ombrix_sdk::severity_level>(7));
        logger.GetILogger() << "";
    }
    ombrix_sdk::ISerialLink* link = sdk->createSerialLink();
    ombrix_sdk::ICamera* const camera = link->openCamera("ttyUSB0");
    char context = 0;
    if (camera == nullptr || camera->connect(&context) != 1) {
        return 1;
    }
    if (argc > 1 && std::string(argv[1]) == "--wait") {
        std::cout << "connected" << std::endl;
        for (std::string line; std::getline(std::cin, line);) {
            std::cout << camera->getGsk() << std::endl;
        }
        return 0;
    }
    if (argc > 1) {
        // Removed first: MinGW's library does not overwrite.
        const std::filesystem::path plan = std::getenv("TAVREL_SIMULATOR_PLAN");
        std::filesystem::remove(plan);
        std::filesystem::copy_file(argv[1], plan);
        std::cout << "the plan is another one\n";
    }
    camera->setGamma(camera->getGamma() + 1);
    ombrix_sdk::Zoom zoom{2.5F, 1, 2, 1};
    camera->configureZoom(&zoom);
    camera->getZoom(&zoom);
    link->closeCamera(camera);
    sdk->releaseSerialLink(&link);
    sdk->saveConfiguration();
    return 0;
}
