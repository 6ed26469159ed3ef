# Runs COMMAND and fails unless its result is RESULT and its output and errors match OUTPUT and ERRORS.
execute_process(COMMAND ${COMMAND} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT result STREQUAL RESULT OR NOT output MATCHES "${OUTPUT}" OR NOT errors MATCHES "${ERRORS}")
  message(FATAL_ERROR "result ${result}, expected ${RESULT}\noutput: ${output}\nerrors: ${errors}")
endif()
