// The possible-format table: every name a host may resolve, with the module
// that owns it, grouped by module. Its rows come from the module tables
// (fmtposs_builder.hpp), so a conversion is written down once.
#include "catalog/catalog.hpp"
#include "catalog/fmtposs_builder.hpp"

namespace {

constexpr std::array<fmtposs_row, xfmt::catalog::fmtposs_count> built =
    xfmt::catalog::build_fmtposs();

}  // namespace

// The exported table is a plain C array, which no std::array initialises;
// these spell out its elements, four at a time.
#define XF_POSS_4(i) built[i], built[i + 1], built[i + 2], built[i + 3]
#define XF_POSS_16(i) XF_POSS_4(i), XF_POSS_4(i + 4), XF_POSS_4(i + 8), XF_POSS_4(i + 12)
#define XF_POSS_64(i) XF_POSS_16(i), XF_POSS_16(i + 16), XF_POSS_16(i + 32), XF_POSS_16(i + 48)
#define XF_POSS_256(i) XF_POSS_64(i), XF_POSS_64(i + 64), XF_POSS_64(i + 128), XF_POSS_64(i + 192)

static_assert(xfmt::catalog::fmtposs_count == 256 + 256 + 16 + 16 + 4);
extern "C" constinit const fmtposs_row fmtposs[548] = {
    XF_POSS_256(0), XF_POSS_256(256), XF_POSS_16(512), XF_POSS_16(528), XF_POSS_4(544),
};

#undef XF_POSS_4
#undef XF_POSS_16
#undef XF_POSS_64
#undef XF_POSS_256
