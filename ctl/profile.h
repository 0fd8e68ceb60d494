// SPDX-License-Identifier: MIT
// Profiles: the settings of a camera as a text file in TOML.
#pragma once

#include "params/parameters.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstdint>
#include <vector>

namespace tavrel::ctl {

struct Profile {
    QString file;
    QString variant; ///< of the camera that it came from
    Values values;
    std::vector<int> lines; ///< on which the values stand, by place

    /// "FILE, line N", for messages about a value.
    [[nodiscard]] QString whereabouts(std::size_t place) const;
};

/// Reads a profile and looks at every value in it; throws and names the line of what is wrong.
Profile readProfile(const QString& file);

/// The camera that a profile comes from.
struct Origin {
    std::uint32_t versions;
    std::uint32_t serialNumber;
    std::uint32_t sensorSerialNumber;
};

/// Replaces the file as a whole, or throws and leaves it as it was.
void writeProfile(const QString& file, const Origin& origin, const Values& values);

} // namespace tavrel::ctl
