// SPDX-License-Identifier: MIT
// The operations on a camera's bad pixel table and its map files, in their order and their words.
// Whoever shows them (in a box, on a terminal) stands above.
#pragma once

#include "bpr/files.h"
#include "bpr/table.h"
#include "sdk/ombrix_sdk.h"

#include <QtCore/QString>

#include <functional>
#include <optional>
#include <string>

namespace tavrel::bpr {

/// Why an operation has ended. Title and text are of the translation context "MainWindow".
struct Refusal {
    const char* title;
    const char* text;
    QString argument = {};        ///< takes the place of %1, if the text has one
    bool textIsTranslated = true; ///< false: the text is shown as it stands
    bool isCameras = false;       ///< the camera refused; otherwise files stand in the way
};

/// The text with its argument. A translation may have a place for it where the text itself has
/// none.
QString withArgument(const QString& text, const QString& argument);

/// Takes the lines of an operation, each at its moment.
using Log = std::function<void(const std::string& line)>;

/// What an operation that ended well gives back.
inline constexpr std::nullopt_t noRefusal = std::nullopt;

struct CameraTable {
    DecodedTable table;
    std::optional<Refusal> refusal; ///< none for a table that stalls its reader
};

/// Reads and decodes the camera's table; writes nothing.
CameraTable fetchTable(ombrix_sdk::ICamera& camera);

/// Writes a table that was read to the working copy, and to the backup if there is none yet.
void storeTable(const DecodedTable& table, const MapFiles& files, const Log& log);

/// Restores a missing working copy from the backup.
std::optional<Refusal> ensureWorkingCopy(const MapFiles& files);

/// Has the SDK treat the working copy and sends the outcome to the camera.
std::optional<Refusal> writeTable(ombrix_sdk::ICamera& camera, const MapFiles& files,
                                  const Log& log);

/// Copies the backup over the working copy; nothing is sent.
std::optional<Refusal> resetTable(const MapFiles& files, const Log& log);

} // namespace tavrel::bpr
