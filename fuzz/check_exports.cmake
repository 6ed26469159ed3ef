# Runs FUZZER, whose report names all its calls, and fails when an export of the module definitions DEFINITIONS is not among
# them.

execute_process(COMMAND ${FUZZER} --programs 0 --report OUTPUT_VARIABLE report COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\r" "" report "${report}")
foreach(definition IN LISTS DEFINITIONS)
  # One name on a line; quoted ones are other spellings. The layouts have C++ names: _Z, the length, the name.
  file(STRINGS ${definition} names REGEX "^ +[A-Za-z_]")
  if(NOT names)
    message(SEND_ERROR "${definition} has no exports")
  endif()
  foreach(name IN LISTS names)
    string(REGEX MATCH "[A-Za-z_0-9]+" name "${name}")
    if(name MATCHES "^_Z([0-9]+)(.*)")
      string(SUBSTRING "${CMAKE_MATCH_2}" 0 ${CMAKE_MATCH_1} name)
    endif()
    if(NOT report MATCHES ": ${name}\n")
      message(SEND_ERROR "${name} is missing")
    endif()
  endforeach()
endforeach()
