# Runs PROGRAM with ARGUMENT. It has to succeed and to print what is in the file EXPECTED.
execute_process(COMMAND ${PROGRAM} ${ARGUMENT} OUTPUT_VARIABLE output RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} ended with ${result}")
endif()
file(READ ${EXPECTED} expected)
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "Expected:\n${expected}\nPrinted:\n${output}")
endif()
