# Disassembles LIBRARY with LISTER and fails on any instruction that a processor with nothing beyond SSE2 does not have.
# With WIDE the functions of the namespace avx2 may have them; what is said of the others stays.

cmake_minimum_required(VERSION 3.22)
execute_process(COMMAND ${LISTER} -d --no-show-raw-insn ${LIBRARY} OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
# After the address binutils have a tab, LLVM's lister has blanks and a tab.
if(WIDE)
  # A function begins with an address and its name in angle brackets, and ends with an empty line.
  string(REGEX REPLACE "\n[0-9a-f]+ <[^\n]*4avx2[^\n]*>:\n([^\n]+\n)+" "\n" others "${listing}")
  string(LENGTH "${listing}" with)
  string(LENGTH "${others}" without)
  if(with EQUAL without OR NOT listing MATCHES "vzeroupper" OR NOT listing MATCHES "%ymm")
    message(FATAL_ERROR "No kernels for AVX2 in ${LIBRARY}")
  endif()
  set(listing "${others}")
endif()
string(REGEX MATCHALL "[0-9a-f]+:[ \t]+[a-z][a-z0-9]*" lines "${listing}")
string(REGEX REPLACE "[0-9a-f]+:[ \t]+" "" names "${lines}")
list(LENGTH names total)
list(REMOVE_DUPLICATES names)

# Everything with a VEX or EVEX prefix begins with a v; mask registers belong to the same processors.
set(avx "v[a-z0-9]+|k(mov|and|or|xor|not|shift|test|unpck|add)[a-z0-9]*")
set(sse3 "(addsub|hadd|hsub)p[sd]|lddqu|movddup|movs[hl]dup|fisttp[a-z]*|monitor|mwait")
set(ssse3 "pabs[bwd]|palignr|ph(add|sub)(w|d|sw)|pmaddubsw|pmulhrsw|pshufb|psign[bwd]")
set(sse41 "blendv?p[sd]|dpp[sd]|extractps|insertps|movntdqa|mpsadbw|packusdw|pblend(vb|w)|pcmpeqq|pextr[bdq]|phminposuw")
string(APPEND sse41 "|pinsr[bdq]|pm(ax|in)(sb|sd|ud|uw)|pmov[sz]x[a-z]+|pmul(dq|ld)|ptest|rounds?[ps][sd]")
set(sse42 "crc32[a-z]?|pcmp[ei]str[im]|pcmpgtq|popcnt[a-z]?")
set(later "aes[a-z0-9]+|pclmul[a-z]+|sha(1|256)[a-z0-9]+|lzcnt[a-z]?|tzcnt[a-z]?|bextr|bls[a-z]+|bzhi|mulx|p(dep|ext)|rorx")
string(APPEND later "|s(a|h)[lr]x|andn|movbe[a-z]?|ad[co]x[a-z]?|gf2p8[a-z]+|f?x(save|rstor)[a-z0-9]*|rdrand|rdseed")

set(newer)
foreach(name IN LISTS names)
  foreach(pattern IN ITEMS "${avx}" "${sse3}" "${ssse3}" "${sse41}" "${sse42}" "${later}")
    if(name MATCHES "^(${pattern})$" AND NOT name MATCHES "^ver[rw]$")
      list(APPEND newer ${name})
    endif()
  endforeach()
endforeach()
if(newer)
  message(FATAL_ERROR "Instructions beyond SSE2 in ${LIBRARY}: ${newer}")
endif()
# The vector kernels are there, so the listing was that of the library.
foreach(wanted pmulhuw pmaddwd packuswb)
  if(NOT wanted IN_LIST names)
    message(FATAL_ERROR "No ${wanted} among the ${total} instructions of ${LIBRARY}")
  endif()
endforeach()
message(STATUS "${total} instructions, none beyond SSE2")
