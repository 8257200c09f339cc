# Runs before the packages are made: Debian wants manuals compressed, without a date so that they are always the same.
file(GLOB_RECURSE manuals ${CPACK_TEMPORARY_DIRECTORY}/*.[1-9])
list(FILTER manuals INCLUDE REGEX "/man/man[1-9]/")
foreach(manual IN LISTS manuals)
  execute_process(COMMAND gzip -9n ${manual} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
