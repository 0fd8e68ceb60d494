# SPDX-License-Identifier: MIT
# Fails and shows the first lines that differ when the page is not what the program writes.
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE written RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "The reference cannot be written.")
endif()
file(READ ${PAGE} page)
if(NOT written STREQUAL page)
    execute_process(COMMAND ${PROGRAM} COMMAND diff - ${PAGE} COMMAND head -n 20)
    message(FATAL_ERROR "${PAGE} is not current. Renew it: ${PROGRAM} > ${PAGE}")
endif()
