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
typedef const fmtinfo *(*load_fn)(void *, const char *, uint32_t, xf_status *);

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

/* The module row a possible-format row names, looked up through xfload. */
static const fmtinfo_eachfmt *module_row(load_fn load_module, const fmtposs_row *p) {
  xf_status st = 1;
  const fmtinfo *m = load_module(NULL, p->module_name, p->module_name_length, &st);
  uint64_t i;
  if (m == NULL || st != 0) return NULL;
  for (i = 0; i < m->count; ++i)
    if (m->rows[i].name_length == p->row.name_length &&
        memcmp(m->rows[i].name, p->row.name, p->row.name_length) == 0)
      return &m->rows[i];
  return NULL;
}

/* Every possible-format name resolves, as written and (for "@" names) as an
 * informat request without the "@", to its module and its module row's
 * limits. Returns the number of names checked. */
static int resolve_every_name(const fmtposs_row *table, name_fn name, del_fn del, load_fn load_module) {
  int i, n = 0;
  for (i = 0; i < 548; ++i) {
    const fmtposs_row *p = &table[i];
    const fmtinfo_eachfmt *r = module_row(load_module, p);
    uint16_t b[8];
    void *h = NULL;
    CHECK(r != NULL);
    if (r == NULL) continue;
    CHECK(name(p->row.name, (int32_t)p->row.name_length, 0, b, &h) == 0);
    if (h == NULL) continue;
    CHECK(memcmp(((const fmtposs_row *)h)->module_name, p->module_name, 8) == 0);
    CHECK(b[0] == r->min_width && b[1] == r->max_width && b[2] == r->default_width);
    CHECK(b[3] == r->national && b[4] == r->min_decimals && b[5] == r->max_decimals);
    CHECK(b[6] == r->default_decimals && b[7] == 0);
    CHECK(del(h) == 0);
    if (p->row.name[0] == '@') {
      void *h2 = NULL;
      CHECK(name(p->row.name + 1, (int32_t)p->row.name_length - 1, 73, b, &h2) == 0);
      CHECK(h2 != NULL && memcmp(((const fmtposs_row *)h2)->row.name, p->row.name, p->row.name_length) == 0);
      if (h2 != NULL) CHECK(del(h2) == 0);
    }
    ++n;
  }
  return n;
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
  load_fn load_module = NULL;
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
  load(lib, "xfload", &load_module, sizeof load_module);
  if (failures) return 1;
  poss_table = (const fmtposs_row *)dlsym(lib, "fmtposs");
  CHECK(poss_table != NULL);
  CHECK(dlsym(lib, "crashfmt") != NULL);
  CHECK(dlsym(lib, "zfmchar") != NULL);
  /* Internal C++ names stay hidden. */
  CHECK(dlsym(lib, "_ZN4xfmt11status_nameEj") == NULL);

  CHECK(init() == 0);
  if (poss_table != NULL) CHECK(resolve_every_name(poss_table, name, del, load_module) == 548);
  /* The three intrinsic names and the character shorthands. */
  CHECK(name("_C_R_A_S_H_", 11, 0, block, &intr) == 0 && intr != NULL);
  check_block(block, 1, 1, 1, 0);
  CHECK(name("INTRINSIC-CRDATE", 16, 0, block, &intr) == 0 && intr != NULL);
  check_block(block, 20, 20, 20, 0);
  CHECK(name("$", 1, 0, block, &h) == 0 && h != NULL);
  check_block(block, 1, 32767, 8, 0);
  if (h != NULL) CHECK(del(h) == 0);
  CHECK(name("$F", 2, 0, block, &h) == 0 && h != NULL);
  check_block(block, 1, 32767, 8, 0);
  if (h != NULL) CHECK(del(h) == 0);
  CHECK(name("@$F", 3, 0, block, &h) == 1 && h == NULL);

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
