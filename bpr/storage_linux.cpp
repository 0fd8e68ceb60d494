// SPDX-License-Identifier: MIT
// Paths are bytes here: a name that is no text in the operator's language reaches the system as it
// is, which it would not through QString.
#include "bpr/storage.h"

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace tavrel::bpr {

namespace {

/// A number follows.
constexpr std::string_view unfinishedName = ".tavrel-unfinished-map-";

bool isUnfinished(std::string_view name)
{
    return name.starts_with(unfinishedName) && name.size() > unfinishedName.size() &&
           name.find_first_not_of("0123456789", unfinishedName.size()) == std::string_view::npos;
}

/// A descriptor that is closed at the end of its scope.
class Descriptor {
public:
    explicit Descriptor(int opened = -1) : number(opened) {}
    ~Descriptor()
    {
        if (number >= 0) {
            ::close(number);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] bool isOpen() const { return number >= 0; }
    [[nodiscard]] int get() const { return number; }
    int release() { return std::exchange(number, -1); }

private:
    int number;
};

bool openRegular(QFile& file, const std::string& path, int access, QIODevice::OpenMode mode)
{
    // Not blocking, because a pipe would wait for somebody at its other end.
    Descriptor opened(::open(path.c_str(), access | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!opened.isOpen()) {
        return false;
    }
    struct stat status {};
    if (::fstat(opened.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        errno = EINVAL;
        return false;
    }
    return file.open(opened.release(), mode, QFileDevice::AutoCloseHandle);
}

/// Where a new file has to come so that this path leads to it.
std::filesystem::path endOfLinks(const std::string& path)
{
    constexpr int mostLinks = 40;
    std::filesystem::path end = path;
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code notALink;
        const std::filesystem::path target = std::filesystem::read_symlink(end, notALink);
        if (notALink) {
            break;
        }
        end = end.parent_path() / target;
    }
    return end;
}

/// Whether the name in the folder stands for the open file, and not for another one by now.
bool isNamed(int file, int folder, const std::string& name)
{
    struct stat opened {};
    struct stat named {};
    return ::fstat(file, &opened) == 0 &&
           ::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISREG(opened.st_mode) && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

/// Who writes a file holds its lock, until it has its place. The lock goes with the program, so a
/// file whose lock is to be had was abandoned. Where a disk knows no locks nothing is cleared away.
bool lock(int file)
{
    return ::flock(file, LOCK_EX | LOCK_NB) == 0;
}

void removeAbandoned(int folder)
{
    DIR* const list = ::fdopendir(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (list == nullptr) {
        return;
    }
    while (const dirent* const entry = ::readdir(list)) {
        const std::string name = entry->d_name;
        if (!isUnfinished(name)) {
            continue;
        }
        const Descriptor file(
            ::openat(folder, name.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        // Only who holds the lock removes the name or gives it up, so it stays what it is here.
        if (file.isOpen() && lock(file.get()) && isNamed(file.get(), folder, name)) {
            ::unlinkat(folder, name.c_str(), 0);
        }
    }
    ::closedir(list);
}

void copyAccessList(int from, int to)
{
    constexpr char accessList[] = "system.posix_acl_access";
    const ssize_t size = ::fgetxattr(from, accessList, nullptr, 0);
    if (size <= 0) {
        // Without one on the predecessor, the folder's default must not add rights.
        (void)::fremovexattr(to, accessList);
        return;
    }
    std::vector<char> list(static_cast<std::size_t>(size));
    if (::fgetxattr(from, accessList, list.data(), list.size()) == size) {
        (void)::fsetxattr(to, accessList, list.data(), list.size(), 0);
    }
}

} // namespace

bool openForReading(QFile& file, const std::string& path)
{
    return openRegular(file, path, O_RDONLY, QIODevice::ReadOnly);
}

Access openForWriting(QFile& file, const std::string& path)
{
    if (openRegular(file, path, O_WRONLY, QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return Access::Granted;
    }
    return errno == ENOENT ? Access::Missing : Access::Refused;
}

bool reserve(QFile& file, qint64 size)
{
    const qint64 before = file.size();
    if (::fallocate(file.handle(), 0, 0, size) == 0 || errno == EOPNOTSUPP || size == 0) {
        return true;
    }
    file.resize(before);
    return false;
}

bool flushToDisk(QFile& file)
{
    // A file system that has no use for it says so by EINVAL.
    return ::fdatasync(file.handle()) == 0 || errno == EINVAL;
}

struct Successor::Place {
    Place(const std::filesystem::path& end, const std::filesystem::path& in)
        : folder(::open(in.empty() ? "." : in.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
          name(end.filename().string())
    {}

    Descriptor folder;
    std::string name;
    std::string unfinished; ///< empty when there is none
};

Successor::Successor() = default;

Successor::~Successor()
{
    if (place != nullptr && !place->unfinished.empty()) {
        ::unlinkat(place->folder.get(), place->unfinished.c_str(), 0);
    }
}

Successor::Opened Successor::open(const std::string& path)
{
    constexpr int mostNames = 1000;
    const std::filesystem::path end = endOfLinks(path);
    place = std::make_unique<Place>(end, end.parent_path());
    const int folder = place->folder.get();
    if (!place->folder.isOpen()) {
        return Opened::No;
    }
    removeAbandoned(folder);
    for (int number = 0; number < mostNames; ++number) {
        const std::string name = std::string(unfinishedName) + std::to_string(number);
        Descriptor created(
            ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (!created.isOpen() && errno != EEXIST) {
            const bool closed = errno == EACCES || errno == EPERM || errno == EROFS;
            return closed ? Opened::FolderIsClosed : Opened::No;
        }
        if (!created.isOpen()) {
            continue;
        }
        // Another program that clears away may have taken the file for abandoned before the lock.
        const bool taken = !lock(created.get()) && errno == EWOULDBLOCK;
        struct stat status {};
        if (!taken && ::fstat(created.get(), &status) == 0 && status.st_nlink > 0) {
            place->unfinished = name;
            const bool opened =
                file.open(created.release(), QIODevice::WriteOnly | QIODevice::Unbuffered,
                          QFileDevice::AutoCloseHandle);
            return opened ? Opened::Yes : Opened::No;
        }
    }
    return Opened::No;
}

QFile& Successor::content()
{
    return file;
}

void Successor::inherit(QFile& predecessor)
{
    constexpr mode_t everyBit = 07777;
    struct stat old {};
    if (::fstat(predecessor.handle(), &old) == 0) {
        // The owner first, because that takes bits from the mode. Who is not the superuser can give
        // the group away at most.
        if (::fchown(file.handle(), old.st_uid, old.st_gid) != 0) {
            (void)!::fchown(file.handle(), static_cast<uid_t>(-1), old.st_gid);
        }
        ::fchmod(file.handle(), old.st_mode & everyBit);
        copyAccessList(predecessor.handle(), file.handle());
    }
}

Successor::Placed Successor::takePlace()
{
    const int folder = place->folder.get();
    if (::renameat(folder, place->unfinished.c_str(), folder, place->name.c_str()) == 0) {
        place->unfinished.clear();
        return Placed::Yes;
    }
    const bool held = errno == EBUSY || errno == EPERM || errno == EACCES || errno == EXDEV;
    return held ? Placed::PlaceIsHeld : Placed::No;
}

} // namespace tavrel::bpr
