// The UTF-8 lookup tables: sequence length, lead and continuation validity,
// and the value bits of a lead byte by sequence length.
#include "xfmt/xfmt.h"

// Sixteen equal entries: each row of the tables below covers 16 bytes.
#define XF_R16(v) v, v, v, v, v, v, v, v, v, v, v, v, v, v, v, v

extern "C" {

// 0x80-0xBF are continuation bytes; met as a lead they stand alone (length 1).
const uint8_t bytesFromUTF8[256] = {
    XF_R16(1), XF_R16(1), XF_R16(1), XF_R16(1),  // 0x00-0x3F
    XF_R16(1), XF_R16(1), XF_R16(1), XF_R16(1),  // 0x40-0x7F
    XF_R16(1), XF_R16(1), XF_R16(1), XF_R16(1),  // 0x80-0xBF
    XF_R16(2), XF_R16(2),                        // 0xC0-0xDF
    XF_R16(3),                                   // 0xE0-0xEF
    4, 4, 4, 4, 4, 4, 4, 4, 5, 5, 5, 5, 6, 6, 6, 6,  // 0xF0-0xFF
};

// 0xC0 and 0xC1 could only start overlong forms of ASCII, 0xF5 and up only
// code points beyond U+10FFFF.
const uint8_t valid_1st_utf8[256] = {
    XF_R16(1), XF_R16(1), XF_R16(1), XF_R16(1),  // 0x00-0x3F
    XF_R16(1), XF_R16(1), XF_R16(1), XF_R16(1),  // 0x40-0x7F
    XF_R16(0), XF_R16(0), XF_R16(0), XF_R16(0),  // 0x80-0xBF
    0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0xC0-0xCF
    XF_R16(1), XF_R16(1),                        // 0xD0-0xEF
    1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // 0xF0-0xFF
};

const uint8_t valid_2nd_utf8[256] = {
    XF_R16(0), XF_R16(0), XF_R16(0), XF_R16(0),  // 0x00-0x3F
    XF_R16(0), XF_R16(0), XF_R16(0), XF_R16(0),  // 0x40-0x7F
    XF_R16(1), XF_R16(1), XF_R16(1), XF_R16(1),  // 0x80-0xBF
    XF_R16(0), XF_R16(0), XF_R16(0), XF_R16(0),  // 0xC0-0xFF
};

// Indexed by sequence length 1-6; entry 0 is not used.
const uint8_t utf8_mask[7] = {0x00, 0x7F, 0x1F, 0x0F, 0x07, 0x03, 0x01};

}  // extern "C"

#undef XF_R16
