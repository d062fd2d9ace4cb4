# XFMT_SANITIZE builds every target with ASan and UBSan; UBSan findings abort.
if(XFMT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# XFMT_TSAN builds every target with ThreadSanitizer (not together with
# XFMT_SANITIZE): CI runs the thread tests under it.
if(XFMT_TSAN)
  if(XFMT_SANITIZE)
    message(FATAL_ERROR "XFMT_TSAN and XFMT_SANITIZE cannot be combined")
  endif()
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()
