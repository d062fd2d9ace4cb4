/* A C99 host built from the public header alone: loads libxfmt.so with
 * dlopen, checks the pinned layouts, resolves names, formats through xffmt
 * and releases its handles. Usage: abi_host PATH-TO-LIBXFMT.SO */
#include <dlfcn.h>
#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include "xfmt/xfmt.h"

/* Compile-time layout checks: a negative array size fails the build. */
#define LAYOUT(name, cond) typedef char layout_##name[(cond) ? 1 : -1]
LAYOUT(frame_size, sizeof(xf_frame) == 72);
LAYOUT(frame_input, offsetof(xf_frame, input) == 8);
LAYOUT(frame_input_length, offsetof(xf_frame, input_length) == 16);
LAYOUT(frame_output, offsetof(xf_frame, output) == 24);
LAYOUT(frame_capacity, offsetof(xf_frame, output_capacity) == 32);
LAYOUT(frame_length, offsetof(xf_frame, output_length) == 36);
LAYOUT(frame_reserved, offsetof(xf_frame, reserved) == 40);
LAYOUT(frame_option_word, offsetof(xf_frame, option_word) == 48);
LAYOUT(frame_flags, offsetof(xf_frame, option_flags) == 56);
LAYOUT(frame_in_enc, offsetof(xf_frame, input_encoding) == 60);
LAYOUT(frame_req_enc, offsetof(xf_frame, requested_output_encoding) == 64);
LAYOUT(frame_out_enc, offsetof(xf_frame, output_encoding) == 68);
LAYOUT(row_size, sizeof(fmtinfo_eachfmt) == 48);
LAYOUT(row_name_length, offsetof(fmtinfo_eachfmt, name_length) == 16);
LAYOUT(row_min_width, offsetof(fmtinfo_eachfmt, min_width) == 20);
LAYOUT(row_national, offsetof(fmtinfo_eachfmt, national) == 26);
LAYOUT(row_default_decimals, offsetof(fmtinfo_eachfmt, default_decimals) == 32);
LAYOUT(row_routine, offsetof(fmtinfo_eachfmt, routine) == 40);
LAYOUT(poss_size, sizeof(fmtposs_row) == 80);
LAYOUT(poss_module, offsetof(fmtposs_row, module_name) == 8);
LAYOUT(poss_module_length, offsetof(fmtposs_row, module_name_length) == 24);
LAYOUT(poss_row, offsetof(fmtposs_row, row) == 32);
LAYOUT(context_size, sizeof(xf_ufmt_context) == 256);
LAYOUT(user_handle_size, sizeof(xf_user_handle) == 104);

typedef xf_status (*name_fn)(const char *, int32_t, int32_t, void *, void **);
typedef xf_status (*fmt_fn)(xf_frame *, void *);
typedef xf_status (*del_fn)(void *);
typedef xf_status (*init_fn)(void);

static int failures = 0;

#define CHECK(cond)                                                        \
  do {                                                                     \
    if (!(cond)) {                                                         \
      fprintf(stderr, "abi_host: %s:%d: %s\n", __FILE__, __LINE__, #cond); \
      ++failures;                                                          \
    }                                                                      \
  } while (0)

/* ISO C has no conversion from an object pointer to a function pointer;
 * copying the bytes is the portable spelling of what dlsym hands back. */
static void load(void *lib, const char *name, void *fn, size_t size) {
  void *sym = dlsym(lib, name);
  if (sym == NULL) {
    fprintf(stderr, "abi_host: %s is not exported\n", name);
    ++failures;
  }
  memcpy(fn, &sym, size);
}

static void check_block(const uint16_t *b, unsigned min_w, unsigned max_w, unsigned def_w, unsigned max_d) {
  CHECK(b[0] == min_w);
  CHECK(b[1] == max_w);
  CHECK(b[2] == def_w);
  CHECK(b[5] == max_d);
  CHECK(b[7] == 0);
}

int main(int argc, char **argv) {
  void *lib;
  init_fn init = NULL;
  name_fn name = NULL;
  fmt_fn fmt = NULL;
  del_fn del = NULL;
  uint16_t block[8];
  void *h = NULL;
  void *intr = NULL;
  xf_frame f;
  char out[16];
  const char *text = "hello";
  const fmtposs_row *row;
  const fmtposs_row *poss_table = NULL;

  if (argc != 2) {
    fprintf(stderr, "usage: abi_host PATH-TO-LIBXFMT.SO\n");
    return 2;
  }
  lib = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (lib == NULL) {
    fprintf(stderr, "abi_host: %s\n", dlerror());
    return 1;
  }
  load(lib, "xfinit", &init, sizeof init);
  load(lib, "xfname", &name, sizeof name);
  load(lib, "xffmt", &fmt, sizeof fmt);
  load(lib, "xfdel", &del, sizeof del);
  if (failures) return 1;
  poss_table = (const fmtposs_row *)dlsym(lib, "fmtposs");
  CHECK(poss_table != NULL);
  CHECK(dlsym(lib, "crashfmt") != NULL);
  CHECK(dlsym(lib, "zfmchar") != NULL);
  /* Internal C++ names stay hidden. */
  CHECK(dlsym(lib, "_ZN4xfmt11status_nameEj") == NULL);

  CHECK(init() == 0);

  /* Width blocks. */
  CHECK(name("DATE", 4, 0, block, &h) == 0);
  check_block(block, 5, 11, 7, 0);
  row = (const fmtposs_row *)h;
  CHECK(row != NULL && row->link == 0 && memcmp(row->module_name, "JAZWFDTE", 8) == 0);
  CHECK(row != NULL && row->row.name_length == 4);
  CHECK(del(h) == 0);
  CHECK(name("PIBR", 4, 0, block, &h) == 0);
  check_block(block, 1, 8, 1, 10);
  CHECK(del(h) == 0);
  CHECK(name("COMMA", 5, 73, block, &h) == 0);
  CHECK(h != NULL && memcmp(((const fmtposs_row *)h)->row.name, "@COMMA", 6) == 0);
  CHECK(del(h) == 0);
  CHECK(name("NOSUCH", 6, 0, block, &h) == 1 && h == NULL);
  CHECK(name("DATE ", 5, 0, block, &h) == 1 && h == NULL);

  /* $CHAR through the shorthand, into an exact-size field. */
  CHECK(name("$f", 2, 0, block, &h) == 0);
  check_block(block, 1, 32767, 8, 0);
  memset(&f, 0, sizeof f);
  memset(out, '#', sizeof out);
  f.width = 8;
  f.input = text;
  f.input_length = 5;
  f.output = out;
  f.output_capacity = 8;
  CHECK(fmt(&f, h) == 0);
  CHECK(f.output_length == 8 && memcmp(out, "hello   ", 8) == 0 && out[8] == '#');
  CHECK(del(h) == 0);

  /* Intrinsic rows: static, recognised by a blank kind byte and module name
   * length 1, never released. */
  CHECK(name("$IS-INTRINSIC", 13, 0, block, &intr) == 0);
  check_block(block, 3, 3, 3, 0);
  row = (const fmtposs_row *)intr;
  CHECK(row != NULL && row->module_name[0] == ' ' && row->module_name_length == 1);
  f.width = 3;
  f.input = "date";
  f.input_length = 4;
  f.output_capacity = 3;
  CHECK(fmt(&f, intr) == 0);
  CHECK(f.output_length == 3 && memcmp(out, "YES", 3) == 0);
  f.input = "---NUMFMT------";
  f.input_length = 15;
  CHECK(fmt(&f, intr) == 0);
  CHECK(memcmp(out, "NO ", 3) == 0);

  /* A routine-less row reports it and writes nothing. */
  CHECK(name("---NUMFMT------", 15, 0, block, &h) == 0);
  memset(out, '#', sizeof out);
  f.output_length = 0;
  CHECK(fmt(&f, h) == XF_E_NOT_BUILT);
  CHECK(f.output_length == 0 && out[0] == '#');
  CHECK(del(h) == 0);

  dlclose(lib);
  if (failures) {
    fprintf(stderr, "abi_host: %d check(s) failed\n", failures);
    return 1;
  }
  printf("abi_host: all checks passed\n");
  return 0;
}
