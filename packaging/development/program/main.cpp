// SPDX-License-Identifier: MIT
// Reads and changes a camera through the SDK.
//
// usage: program PORT      exit code: 0 all went well, 1 no camera there, 2 it refused something
#include <sdk/ombrix_sdk.h>

#include <iostream>
#include <vector>

int main(int argc, char* argv[])
{
    ombrix_sdk::IOmbrixSdk* const sdk = ombrix_sdk::OmbrixSdk::get_instance();
    sdk->initialize();
    ombrix_sdk::ISerialLink* link = sdk->createSerialLink();
    ombrix_sdk::ICamera* const camera = link->openCamera(argc > 1 ? argv[1] : "ttyUSB0");
    char context = 0;
    if (camera == nullptr || camera->connect(&context) != 1) {
        std::cerr << "no camera\n";
        return 1;
    }
    std::cout << "camera " << camera->getSerialNumber() << ", gamma "
              << camera->getGamma() / 65536.0 << '\n';
    bool done = camera->setGamma(2 * 65536) != 0;

    std::vector<unsigned char> table(8192);
    done = done && camera->readTableData(4096, 8192, 9, table.data()) == 0;
    done = done && camera->writeTableData(4096, 8192, 8, table.data()) != 0;

    link->closeCamera(camera);
    sdk->releaseSerialLink(&link);
    std::cout << (done ? "done\n" : "refused\n");
    return done ? 0 : 2;
}
