# Sanitizers are applied target by target (xfmt_sanitize), never through the
# global flags, so that a project embedding xfmt keeps its own flags.
# XFMT_SANITIZE: ASan and UBSan, UBSan findings abort.
# XFMT_TSAN: ThreadSanitizer (not together with XFMT_SANITIZE); CI runs the
# thread tests under it.
set(XFMT_SANITIZER_COMPILE_FLAGS)
set(XFMT_SANITIZER_LINK_FLAGS)
if(XFMT_SANITIZE AND XFMT_TSAN)
  message(FATAL_ERROR "XFMT_TSAN and XFMT_SANITIZE cannot be combined")
elseif(XFMT_SANITIZE)
  set(XFMT_SANITIZER_COMPILE_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  set(XFMT_SANITIZER_LINK_FLAGS -fsanitize=address,undefined)
elseif(XFMT_TSAN)
  set(XFMT_SANITIZER_COMPILE_FLAGS -fsanitize=thread -fno-omit-frame-pointer)
  set(XFMT_SANITIZER_LINK_FLAGS -fsanitize=thread)
endif()

function(xfmt_sanitize target)
  if(NOT XFMT_SANITIZER_COMPILE_FLAGS)
    return()
  endif()
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    return()
  endif()
  target_compile_options(${target} PRIVATE ${XFMT_SANITIZER_COMPILE_FLAGS})
  if(type STREQUAL "STATIC_LIBRARY")
    # Whatever links the archive in this build needs the sanitizer runtime.
    target_link_options(${target} INTERFACE $<BUILD_INTERFACE:${XFMT_SANITIZER_LINK_FLAGS}>)
  elseif(NOT type STREQUAL "OBJECT_LIBRARY")
    target_link_options(${target} PRIVATE ${XFMT_SANITIZER_LINK_FLAGS})
  endif()
endfunction()
