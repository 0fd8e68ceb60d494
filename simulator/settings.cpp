#include "simulator/settings.h"

#include "simulator/badpixels.h"

namespace simulator {

CameraSettings::CameraSettings()
    : name(QStringLiteral("camera")), ports(QStringLiteral("*")), values(initialParameters()),
      table(fillRegion(encodeTable(treat(
          factoryBadPixels(as<std::uint32_t>(factsOf(Parameter::SerialNumber).field.initial))))))
{}

} // namespace simulator
