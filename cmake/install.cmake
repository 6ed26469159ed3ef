# Installing: the shared libraries with their headers, for find_package(lacquer) and pkg-config. velgraphic/ and image/
# add their own to the same package.
include(CMakePackageConfigHelpers)

install(TARGETS lacquer EXPORT lacquer-targets)
foreach(header lacquer.h lacquer.hpp line_breaks.hpp objects.hpp pixels.hpp scopes.hpp skin.hpp text.hpp)
  install(FILES src/api/include/lacquer/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/lacquer)
endforeach()
install(FILES ${LACQUER_GENERATED_INCLUDE}/lacquer/version.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/lacquer)
if(NOT WIN32)
  install(FILES src/api/include/lacquer/win32_types.h src/api/include/lacquer/headless_gdi.h
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/lacquer)
endif()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/lacquer)
install(EXPORT lacquer-targets FILE lacquer-config.cmake NAMESPACE lacquer:: DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/lacquer-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/lacquer-config-version.cmake DESTINATION ${package_dir})

file(RELATIVE_PATH up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
set(packages lacquer velgraphic)
if(LACQUER_HAS_IMAGE)
  list(APPEND packages lacquer_image)
endif()
foreach(package IN LISTS packages)
  configure_file(cmake/${package}.pc.in ${PROJECT_BINARY_DIR}/${package}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
