/* A C host applying user-defined formats: it loads libxfmt.so, reads the
 * formats of cntlout.xml in the current folder (an all-zero context), and
 * prints a few values through each. It also hands over a format of its own
 * as an in-memory catalog (context source 5).
 *   cd examples && ../build/example_user_formats ../build/libxfmt.so
 * Exits with 1 when a result differs from the one printed beside it. */
#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

#include "xfmt/xfmt.h"

typedef xf_status (*name2_fn)(const char *, int32_t, int32_t, void *, void **, void *);
typedef xf_status (*fmt_fn)(xf_frame *, void *);
typedef xf_status (*del_fn)(void *);
typedef void (*key_fn)(double, uint8_t *);

static name2_fn p_xfname2;
static fmt_fn p_xffmt;
static del_fn p_xfdel;
static key_fn p_key;
static int failures = 0;

static void load(void *lib, const char *name, void *fn, size_t size) {
  void *sym = dlsym(lib, name);
  if (sym == NULL) {
    fprintf(stderr, "user_formats: %s is not exported\n", name);
    ++failures;
  }
  memcpy(fn, &sym, size);
}

/* Formats a number (text == NULL) or a text with the named format. */
static void show(const char *name, double value, const char *text, int32_t width, void *context,
                 const char *want) {
  void *handle = NULL;
  char out[64];
  xf_frame f;
  xf_status st;
  uint16_t widths[8];
  if (p_xfname2(name, (int32_t)strlen(name), 0, widths, &handle, context) != 0) {
    printf("%-8s not found\n", name);
    ++failures;
    return;
  }
  memset(&f, 0, sizeof f);
  f.width = width;
  if (text != NULL) {
    f.input = text;
    f.input_length = (uint32_t)strlen(text);
  } else {
    f.input = &value;
    f.input_length = 8;
  }
  f.output = out;
  f.output_capacity = (uint32_t)width;
  st = p_xffmt(&f, handle);
  printf("%-8s [%.*s] status %u\n", name, (int)f.output_length, out, (unsigned)st);
  if (strlen(want) != f.output_length || memcmp(want, out, f.output_length) != 0) {
    printf("         expected [%s]\n", want);
    ++failures;
  }
  /* Character handles ("+") stay with the host's catalog and are not freed by
   * xfdel; this short-lived host lets them go with the process. */
  p_xfdel(handle);
}

int main(int argc, char **argv) {
  const char *path = argc > 1 ? argv[1] : "libxfmt.so";
  void *lib = dlopen(path, RTLD_NOW);
  xf_ufmt_context file_ctx, mem_ctx;
  xf_user_format headers[2];
  xf_range_numeric entry;
  const void *ranges[1];
  struct { xf_label_text head; uint16_t text[3]; } label;
  if (lib == NULL) {
    fprintf(stderr, "user_formats: %s\n", dlerror());
    return 2;
  }
  load(lib, "xfname2", &p_xfname2, sizeof p_xfname2);
  load(lib, "xffmt", &p_xffmt, sizeof p_xffmt);
  load(lib, "xfdel", &p_xfdel, sizeof p_xfdel);
  load(lib, "xf_numeric_key", &p_key, sizeof p_key);
  if (failures) return 1;

  memset(&file_ctx, 0, sizeof file_ctx); /* cntlout.xml here */
  show("AGEGRP", 15, NULL, 12, &file_ctx, "teen & young");
  show("AGEGRP", 70, NULL, 8, &file_ctx, "adult   ");
  show("YESNO", 1, NULL, 3, &file_ctx, "Yes");
  show("$REGION", 0, "W", 5, &file_ctx, "West ");
  show("MONEY", 1234.5, NULL, 14, &file_ctx, "     $1,234.50");
  show("STAMP", 0, NULL, 10, &file_ctx, "1960-01-01");

  /* A catalog of one format, ODD: 1 to 9 (9 excluded) is "odd". */
  memset(headers, 0, sizeof headers);
  memcpy(headers[0].marker, "00000000", 8);
  memset(headers[1].marker, ' ', 8);
  memset(headers[1].name, ' ', 32);
  memcpy(headers[1].name, "ODD", 3);
  headers[1].kind = 1;
  headers[1].range_count = 1;
  headers[1].linear_search = 1;
  headers[1].min_width = 1;
  headers[1].max_width = 10;
  headers[1].default_width = 3;
  memset(&label, 0, sizeof label);
  label.head.label_kind = XF_LABEL_TEXT;
  label.head.length = 3;
  label.text[0] = 'o';
  label.text[1] = 'd';
  label.text[2] = 'd';
  memset(&entry, 0, sizeof entry);
  entry.entry_kind = XF_RANGE_NUMERIC;
  entry.flags = XF_RANGE_END_EXCL;
  entry.label = &label;
  p_key(1, entry.start_key);
  p_key(1, entry.low_key);
  p_key(9, entry.end_key);
  p_key(9, entry.high_key);
  ranges[0] = &entry;
  memset(&mem_ctx, 0, sizeof mem_ctx);
  mem_ctx.source = 5;
  mem_ctx.catalog = headers;
  mem_ctx.catalog_ranges = ranges;
  show("ODD", 3, NULL, 4, &mem_ctx, "odd ");
  show("ODD", 9, NULL, 4, &mem_ctx, "   9");

  dlclose(lib);
  return failures ? 1 : 0;
}
