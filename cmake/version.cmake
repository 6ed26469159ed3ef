# The version of project() in everything that tells it: a header, and the resource that Windows shows for a DLL.
set(LACQUER_GENERATED_INCLUDE ${PROJECT_BINARY_DIR}/include)
configure_file(src/api/include/lacquer/version.h.in ${LACQUER_GENERATED_INCLUDE}/lacquer/version.h @ONLY)

# Adds the version resource to a DLL; elsewhere the file name tells it. In an object library of its own, because the
# resource compiler does not know the options of the sources.
function(lacquer_version_resource target description)
  if(NOT WIN32)
    return()
  endif()
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  set(dll ${target}.dll)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
  add_library(${target}_version OBJECT ${resource})
  target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_version>)
endfunction()
