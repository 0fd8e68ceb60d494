# SPDX-License-Identifier: MIT
# The folder of a program built with MSVC, completed for a PC without Qt.
set(CPACK_GENERATOR ZIP)

# The libraries that the program names: the SDK library, OpenCV, Qt's modules.
install(FILES $<TARGET_RUNTIME_DLLS:tavrel> DESTINATION ${TAVREL_PROGRAM_DIR})

# What Qt loads by itself: the platform, the style, the pictures' formats.
get_target_property(qmake Qt${TAVREL_QT}::qmake IMPORTED_LOCATION)
cmake_path(GET qmake PARENT_PATH qt_programs)
find_program(WINDEPLOYQT windeployqt HINTS ${qt_programs} REQUIRED)
install(CODE "
    execute_process(
        COMMAND \"${WINDEPLOYQT}\" --no-translations --svg
                \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/$<TARGET_FILE_NAME:tavrel>\"
        COMMAND_ERROR_IS_FATAL ANY)")
