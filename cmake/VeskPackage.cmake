# Debian packages: the shared libraries, what it takes to build with them, and the tool. scripts/package.sh makes them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME veskfastinfoset)
# Packages must name an address; there is none that would answer.
set(CPACK_PACKAGE_CONTACT "libVeskFastInfoset authors <maintainers@veskfastinfoset.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development)
if(VESK_BUILD_TOOLS)
  list(APPEND CPACK_COMPONENTS_ALL tool)
endif()

set(runtime_package libveskfastinfoset${PROJECT_VERSION_MAJOR})
set(development_package libveskfastinfoset-dev)
set(tool_package veskfi)
foreach(component runtime development tool)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${${component}_package})
  set(CPACK_DEBIAN_${upper}_FILE_NAME DEB-DEFAULT)
  # Debian has the licence of every package in a folder of its own. Only the packages have it there.
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${${component}_package} RENAME copyright
    COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Dependencies on libraries are found by what the binaries are linked with; between these packages they are on the very
# same version.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  ${PROJECT_BINARY_DIR}/foundation ${PROJECT_BINARY_DIR}/xml ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian/CompressManuals.cmake)

# The first line of each description is its summary; a project's own would come before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(about "Fast Infoset (ITU-T X.891 | ISO/IEC 24824-1) is a binary encoding of XML,
smaller and faster to read than text. libVeskFastInfoset reads and writes it
through SAX2 events.
.
This package holds")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "XML in the Fast Infoset binary encoding (shared libraries)
${about} the shared libraries.")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "XML in the Fast Infoset binary encoding (development files)
${about} the headers and what CMake and pkg-config find the
libraries by.")
set(CPACK_DEBIAN_TOOL_DESCRIPTION "converter between XML and Fast Infoset
${about} the command-line tool veskfi and the media type
application/fastinfoset.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION text)

include(CPack)
cpack_add_component(runtime)
cpack_add_component(development DEPENDS runtime)
cpack_add_component(tool DEPENDS runtime)
