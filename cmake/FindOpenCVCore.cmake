# SPDX-License-Identifier: MIT
# Finds OpenCV's core module alone and offers it as the target opencv_core. OpenCV's own package
# configuration is used where there is one; Debian ships it only with all modules, so a lone
# libopencv-core-dev is found by its header and library.
find_package(OpenCV QUIET CONFIG COMPONENTS core)
if(OpenCV_FOUND)
    set(OpenCVCore_INCLUDE_DIR ${OpenCV_INCLUDE_DIRS})
    set(OpenCVCore_LIBRARY opencv_core)
else()
    find_path(OpenCVCore_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4)
    find_library(OpenCVCore_LIBRARY opencv_core)
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenCVCore
    REQUIRED_VARS OpenCVCore_LIBRARY OpenCVCore_INCLUDE_DIR)

if(OpenCVCore_FOUND AND NOT TARGET opencv_core)
    add_library(opencv_core UNKNOWN IMPORTED)
    set_target_properties(opencv_core PROPERTIES
        IMPORTED_LOCATION ${OpenCVCore_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${OpenCVCore_INCLUDE_DIR}
        INTERFACE_SYSTEM_INCLUDE_DIRECTORIES ${OpenCVCore_INCLUDE_DIR})
endif()
