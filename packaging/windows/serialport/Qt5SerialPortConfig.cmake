# SPDX-License-Identifier: MIT
include(CMakeFindDependencyMacro)
find_dependency(Qt5Core)
include(${CMAKE_CURRENT_LIST_DIR}/Qt5SerialPortTargets.cmake)
set(Qt5SerialPort_LIBRARIES Qt5::SerialPort)
