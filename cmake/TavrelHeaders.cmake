# SPDX-License-Identifier: MIT
# Libraries that are headers only.
include_guard()

# tavrel_header_library(NAME FOLDER HEADER PACKAGE): a library whose headers lie in FOLDER. Only this
# folder is handed to the compiler: what lies beside it belongs to the machine that builds, which is
# not always the machine that the program is for.
function(tavrel_header_library name folder header package)
    find_path(${name}_HEADERS ${folder}/${header} HINTS /usr/include NO_CMAKE_FIND_ROOT_PATH)
    if(NOT ${name}_HEADERS)
        message(FATAL_ERROR "There is no ${folder}/${header} (on Debian: ${package})")
    endif()
    set(own ${PROJECT_BINARY_DIR}/headers/${name})
    file(MAKE_DIRECTORY ${own})
    file(CREATE_LINK ${${name}_HEADERS}/${folder} ${own}/${folder} COPY_ON_ERROR SYMBOLIC)
    add_library(${name} INTERFACE)
    target_include_directories(${name} SYSTEM INTERFACE ${own})
endfunction()

tavrel_header_library(tavrel_cli11 CLI CLI.hpp libcli11-dev)
tavrel_header_library(tavrel_tomlplusplus toml++ toml.h libtomlplusplus-dev)
