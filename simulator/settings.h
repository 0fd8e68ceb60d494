// What the settings file may say, with the built-in values.
#pragma once

#include "simulator/configuration.h"
#include "simulator/parameters.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

namespace simulator {

/// One camera as it left the factory, and where it is plugged in.
struct CameraSettings {
    CameraSettings(); ///< the built-in camera, on every port

    QString name;      ///< its section in the settings file
    QStringList ports; ///< names of ports; "*" is every port
    ParameterValues values;
    QByteArray table; ///< content of the table region
};

struct Settings {
    ConfigurationValues configuration;
    std::vector<CameraSettings> cameras;
};

} // namespace simulator
