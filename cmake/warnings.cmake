# One warning set for the library, the tests and the tools.
function(xfmt_warnings target)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    return()
  endif()
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wcast-qual -Wformat=2 -Wundef -Wnull-dereference
    $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual>
    $<$<COMPILE_LANGUAGE:C>:-Wstrict-prototypes -Wmissing-prototypes>)
  if(XFMT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# Tests keep the strict set but GoogleTest's macros trip a few of the
# pedantic conversions; those stay errors in the library.
function(xfmt_test_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wshadow -Wconversion -Wsign-conversion -Wformat=2)
  if(XFMT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
