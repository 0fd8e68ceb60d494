// SPDX-License-Identifier: MIT
// A folder whose name is no text in any language, as the current one.
#pragma once

#include <QtCore/QtGlobal>

#include <filesystem>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace tablefiles {

/// Qt could not remove it, so it goes with this object.
class OddFolder {
public:
    static constexpr char name[] = "odd \xFF\xC5";
    OddFolder()
    {
        if (::mkdir(name, S_IRWXU) != 0 || ::chdir(name) != 0) {
            qFatal("no folder can have such a name");
        }
    }
    ~OddFolder()
    {
        std::error_code error;
        const auto folder = std::filesystem::current_path(error);
        (void)!::chdir("..");
        std::filesystem::remove_all(folder, error);
    }
    OddFolder(const OddFolder&) = delete;
    OddFolder& operator=(const OddFolder&) = delete;
};

} // namespace tablefiles
