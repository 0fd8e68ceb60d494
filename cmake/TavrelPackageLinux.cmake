# SPDX-License-Identifier: MIT
# The installed tree around the program on a Linux desktop, the Debian package and the archive.
set(linux ${PROJECT_SOURCE_DIR}/packaging/linux)
set(generated ${PROJECT_BINARY_DIR}/packaging)

set(document_dir ${CMAKE_INSTALL_DATADIR}/doc/tavrel)
configure_file(${linux}/tavrel.1.in ${generated}/tavrel.1 @ONLY)
configure_file(${linux}/example.halvorn.tavrel.metainfo.xml.in
    ${generated}/example.halvorn.tavrel.metainfo.xml @ONLY)

install(FILES ${linux}/tavrel.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${generated}/example.halvorn.tavrel.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
# Its commands, options and parameters come from the program itself.
set(manual ${generated}/tavrelctl.1)
configure_file(${linux}/tavrelctl.1.in ${manual}.in @ONLY)
add_custom_command(OUTPUT ${manual}
    COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:tavrelctl> -DPAGE=${manual}.in -DRESULT=${manual}
            -P ${linux}/manual.cmake
    DEPENDS tavrelctl ${manual}.in ${linux}/manual.cmake VERBATIM)
add_custom_target(tavrelctl_manual ALL DEPENDS ${manual})
install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${linux}/tavrelctl.bash RENAME tavrelctl
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${generated}/tavrel.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(DIRECTORY ${linux}/icons/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${PROJECT_SOURCE_DIR}/ui/picture/source/camera.svg RENAME tavrel.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES
    ${linux}/copyright
    ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    ${PROJECT_SOURCE_DIR}/docs/user-guide.md
    ${PROJECT_SOURCE_DIR}/docs/tavrelctl.md
    DESTINATION ${document_dir})

# Its examples lie beside the simulator's page where it is installed.
file(READ ${PROJECT_SOURCE_DIR}/docs/simulator.md page)
string(REPLACE "](../simulator/" "](examples/" page "${page}")
file(CONFIGURE OUTPUT ${generated}/simulator.md CONTENT "${page}" @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/docs/simulator.md)

# tavrel_install_simulator_documents(folder component): the simulator's pages and examples for the
# documents of a package.
function(tavrel_install_simulator_documents folder component)
    install(FILES ${generated}/simulator.md ${PROJECT_SOURCE_DIR}/docs/simulator-reference.md
        DESTINATION ${folder} COMPONENT ${component})
    install(FILES ${PROJECT_SOURCE_DIR}/simulator/simulator.example.ini
        DESTINATION ${folder}/examples COMPONENT ${component})
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/simulator/plans
        DESTINATION ${folder}/examples COMPONENT ${component})
endfunction()
tavrel_install_simulator_documents(${document_dir} Unspecified)

include(TavrelDevelopment)

string(TOLOWER ${CMAKE_SYSTEM_NAME} system)
set(CPACK_PACKAGE_FILE_NAME tavrel-${PROJECT_VERSION}-${system}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_GENERATOR DEB TGZ)

# Whoever packs must not decide by a umask who may run the program.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/linux/stage.cmake)

# The program, and what a program of somebody's own is made with: two packages, one archive.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Unspecified development)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME tavrel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libombrix-sdk-dev)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# What the package depends on is this release's; the one for the next release replaces it.
cmake_host_system_information(RESULT distribution QUERY DISTRIB_ID)
cmake_host_system_information(RESULT release QUERY DISTRIB_VERSION_ID)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1~${distribution}${release})
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "tavrel (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
# The SVG pictures on the buttons are drawn by a plugin, which no library list names.
if(TAVREL_QT EQUAL 5)
    set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_DEPENDS libqt5svg5)
else()
    # Until Debian 12 the plugin came with its library.
    set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_DEPENDS "qt6-svg-plugins | libqt6svg6 (<< 6.6)")
endif()
# Each package has a first line of its own.
set(CPACK_COMPONENT_UNSPECIFIED_DESCRIPTION
"${CPACK_PACKAGE_DESCRIPTION_SUMMARY}
The camera of this package is simulated: one answers on every serial port, and
nothing is sent to a real one. A real camera is reached through its vendor's
SDK library, which is not part of this package; the manual page says how to
put it in front.

Desktop tool with which an operator configures an Ombrix KV thermal infrared
camera: scan the serial ports, connect, then read, change and write its image
parameters and its bad pixel replacement table.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
"SDK of the Ombrix KV cameras, with a simulated camera (development files)
Headers, CMake package and pkg-config file of the SDK of the Ombrix KV cameras,
for programs that are written and tested with the simulated camera of the
package tavrel; with its manual, examples of settings and plans of faults, an
example program, and a command to work a running simulated camera. Any other
library with the same binary interface, such as the camera vendor's, takes the
simulated one's place without a new build.")
unset(CPACK_PACKAGE_DESCRIPTION_SUMMARY)
# For packaging/linux/stage.cmake, which runs when packages are made.
set(CPACK_TAVREL_RELEASE_DATE ${TAVREL_RELEASE_DATE})
