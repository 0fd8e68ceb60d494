// SPDX-License-Identifier: MIT
// What differs between the platforms the tool runs on, apart from how map files are kept.
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

/// A path's bytes as UTF-8, the encoding of the event log. On Windows they are in the code page of
/// the machine; elsewhere they are handed on as they are.
std::string utf8(const std::string& path);

enum class Stream { Input, Output, Errors };

/// Whether somebody sits at the other end.
bool isTerminal(Stream stream);

/// Keeps the numbers of standard streams that the program was started without from the next file
/// or port that is opened. Using such a stream fails as before.
void holdStandardStreams();

/// Makes Ctrl-C, and where there are signals the end of system or terminal, a wish that
/// wasInterrupted tells of, and a reader that has gone an error of writing. A second Ctrl-C ends
/// the program. What the program was started to ignore stays ignored.
void takeInterruptions();
bool wasInterrupted();

/// Waits until a line was typed; false when Ctrl-C came first.
bool waitForInput();

/// Blocks the calling thread.
void blockThread(std::chrono::milliseconds duration);

} // namespace tavrel::platform
