# The target `api_docs`: the pages of the public headers, in api/html of the build folder. They need Doxygen and Python.
find_program(DOXYGEN_PROGRAM doxygen)
find_package(Python3 COMPONENTS Interpreter QUIET)
if(PROJECT_IS_TOP_LEVEL AND DOXYGEN_PROGRAM AND Python3_FOUND)
  add_custom_target(
    api_docs
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/docs/api/make.py ${PROJECT_BINARY_DIR}/api
    COMMENT "Writing api/html"
    VERBATIM)
endif()
