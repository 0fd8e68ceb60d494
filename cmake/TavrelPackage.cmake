# Where things are installed, and how the installed tree is packed.
include_guard()
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

if(NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()

set(CPACK_PACKAGE_NAME tavrel)
set(CPACK_PACKAGE_VENDOR "Halvorn Technologies")
set(CPACK_PACKAGE_CONTACT "Halvorn Technologies <tavrel@halvorn.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://halvorn.example/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "configure Ombrix KV thermal infrared cameras")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(WIN32)
    include(TavrelPackageWindows)
else()
    include(TavrelPackageLinux)
endif()

include(CPack)
