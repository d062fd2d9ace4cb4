// The ten module tables, their entry routines, the module list and the
// loader (getep, xfload). Everything here is constant data: no constructor
// runs when the library loads.
#include "catalog/catalog.hpp"
#include "catalog/module_jazwfbin.hpp"
#include "catalog/module_jazwfdte.hpp"
#include "catalog/module_jazwfmsc.hpp"
#include "catalog/module_jazwfnls.hpp"
#include "catalog/module_jazwftme.hpp"
#include "catalog/module_jazwfuwf.hpp"
#include "catalog/module_jazwibin.hpp"
#include "catalog/module_jazwidte.hpp"
#include "catalog/module_jazwimsc.hpp"
#include "catalog/module_jazwiuwi.hpp"

namespace xfmt::catalog {
namespace {

template <std::size_t N>
constexpr fmtinfo info_of(const fmtinfo_eachfmt (&rows)[N]) {
  return fmtinfo{N, rows};
}

constinit const fmtinfo jazwfbin_info = info_of(jazwfbin_rows);
constinit const fmtinfo jazwfdte_info = info_of(jazwfdte_rows);
constinit const fmtinfo jazwfmsc_info = info_of(jazwfmsc_rows);
constinit const fmtinfo jazwfnls_info = info_of(jazwfnls_rows);
constinit const fmtinfo jazwftme_info = info_of(jazwftme_rows);
constinit const fmtinfo jazwfuwf_info = info_of(jazwfuwf_rows);
constinit const fmtinfo jazwibin_info = info_of(jazwibin_rows);
constinit const fmtinfo jazwidte_info = info_of(jazwidte_rows);
constinit const fmtinfo jazwimsc_info = info_of(jazwimsc_rows);
constinit const fmtinfo jazwiuwi_info = info_of(jazwiuwi_rows);

static_assert(sizeof(jazwfbin_rows) / sizeof(fmtinfo_eachfmt) == 15);
static_assert(sizeof(jazwfdte_rows) / sizeof(fmtinfo_eachfmt) == 99);
static_assert(sizeof(jazwfmsc_rows) / sizeof(fmtinfo_eachfmt) == 82);
static_assert(sizeof(jazwfnls_rows) / sizeof(fmtinfo_eachfmt) == 144);
static_assert(sizeof(jazwftme_rows) / sizeof(fmtinfo_eachfmt) == 10);
static_assert(sizeof(jazwfuwf_rows) / sizeof(fmtinfo_eachfmt) == 40);
static_assert(sizeof(jazwibin_rows) / sizeof(fmtinfo_eachfmt) == 32);
static_assert(sizeof(jazwidte_rows) / sizeof(fmtinfo_eachfmt) == 11);
static_assert(sizeof(jazwimsc_rows) / sizeof(fmtinfo_eachfmt) == 13);
static_assert(sizeof(jazwiuwi_rows) / sizeof(fmtinfo_eachfmt) == 104);

}  // namespace
}  // namespace xfmt::catalog

using namespace xfmt::catalog;

// Layout of the pinned records.
static_assert(sizeof(xf_frame) == 72);
static_assert(offsetof(xf_frame, input) == 8 && offsetof(xf_frame, output) == 24);
static_assert(offsetof(xf_frame, output_length) == 36 && offsetof(xf_frame, option_word) == 48);
static_assert(offsetof(xf_frame, option_flags) == 56 && offsetof(xf_frame, output_encoding) == 68);
static_assert(sizeof(fmtinfo_eachfmt) == 48);
static_assert(offsetof(fmtinfo_eachfmt, name_length) == 16);
static_assert(offsetof(fmtinfo_eachfmt, min_width) == 20);
static_assert(offsetof(fmtinfo_eachfmt, national) == 26);
static_assert(offsetof(fmtinfo_eachfmt, default_decimals) == 32);
static_assert(offsetof(fmtinfo_eachfmt, reserved) == 34);
static_assert(offsetof(fmtinfo_eachfmt, routine) == 40);
static_assert(sizeof(fmtposs_row) == 80);
static_assert(offsetof(fmtposs_row, module_name) == 8);
static_assert(offsetof(fmtposs_row, module_name_length) == 24);
static_assert(offsetof(fmtposs_row, row) == 32);
static_assert(sizeof(xf_ufmt_context) == 256);

extern "C" {

const fmtinfo *jazwfbin(void) { return &jazwfbin_info; }
const fmtinfo *jazwfdte(void) { return &jazwfdte_info; }
const fmtinfo *jazwfmsc(void) { return &jazwfmsc_info; }
const fmtinfo *jazwfnls(void) { return &jazwfnls_info; }
const fmtinfo *jazwftme(void) { return &jazwftme_info; }
const fmtinfo *jazwfuwf(void) { return &jazwfuwf_info; }
const fmtinfo *jazwibin(void) { return &jazwibin_info; }
const fmtinfo *jazwidte(void) { return &jazwidte_info; }
const fmtinfo *jazwimsc(void) { return &jazwimsc_info; }
const fmtinfo *jazwiuwi(void) { return &jazwiuwi_info; }

constinit const names_and_entries_row names_and_entries[10] = {
    {"JAZWFBIN", jazwfbin}, {"JAZWFDTE", jazwfdte}, {"JAZWFMSC", jazwfmsc},
    {"JAZWFNLS", jazwfnls}, {"JAZWFTME", jazwftme}, {"JAZWFUWF", jazwfuwf},
    {"JAZWIBIN", jazwibin}, {"JAZWIDTE", jazwidte}, {"JAZWIMSC", jazwimsc},
    {"JAZWIUWI", jazwiuwi},
};

xf_status get_fmt_poss_table(const fmtposs_row **table, uint64_t *count) {
  if (table) *table = fmtposs;
  if (count) *count = fmtposs_count;
  return XF_OK;
}

// The library keeps no process-wide anchor of user-defined formats.
void *get_fmt_cntl_anchor(void) { return nullptr; }

// Matches the first name_length bytes of each module name, first row to last;
// a length of 0 therefore matches the first module.
xf_status getep(void *anchor, const char *module_name, uint32_t name_length,
                const fmtinfo *(**entry)(void)) {
  (void)anchor;
  for (const names_and_entries_row &m : names_and_entries) {
    uint32_t i = 0;
    while (i < name_length && module_name[i] == m.module_name[i] && m.module_name[i] != '\0') ++i;
    if (i == name_length) {
      if (entry) *entry = m.entry;
      return XF_OK;
    }
  }
  return 1;
}

const fmtinfo *xfload(void *anchor, const char *module_name, uint32_t name_length,
                      xf_status *status) {
  const fmtinfo *(*entry)(void) = nullptr;
  xf_status st = getep(anchor, module_name, name_length, &entry);
  if (status) *status = st;
  if (st != XF_OK || entry == nullptr) return nullptr;
  return entry();
}

}  // extern "C"
