/* A small host: loads libxfmt.so at run time, resolves F8.2 and DATE9.,
 * formats a few values with each and releases the handles.
 *
 *   example_host [PATH-TO-LIBXFMT.SO]     (default: libxfmt.so on the loader path)
 *
 * Only the public header is needed to build it; the library is found by
 * dlopen, as a statistics host would load it. */
#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

#include "xfmt/xfmt.h"

typedef xf_status (*init_fn)(void);
typedef xf_status (*name_fn)(const char *, int32_t, int32_t, void *, void **);
typedef xf_status (*fmt_fn)(xf_frame *, void *);
typedef xf_status (*del_fn)(void *);

static init_fn p_xfinit;
static name_fn p_xfname;
static fmt_fn p_xffmt;
static del_fn p_xfdel;

/* ISO C cannot cast dlsym's object pointer to a function pointer; copying
 * the bytes can. */
static int load(void *lib, const char *name, void *fn, size_t size) {
  void *sym = dlsym(lib, name);
  if (sym == NULL) {
    fprintf(stderr, "host: %s not found: %s\n", name, dlerror());
    return 0;
  }
  memcpy(fn, &sym, size);
  return 1;
}

/* Formats each value with the named conversion at width w, decimals d. */
static void show(const char *name, int32_t w, int32_t d, const double *values, int n) {
  uint16_t limits[8]; /* min w, max w, default w, national, min d, max d, default d, 0 */
  void *handle = NULL;
  char spec[40];
  int i;
  /* As people write it: F8.2, DATE9. */
  if (d > 0) sprintf(spec, "%.16s%d.%d", name, (int)w, (int)d);
  else sprintf(spec, "%.16s%d.", name, (int)w);
  if (p_xfname(name, (int32_t)strlen(name), 0, limits, &handle) != 0) {
    printf("%s: unknown name\n", name);
    return;
  }
  if (w < limits[0] || w > limits[1] || d < limits[4] || d > limits[5]) {
    printf("%s: outside the limits w %u-%u, d %u-%u\n", spec, limits[0], limits[1], limits[4], limits[5]);
    p_xfdel(handle);
    return;
  }
  for (i = 0; i < n; ++i) {
    char out[64];
    xf_frame f;
    xf_status st;
    memset(&f, 0, sizeof f);
    f.width = w;
    f.decimals = d;
    f.input = &values[i];
    f.input_length = sizeof values[i];
    f.output = out;
    f.output_capacity = (uint32_t)w;
    st = p_xffmt(&f, handle);
    if (st == XF_E_NOT_BUILT) {
      printf("%s: not built in this library\n", spec);
      break;
    }
    printf("%-8s %-12g -> [%.*s]  status %u\n", spec, values[i], (int)f.output_length, out, (unsigned)st);
  }
  p_xfdel(handle);
}

int main(int argc, char **argv) {
  const char *path = argc > 1 ? argv[1] : "libxfmt.so";
  const double numbers[] = {3.14159, -1234.5, 0.005, 1e9};
  const double dates[] = {0, 23451, -365};  /* days since 1 January 1960 */
  void *lib = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (lib == NULL) {
    fprintf(stderr, "host: %s\n", dlerror());
    return 1;
  }
  if (!load(lib, "xfinit", &p_xfinit, sizeof p_xfinit) || !load(lib, "xfname", &p_xfname, sizeof p_xfname) ||
      !load(lib, "xffmt", &p_xffmt, sizeof p_xffmt) || !load(lib, "xfdel", &p_xfdel, sizeof p_xfdel)) {
    dlclose(lib);
    return 1;
  }
  p_xfinit();
  show("F", 8, 2, numbers, 4);
  show("DATE", 9, 0, dates, 3);
  dlclose(lib);
  return 0;
}
