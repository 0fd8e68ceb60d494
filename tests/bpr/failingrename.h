// SPDX-License-Identifier: MIT
// A place that no other file can take, as a mount point or a file that another program holds.
#pragma once

namespace tablefiles {

/// While this object lives, no file can be renamed.
class FailingRename {
public:
    FailingRename();
    ~FailingRename();
    FailingRename(const FailingRename&) = delete;
    FailingRename& operator=(const FailingRename&) = delete;

    /// How many renames were failed.
    [[nodiscard]] int count() const;
};

} // namespace tablefiles
