/* Links libxfmt directly: resolves $CHAR, formats one text, releases the handle. */
#include <stdio.h>
#include <string.h>

#include <xfmt/xfmt.h>

int main(void) {
  void *h = NULL;
  uint16_t block[8];
  char out[6];
  xf_frame f;
  if (xfinit() != 0 || xfname("$CHAR", 5, 0, block, &h) != 0) return 1;
  memset(&f, 0, sizeof f);
  f.width = 6;
  f.input = "xfmt";
  f.input_length = 4;
  f.output = out;
  f.output_capacity = sizeof out;
  if (xffmt(&f, h) != 0 || f.output_length != 6 || memcmp(out, "xfmt  ", 6) != 0) return 1;
  xfdel(h);
  printf("[%.6s]\n", out);
  return 0;
}
