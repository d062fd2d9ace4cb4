# XFMT_SANITIZE builds every target with ASan and UBSan; UBSan findings abort.
if(XFMT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
