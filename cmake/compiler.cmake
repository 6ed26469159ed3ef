# Compiler settings: `lacquer_warnings` for everything that this project builds, `lacquer_library_rules` for the library
# itself (no exceptions, no run-time types, nothing visible but what the public headers export).

option(LACQUER_WARNINGS_ARE_ERRORS "Stop at warnings" ${PROJECT_IS_TOP_LEVEL})

add_library(lacquer_warnings INTERFACE)
add_library(lacquer_library_rules INTERFACE)

if(MSVC)
  target_compile_options(lacquer_warnings INTERFACE /W4 $<$<BOOL:${LACQUER_WARNINGS_ARE_ERRORS}>:/WX> /utf-8)
  target_compile_options(lacquer_library_rules INTERFACE /EHs-c- /GR- /fp:strict)
else()
  target_compile_options(lacquer_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                         $<$<BOOL:${LACQUER_WARNINGS_ARE_ERRORS}>:-Werror>)
  target_compile_options(lacquer_library_rules INTERFACE -fno-semantic-interposition
                         $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions -fno-rtti>)
  # Each floating-point operation is rounded, on processors too that could fuse two: in the library, and in what the tests
  # compute for themselves.
  add_compile_options(-ffp-contract=off)
endif()
if(MINGW)
  # Line numbers, which ./package splits off, and nothing that differs between two builds of the same sources.
  target_compile_options(lacquer_library_rules INTERFACE -g1 -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
  add_link_options(LINKER:--no-insert-timestamp)
endif()
if(WIN32)
  target_compile_definitions(lacquer_warnings INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN UNICODE _UNICODE)
endif()
