# SPDX-License-Identifier: MIT
# Headers of the toolkit and the standard library that most sources read, compiled once. They save
# time and nothing else: every source includes what it uses, and builds without them
# (-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON).
include_guard()

# Programs are compiled as libraries are, which some releases of the toolkit ask for anyway: so they
# can share the headers.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_COMPILE_OPTIONS_PIE ${CMAKE_CXX_COMPILE_OPTIONS_PIC})

# tavrel_precompile(NAME LIBRARY "OPTION..." HEADER...): a set of headers, compiled as its users are:
# those link at least this library, and have the same options of optimisation.
function(tavrel_precompile name library options)
    set(source ${PROJECT_BINARY_DIR}/precompiled/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "// Headers only.\n")
    add_library(${name} OBJECT EXCLUDE_FROM_ALL ${source})
    tavrel_target(${name})
    target_compile_options(${name} PRIVATE ${options})
    target_link_libraries(${name} PRIVATE ${library})
    target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

# tavrel_use_precompiled(TARGET NAME)
function(tavrel_use_precompiled target name)
    if(MSVC)
        # Not tried there.
        return()
    endif()
    target_precompile_headers(${target} REUSE_FROM ${name})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # ccache asks for it, and nothing else takes notice.
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
endfunction()

set(core_headers
    <algorithm> <array> <chrono> <cmath> <cstddef> <cstdint> <functional> <limits> <map> <memory>
    <optional> <string> <utility> <vector>
    <QtCore/QByteArray> <QtCore/QDateTime> <QtCore/QDir> <QtCore/QFile> <QtCore/QFileInfo>
    <QtCore/QRegularExpression> <QtCore/QString> <QtCore/QStringList> <QtCore/QTimer>)
set(widgets_headers
    ${core_headers}
    <QtWidgets/QApplication> <QtWidgets/QCheckBox> <QtWidgets/QComboBox> <QtWidgets/QDoubleSpinBox>
    <QtWidgets/QFormLayout> <QtWidgets/QGridLayout> <QtWidgets/QLabel> <QtWidgets/QMainWindow>
    <QtWidgets/QMessageBox> <QtWidgets/QPlainTextEdit> <QtWidgets/QPushButton> <QtWidgets/QSlider>
    <QtWidgets/QSpinBox> <QtWidgets/QTabWidget>)

tavrel_precompile(tavrel_core_headers Qt${TAVREL_QT}::Core "" ${core_headers})
tavrel_precompile(tavrel_widgets_headers Qt${TAVREL_QT}::Widgets "" ${widgets_headers})
