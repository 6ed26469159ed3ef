# Fails when LIBRARY without its symbols, made by STRIPPER, is larger than LIMIT bytes.

execute_process(COMMAND ${STRIPPER} -o ${OUTPUT} ${LIBRARY} COMMAND_ERROR_IS_FATAL ANY)
file(SIZE ${OUTPUT} size)
message(STATUS "${size} bytes without symbols")
if(size GREATER ${LIMIT})
  message(FATAL_ERROR "${LIBRARY} has ${size} bytes without symbols, more than ${LIMIT}")
endif()
