// SPDX-License-Identifier: MIT
// Makes the compiler lay out every interface and record of the boundary.
#include "sdk/ombrix_sdk.h"

// An abstract class is laid out in full once a constructor of a derived class is emitted.
template<class Interface> struct Probe : Interface {
    Probe();
};
template<class Interface> Probe<Interface>::Probe() = default;

using namespace ombrix_sdk;

template struct Probe<IOmbrixSdk>;
template struct Probe<ISdkConfiguration>;
template struct Probe<ISerialLink>;
template struct Probe<ICamera>;
template struct Probe<ILogger>;

unsigned long long sizes()
{
    return sizeof(Temperatures) + sizeof(OperatingTime) + sizeof(EdgeCorrection) + sizeof(Zoom) +
           sizeof(ZoomResolution) + sizeof(AhcGainsLimitation) + sizeof(ReplacementEntry) +
           sizeof(SDKLogger);
}
