# SPDX-License-Identifier: MIT
# Adds the session's program to the tool's build, without a word about it in the tool's own files:
# the build names this file as CMAKE_PROJECT_tavrel_INCLUDE. Deferred until all targets are there, and
# with this folder's name put in now: by then the variable says another one.
cmake_language(EVAL CODE
    "cmake_language(DEFER CALL include [[${CMAKE_CURRENT_LIST_DIR}/widget_places.cmake]])")
