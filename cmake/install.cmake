# Installing: the shared libraries with their headers, for find_package(lacquer) and pkg-config. velgraphic/ adds its own
# to the same package.
include(CMakePackageConfigHelpers)

install(TARGETS lacquer EXPORT lacquer-targets)
install(FILES src/api/include/lacquer/lacquer.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/lacquer)
if(NOT WIN32)
  install(FILES src/api/include/lacquer/win32_types.h src/api/include/lacquer/headless_gdi.h
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/lacquer)
endif()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/lacquer)
install(EXPORT lacquer-targets FILE lacquer-config.cmake NAMESPACE lacquer:: DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/lacquer-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/lacquer-config-version.cmake DESTINATION ${package_dir})

file(RELATIVE_PATH up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/lacquer.pc.in ${PROJECT_BINARY_DIR}/lacquer.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/lacquer.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
