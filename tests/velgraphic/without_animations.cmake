# Configures SOURCE without animations in WORK, builds the companion library, and runs test PROGRAMS with it in place of
# their own.
function(run)
  execute_process(COMMAND ${ARGV} WORKING_DIRECTORY ${WORK} RESULT_VARIABLE result OUTPUT_VARIABLE output
                  ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGV}\n${output}")
  endif()
endfunction()

file(MAKE_DIRECTORY ${WORK})
run(${CMAKE_COMMAND} -G Ninja -S ${SOURCE} -B ${WORK} -DCMAKE_BUILD_TYPE=Debug -DLACQUER_ANIMATIONS=OFF
    -DLACQUER_TESTS=OFF -DLACQUER_EXAMPLES=OFF)
run(${CMAKE_COMMAND} --build ${WORK} --target velGraphic)
set(ENV{LD_LIBRARY_PATH} ${WORK}/velgraphic)
# This library is built without sanitizers. A sanitized program would look for leaks before it ends, and not find the
# fonts' character sets, whose parts fontconfig notes as distances.
set(ENV{LSAN_OPTIONS} detect_leaks=0)
foreach(program IN LISTS PROGRAMS)
  run(${program} --gtest_brief=1)
endforeach()
