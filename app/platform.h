// Everything that differs between the platforms the tool runs on.
#pragma once

#include <chrono>
#include <string>

namespace tavrel::platform {

#if defined(_WIN32)
inline constexpr char pathSeparator = '\\';
#else
inline constexpr char pathSeparator = '/';
#endif

/// The process's current directory as the system's bytes; empty when it cannot be obtained.
std::string currentDirectory();

/// Blocks the calling thread.
void blockThread(std::chrono::milliseconds duration);

} // namespace tavrel::platform
