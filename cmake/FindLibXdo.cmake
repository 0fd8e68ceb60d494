# SPDX-License-Identifier: MIT
# Finds libxdo, by which the tour works pointer and keyboard, and offers it as the target libxdo.
find_path(LibXdo_INCLUDE_DIR xdo.h)
find_library(LibXdo_LIBRARY xdo)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LibXdo REQUIRED_VARS LibXdo_LIBRARY LibXdo_INCLUDE_DIR)

if(LibXdo_FOUND AND NOT TARGET libxdo)
    add_library(libxdo UNKNOWN IMPORTED GLOBAL)
    set_target_properties(libxdo PROPERTIES
        IMPORTED_LOCATION ${LibXdo_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${LibXdo_INCLUDE_DIR})
endif()
