# SPDX-License-Identifier: MIT
# CMake toolchain: Windows x86_64 with MinGW-w64, the libraries that packaging/windows/build made.
#
#   cmake -DCMAKE_TOOLCHAIN_FILE=packaging/windows/toolchain.cmake [-DTAVREL_WINDOWS_CACHE=DIR] ...

set(TAVREL_WINDOWS_CACHE ${CMAKE_CURRENT_LIST_DIR}/cache CACHE PATH
    "What packaging/windows/build has built")
# CMake's own probes read this file again and must look into the same cache.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TAVREL_WINDOWS_CACHE)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Libraries, headers and packages from these places alone, so that nothing of this machine's own
# system slips in; programs (moc, rcc) from this machine alone.
set(CMAKE_FIND_ROOT_PATH
    ${TAVREL_WINDOWS_CACHE}/qt
    ${TAVREL_WINDOWS_CACHE}/opencv
    ${TAVREL_WINDOWS_CACHE}/serialport
    /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt looks for its modules in its own folder only; the stand-in lives outside it.
set(Qt5SerialPort_DIR ${TAVREL_WINDOWS_CACHE}/serialport/lib/cmake/Qt5SerialPort CACHE PATH
    "The stand-in for Qt's serial port module")
# OpenCV puts its package below a name that CMake does not try by itself.
set(OpenCV_DIR ${TAVREL_WINDOWS_CACHE}/opencv/lib/cmake/opencv4 CACHE PATH "OpenCV core")
