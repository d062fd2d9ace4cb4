# Compares the dynamic symbols of libxfmt.so with the names the public
# header declares with XF_API, in both directions.
#   cmake -DNM=nm -DLIB=libxfmt.so "-DHEADER=xfmt.h|xfx.h" -P check_exports.cmake

# Exported on purpose without a declaration: the header documents them in a
# comment, because global names this short would clash with a host's own.
set(documented_only table etable)

# HEADER names one header or several separated by "|".
string(REPLACE "|" ";" headers "${HEADER}")
set(text "")
foreach(h IN LISTS headers)
  file(READ ${h} one)
  string(APPEND text "${one}\n")
endforeach()
# Comments and the definition of XF_API itself are not declarations.
string(REGEX REPLACE "/\\*([^*]|\\*+[^*/])*\\*+/" "" text "${text}")
string(REGEX REPLACE "#define XF_API[^\n]*" "" text "${text}")
# Semicolons split CMake lists and brackets group them: both become "@".
string(REPLACE ";" "@" text "${text}")
string(REPLACE "[" "@" text "${text}")
string(REPLACE "]" "@" text "${text}")
string(REGEX MATCHALL "XF_API[^@(]*[ *]([A-Za-z_][A-Za-z0-9_]*)[ \n]*[(@]" decls "${text}")
set(declared)
foreach(d IN LISTS decls)
  string(REGEX MATCH "([A-Za-z_][A-Za-z0-9_]*)[ \n]*[(@]$" m "${d}")
  list(APPEND declared ${CMAKE_MATCH_1})
endforeach()
list(APPEND declared ${documented_only})
list(REMOVE_DUPLICATES declared)

execute_process(COMMAND ${NM} -D --defined-only ${LIB} OUTPUT_VARIABLE nm_out RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "${NM} failed on ${LIB}")
endif()
string(REPLACE "\n" ";" nm_lines "${nm_out}")
set(exported)
foreach(line IN LISTS nm_lines)
  if(line MATCHES "^[0-9a-fA-F]* *[A-Za-z] ([^@ ]+)")
    list(APPEND exported ${CMAKE_MATCH_1})
  endif()
endforeach()

set(missing ${declared})
list(REMOVE_ITEM missing ${exported})
set(extra ${exported})
list(REMOVE_ITEM extra ${declared})
list(LENGTH declared n_declared)
list(LENGTH exported n_exported)
if(missing OR extra)
  message(FATAL_ERROR "declared but not exported: ${missing}\nexported but not declared: ${extra}")
endif()
message(STATUS "abi_exports: ${n_exported} exported names, all declared in the header")
