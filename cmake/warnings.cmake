# One warning set for the library, the tests and the tools. Every target of
# the project goes through one of the two functions below, which therefore
# also give it the sanitizer flags of the build (cmake/sanitizers.cmake).
#
# GCC 12 at -O2/-O3 reports -Wrestrict inside libstdc++'s std::string
# concatenation (a false positive of that release: the "overlap" is between
# two distinct strings); it is switched off for GCC only.
set(XFMT_GCC_QUIRKS $<$<AND:$<CXX_COMPILER_ID:GNU>,$<COMPILE_LANGUAGE:CXX>>:-Wno-restrict>)
function(xfmt_warnings target)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    return()
  endif()
  xfmt_sanitize(${target})
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wcast-qual -Wformat=2 -Wundef -Wnull-dereference
    $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual>
    $<$<COMPILE_LANGUAGE:C>:-Wstrict-prototypes -Wmissing-prototypes>
    ${XFMT_GCC_QUIRKS})
  if(XFMT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# Tests keep the strict set but GoogleTest's macros trip a few of the
# pedantic conversions; those stay errors in the library.
function(xfmt_test_warnings target)
  xfmt_sanitize(${target})
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wshadow -Wconversion -Wsign-conversion -Wformat=2 ${XFMT_GCC_QUIRKS})
  if(XFMT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
