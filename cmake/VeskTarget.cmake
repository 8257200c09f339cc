# What every target of the project has in common: the language level, hidden visibility, the project's warnings
# and, where asked for, sanitizers, coverage and what fuzzers are guided by.

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT CMAKE_CXX_STANDARD)
  set(CMAKE_CXX_STANDARD 17)
endif()

# Calls within a library need not go through its symbol table, and can be inlined; Clang takes that for granted.
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fno-semantic-interposition VESK_HAS_NO_SEMANTIC_INTERPOSITION)

function(vesk_configure_target target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(VESK_HAS_NO_SEMANTIC_INTERPOSITION)
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  endif()
  if(VESK_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(VESK_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=${VESK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${VESK_SANITIZE})
  endif()
  if(BUILD_SHARED_LIBS AND NOT VESK_SANITIZE)
    # A library must find at link time whatever it uses.
    target_link_options(${target} PRIVATE LINKER:--no-undefined)
  endif()
  if(VESK_BUILD_FUZZERS)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  if(VESK_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic) # threads count, too
    target_link_options(${target} PRIVATE --coverage)
  endif()
endfunction()

# vesk_add_library(Foundation HEADERS folder SOURCES ...): the library libVeskFoundation, known to others as
# Vesk::Foundation. All headers in the folder are public.
function(vesk_add_library name)
  cmake_parse_arguments(ARG "" "HEADERS" "SOURCES;PUBLIC_LINK;PRIVATE_LINK" ${ARGN})
  set(target Vesk${name})
  add_library(${target} ${ARG_SOURCES})
  add_library(Vesk::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${name}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH "$ORIGIN")
  vesk_configure_target(${target})
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${ARG_HEADERS}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${target} PUBLIC ${ARG_PUBLIC_LINK} PRIVATE ${ARG_PRIVATE_LINK})
  if(VESK_INSTALL)
    install(TARGETS ${target} EXPORT VeskFastInfosetTargets
      RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
      LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
      ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
    install(DIRECTORY ${ARG_HEADERS}/Vesk DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
      FILES_MATCHING PATTERN "*.h")
  endif()
endfunction()
