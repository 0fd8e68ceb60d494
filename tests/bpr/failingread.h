// SPDX-License-Identifier: MIT
// A medium that fails: reads of one file go wrong, as from a worn disk or a lost network drive.
#pragma once

#include <string>

namespace tablefiles {

class FailingRead {
public:
    enum Failure {
        Error, ///< every read reports an input/output error
        Late,  ///< every read but the first one does
        Short  ///< the file ends earlier than its size says
    };

    /// Takes effect on the file with this name in any folder, for as long as this object lives.
    FailingRead(const char* fileName, Failure failure);
    ~FailingRead();
    FailingRead(const FailingRead&) = delete;
    FailingRead& operator=(const FailingRead&) = delete;

    /// How many reads were failed.
    [[nodiscard]] int count() const;
};

} // namespace tablefiles
