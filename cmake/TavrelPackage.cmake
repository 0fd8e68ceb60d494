# SPDX-License-Identifier: MIT
# What surrounds the program where it is installed, and how the installed tree is packed. Included
# last, because rules of installation run in their order.
include_guard()

set(CPACK_PACKAGE_NAME tavrel)
set(CPACK_PACKAGE_VENDOR "Halvorn Technologies")
set(CPACK_PACKAGE_CONTACT "Halvorn Technologies <tavrel@halvorn.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://halvorn.example/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "configure Ombrix KV thermal cameras (comes with a simulated one)")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(MSVC)
    include(TavrelPackageWindows)
elseif(UNIX)
    include(TavrelPackageLinux)
else()
    # packaging/windows/build packs the MinGW program: it knows where that compiler's libraries are.
    return()
endif()

include(CPack)
