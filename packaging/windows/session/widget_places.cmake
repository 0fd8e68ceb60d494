# SPDX-License-Identifier: MIT
# Says where the widgets of the tool's window are, so that the session can click on them.
find_package(Qt5 5.15 REQUIRED COMPONENTS Test)
add_executable(widget_places ${CMAKE_CURRENT_LIST_DIR}/widget_places.cpp
    ${PROJECT_SOURCE_DIR}/tests/kit/widgets.cpp)
tavrel_target(widget_places)
target_link_libraries(widget_places PRIVATE tavrel_tool ombrix_sdk_simulator Qt5::Test)
