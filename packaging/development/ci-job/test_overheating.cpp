// SPDX-License-Identifier: MIT
// Tests the code against a camera that is made warm, mute and absent.
#include "overheating.h"

#include <simulator/control.h>

#include <iostream>

namespace {

int failures = 0;

void check(bool holds, const char* what)
{
    std::cout << (holds ? "ok    " : "FAIL  ") << what << '\n';
    failures += holds ? 0 : 1;
}

/// What the simulator must be able to do.
void require(const ombrix_simulator::Answer& answer)
{
    if (!answer.done) {
        std::cout << "FAIL  " << answer.text << '\n';
        ++failures;
    }
}

} // namespace

int main()
{
    ombrix_sdk::IOmbrixSdk* const sdk = ombrix_sdk::OmbrixSdk::get_instance();
    ombrix_sdk::ICamera* const camera = sdk->createSerialLink()->openCamera("ttyUSB0");
    if (camera == nullptr) {
        std::cout << "FAIL  there is no camera\n";
        return 1;
    }
    check(overheatingOf(*camera) == Overheating::No, "a camera of 31 degrees is not too warm");

    require(ombrix_simulator::set("camera", "sensorTemperature=345000"));
    check(overheatingOf(*camera) == Overheating::Yes, "a camera of 72 degrees is");

    require(ombrix_simulator::putFault("[getTemperatures]\ncalls=1\n"));
    check(overheatingOf(*camera) == Overheating::Unknown,
          "of one that does not tell, nothing is known");
    check(overheatingOf(*camera) == Overheating::Yes, "until it tells again");

    require(ombrix_simulator::pull("camera"));
    check(overheatingOf(*camera) == Overheating::Unknown, "nor of one that is pulled out");

    check(ombrix_simulator::calls("getTemperatures") == 5, "the camera is asked once each time");
    return failures == 0 ? 0 : 1;
}
