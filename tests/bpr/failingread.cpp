// SPDX-License-Identifier: MIT
#include "tests/bpr/failingread.h"

#include <array>
#include <cerrno>

#include <dlfcn.h>
#include <unistd.h>

namespace {

std::string failingName;
tablefiles::FailingRead::Failure failingHow = tablefiles::FailingRead::Error;
int failures = 0;
int seen = 0; ///< reads that could have failed

bool isFailing(int file)
{
    if (failingName.empty()) {
        return false;
    }
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    std::array<char, 4096> target{};
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
    return length > 0 &&
           std::string(target.data(), static_cast<std::size_t>(length)).ends_with(failingName);
}

} // namespace

// The program's own read comes before the system's, for the libraries as well.
extern "C" __attribute__((visibility("default"))) ssize_t read(int file, void* buffer,
                                                               std::size_t size)
{
    using Read = ssize_t (*)(int, void*, std::size_t);
    static const auto systemRead = reinterpret_cast<Read>(::dlsym(RTLD_NEXT, "read"));
    if (!isFailing(file) || (failingHow == tablefiles::FailingRead::Late && seen++ == 0)) {
        return systemRead(file, buffer, size);
    }
    ++failures;
    if (failingHow != tablefiles::FailingRead::Short) {
        errno = EIO;
        return -1;
    }
    // One byte, and then the end of the file.
    return failures == 1 ? systemRead(file, buffer, 1) : 0;
}

namespace tablefiles {

FailingRead::FailingRead(const char* fileName, Failure failure)
{
    failures = 0;
    seen = 0;
    failingHow = failure;
    failingName = std::string("/") + fileName;
}

FailingRead::~FailingRead()
{
    failingName.clear();
}

int FailingRead::count() const
{
    return failures;
}

} // namespace tablefiles
