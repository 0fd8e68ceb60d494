# Adds the session's program to the tool's build, without a word about it in the tool's own files:
# the build names this file as CMAKE_PROJECT_tavrel_INCLUDE. Deferred until all targets are there.
cmake_language(DEFER CALL add_subdirectory ${CMAKE_CURRENT_LIST_DIR} session)
