# Installing: each library is a package of its own for find_package and pkg-config, with the targets in the one namespace
# `lacquer::`. A project that adds this one as a folder gets the same names and, by itself, nothing installed.
include(CMakePackageConfigHelpers)

# lacquer_package(<name> TARGETS <target>... HEADERS <file>... [HEADER_FOLDER <folder>] [NEEDS <package>...]
#                 [STATIC_MODULES <pkg-config module>...])
# The first target is the library, after which the import libraries and the module definition are called. Headers go to
# the folder of that name, or to another one. A static library beside it needs the modules; find_package looks for them
# when it is asked for the component `static`.
function(lacquer_package name)
  cmake_parse_arguments(arg "" "HEADER_FOLDER" "TARGETS;HEADERS;NEEDS;STATIC_MODULES" ${ARGN})
  if(NOT LACQUER_INSTALL)
    return()
  endif()
  list(GET arg_TARGETS 0 library)
  install(TARGETS ${arg_TARGETS} EXPORT ${name}-targets)
  if(NOT arg_HEADER_FOLDER)
    set(arg_HEADER_FOLDER ${name})
  endif()
  install(FILES ${arg_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${arg_HEADER_FOLDER})

  set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/${name})
  set(files ${PROJECT_BINARY_DIR}/${name}-config.cmake ${PROJECT_BINARY_DIR}/${name}-config-version.cmake)
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/package-config.cmake.in ${PROJECT_BINARY_DIR}/${name}-config.cmake
                                INSTALL_DESTINATION ${package_dir} PATH_VARS CMAKE_INSTALL_LIBDIR)
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/${name}-config-version.cmake COMPATIBILITY SameMinorVersion)
  install(FILES ${files} DESTINATION ${package_dir})
  install(EXPORT ${name}-targets NAMESPACE lacquer:: DESTINATION ${package_dir})

  set(static_libraries -lstdc++)
  if(WIN32)
    list(PREPEND static_libraries -lgdi32 -lmsimg32 -luser32)
  endif()
  list(JOIN static_libraries " " static_libraries)
  file(RELATIVE_PATH up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
