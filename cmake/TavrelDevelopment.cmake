# SPDX-License-Identifier: MIT
# What is installed for programs of other people that use the SDK: headers, a CMake package, a file for
# pkg-config, documents and examples.
set(TAVREL_SDK_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/ombrix-sdk)
set(TAVREL_SDK_DOCUMENTS ${CMAKE_INSTALL_DATADIR}/doc/libombrix-sdk-dev)
set(cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/OmbrixSdk)
set(pkgconfig_dir ${CMAKE_INSTALL_DATADIR}/pkgconfig)
# Relative, so that the tree works under any prefix and after it was moved.
file(RELATIVE_PATH TAVREL_PREFIX_FROM_CMAKE /${cmake_dir} /)
file(RELATIVE_PATH TAVREL_PREFIX_FROM_PKGCONFIG /${pkgconfig_dir} /)

set(development ${PROJECT_SOURCE_DIR}/packaging/development)
set(generated ${PROJECT_BINARY_DIR}/packaging)
configure_file(${development}/OmbrixSdkConfig.cmake.in ${generated}/OmbrixSdkConfig.cmake @ONLY)
configure_file(${development}/ombrix-sdk.pc.in ${generated}/ombrix-sdk.pc @ONLY)
include(CMakePackageConfigHelpers)
write_basic_package_version_file(${generated}/OmbrixSdkConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)

# The program by which a running simulator is worked; its commands come from the program itself.
set(manual ${generated}/ombrix-simulator.1)
configure_file(${PROJECT_SOURCE_DIR}/packaging/linux/ombrix-simulator.1.in ${manual}.in @ONLY)
add_custom_command(OUTPUT ${manual}
    COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:ombrix_simulator> -DPAGE=${manual}.in
            -DRESULT=${manual} -P ${PROJECT_SOURCE_DIR}/packaging/linux/manual.cmake
    DEPENDS ombrix_simulator ${manual}.in ${PROJECT_SOURCE_DIR}/packaging/linux/manual.cmake VERBATIM)
add_custom_target(ombrix_simulator_manual ALL DEPENDS ${manual})
install(TARGETS ombrix_simulator DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT development)
install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/linux/ombrix-simulator.bash RENAME ombrix-simulator
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT development)

install(FILES ${PROJECT_SOURCE_DIR}/sdk/ombrix_sdk.h
    DESTINATION ${TAVREL_SDK_HEADERS}/sdk COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/simulator/control.h
    DESTINATION ${TAVREL_SDK_HEADERS}/simulator COMPONENT development)
install(FILES ${generated}/OmbrixSdkConfig.cmake ${generated}/OmbrixSdkConfigVersion.cmake
    DESTINATION ${cmake_dir} COMPONENT development)
install(FILES ${generated}/ombrix-sdk.pc DESTINATION ${pkgconfig_dir} COMPONENT development)
install(FILES
    ${PROJECT_SOURCE_DIR}/packaging/linux/copyright
    ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    ${PROJECT_SOURCE_DIR}/docs/sdk-development.md
    DESTINATION ${TAVREL_SDK_DOCUMENTS} COMPONENT development)
install(DIRECTORY ${development}/program ${development}/ci-job
    DESTINATION ${TAVREL_SDK_DOCUMENTS}/examples COMPONENT development)
tavrel_install_simulator_documents(${TAVREL_SDK_DOCUMENTS} development)
