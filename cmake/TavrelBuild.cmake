# SPDX-License-Identifier: MIT
# What every target of this project shares: language level, warnings, places of the output.
include_guard()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOUIC OFF)

get_property(several_configurations GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(NOT CMAKE_BUILD_TYPE AND NOT several_configurations)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Debug, Release or RelWithDebInfo" FORCE)
endif()

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
if(WIN32)
    # The Windows loader looks for the SDK library beside the program.
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
else()
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
endif()
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

# Where things are installed.
include(GNUInstallDirs)
if(WIN32)
    # One folder holds everything: the loader looks for libraries beside the program.
    set(TAVREL_PROGRAM_DIR .)
    set(TAVREL_SDK_DIR .)
else()
    set(TAVREL_PROGRAM_DIR ${CMAKE_INSTALL_BINDIR})
    # The SDK library carries no version in its name and belongs to this program alone, so it has a
    # folder of its own instead of a place among the system's libraries. Two levels deep, because
    # CPack takes a library one level below lib for a public one.
    set(TAVREL_SDK_DIR ${CMAKE_INSTALL_LIBDIR}/tavrel/sdk)
    # Relative, so that the tree works under any prefix and after it was moved.
    file(RELATIVE_PATH TAVREL_SDK_FROM_PROGRAM
        ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/tavrel/sdk)
endif()

# For developers and CI: a newer compiler's new warning is no reason to stop anybody else's build.
option(TAVREL_WERROR "Take warnings for errors" OFF)

set(TAVREL_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")

# Warnings, strict Qt strings and sanitizers for a target of ours.
function(tavrel_target target)
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
        QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DEPRECATED_WARNINGS
        QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
    if(MSVC)
        # No errors of them: what MSVC warns of has not been looked through yet.
        target_compile_options(${target} PRIVATE /W4 /utf-8)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor)
        if(TAVREL_WERROR)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
    endif()
    if(TAVREL_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${TAVREL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${TAVREL_SANITIZE})
    endif()
    if(UNIX)
        # Some libraries ask for it; headers that are compiled once want it everywhere.
        target_compile_options(${target} PRIVATE -pthread)
        # RUNPATH, not RPATH: LD_LIBRARY_PATH must be able to put another SDK library in front.
        target_link_options(${target} PRIVATE -Wl,--enable-new-dtags)
    endif()
endfunction()
