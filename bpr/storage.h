// SPDX-License-Identifier: MIT
// Map files as the operating system has them; everything here has one implementation a system.
#pragma once

#include <QtCore/QFile>

#include <memory>
#include <string>

namespace tavrel::bpr {

/// Opens a regular file, or a link to one, for reading. Anything else (folder, named pipe, device)
/// is as if it could not be opened, and is never waited for.
bool openForReading(QFile& file, const std::string& path);

enum class Access {
    Granted,
    Missing, ///< nothing is there, or a link that leads to nothing
    Refused
};

/// The same for writing; the content stays as it is.
Access openForWriting(QFile& file, const std::string& path);

/// Makes sure that a disk has room for a file of this size, before its content is written over.
/// False leaves the file as it was.
bool reserve(QFile& file, qint64 size);

/// Waits until everything that was written is on the disk; false when it did not get there.
bool flushToDisk(QFile& file);

/// A file that is written in the folder of another one and then takes its place. Until then it
/// bears a name of its own; what a program leaves under such a name when it is killed, the next
/// successor in that folder clears away. Nothing of a program that still runs is touched.
class Successor {
public:
    Successor();
    /// A file that has not taken its place is removed.
    ~Successor();
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    enum class Opened {
        Yes,
        FolderIsClosed, ///< the folder takes no new file
        No
    };
    /// Makes the file, empty, beside the one at this path, or beside the file that a link leads to.
    Opened open(const std::string& path);

    QFile& content();

    /// Takes over what the system keeps of the predecessor besides its content: mode, owner and
    /// access list, as far as this program may give them away.
    void inherit(QFile& predecessor);

    enum class Placed {
        Yes,
        PlaceIsHeld, ///< no other file can come to where the predecessor is
        No
    };
    /// The predecessor must be closed.
    Placed takePlace();

private:
    struct Place;
    std::unique_ptr<Place> place;
    QFile file;
};

} // namespace tavrel::bpr
