# What other projects find the installed libraries by: a CMake package, VeskFastInfoset, and a pkg-config file a library.
# The libraries and headers themselves are installed where they are made, by vesk_add_library.

include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/VeskFastInfoset)
install(EXPORT VeskFastInfosetTargets NAMESPACE Vesk:: DESTINATION ${package_folder} COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VeskFastInfosetConfig.cmake.in
  ${PROJECT_BINARY_DIR}/VeskFastInfosetConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VeskFastInfosetConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/VeskFastInfosetConfig.cmake
    ${PROJECT_BINARY_DIR}/VeskFastInfosetConfigVersion.cmake
  DESTINATION ${package_folder} COMPONENT development)

# Paths are relative to the file, so that the installed tree can be moved.
function(vesk_install_pkg_config name description requires private_requires)
  set(PC_NAME ${name})
  set(PC_DESCRIPTION ${description})
  set(PC_REQUIRES ${requires})
  # A shared library brings what it is linked with; a static one leaves that to the program.
  set(PC_PRIVATE_REQUIRES "")
  if(NOT BUILD_SHARED_LIBS)
    set(PC_PRIVATE_REQUIRES ${private_requires})
  endif()
  if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR} OR IS_ABSOLUTE ${CMAKE_INSTALL_INCLUDEDIR})
    set(PC_PREFIX ${CMAKE_INSTALL_PREFIX})
    set(PC_LIBDIR ${CMAKE_INSTALL_FULL_LIBDIR})
    set(PC_INCLUDEDIR ${CMAKE_INSTALL_FULL_INCLUDEDIR})
  else()
    file(RELATIVE_PATH to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    set(PC_PREFIX "\${pcfiledir}/${to_prefix}")
    set(PC_LIBDIR "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
    set(PC_INCLUDEDIR "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
  endif()
  configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()

vesk_install_pkg_config(VeskFoundation "Base library of the Vesk libraries" "" "")
vesk_install_pkg_config(VeskXML "SAX2 interfaces, parser and writer of XML text" "VeskFoundation" "expat")
vesk_install_pkg_config(VeskFastInfoset "${PROJECT_DESCRIPTION}" "VeskXML" "")
