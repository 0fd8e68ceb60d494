# SPDX-License-Identifier: MIT
# Fails and shows the places when a source of ours is not formatted as .clang-format says.
set(sources)
foreach(folder IN ITEMS app ui sdk link params bpr ctl simulator tour tests/* bench packaging/windows/serialport)
    file(GLOB found ${SOURCE_DIR}/${folder}/*.cpp ${SOURCE_DIR}/${folder}/*.h)
    list(APPEND sources ${found})
endforeach()
execute_process(COMMAND ${CLANG_FORMAT} --dry-run -Werror ${sources} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "Run clang-format -i on the files named above.")
endif()
