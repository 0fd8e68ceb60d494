# SPDX-License-Identifier: MIT
# Puts what PROGRAM tells of its words into the manual PAGE; the outcome is RESULT.
execute_process(COMMAND ${PROGRAM} --manual OUTPUT_VARIABLE commands COMMAND_ERROR_IS_FATAL ANY)
file(READ ${PAGE} page)
string(REPLACE "%commands%" "${commands}" page "${page}")
file(WRITE ${RESULT} "${page}")
