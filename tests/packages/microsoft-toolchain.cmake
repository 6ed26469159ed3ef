# Programs of the Microsoft ABI without the Microsoft tools: clang and lld-link, with the Windows headers of MinGW, which
# know the compiler when it says which GNU version it resembles, and neither a C nor a C++ library.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_MSVC_RUNTIME_LIBRARY "")
foreach(language C CXX)
  set(CMAKE_${language}_COMPILER_TARGET x86_64-pc-windows-msvc)
  set(CMAKE_${language}_FLAGS_INIT "-fgnuc-version=4.2.1 -isystem /usr/x86_64-w64-mingw32/include")
  set(CMAKE_${language}_STANDARD_LIBRARIES "" CACHE STRING "")
endforeach()
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
