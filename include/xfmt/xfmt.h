/*
 * xfmt: value conversions for data-processing hosts.
 *
 * The only public header. It is C99 and C++ clean; every name declared with
 * XF_API is exported from libxfmt.so with C linkage, nothing else is.
 * Sections follow the subsystems: catalog and dispatch, numeric output,
 * dates and times, informats, user-defined formats, national language, text.
 *
 * Common contract of every conversion routine (xf_routine):
 *   - reads frame->width, frame->decimals and the value at frame->input;
 *   - writes at most frame->output_capacity bytes at frame->output and sets
 *     frame->output_length; never reads past frame->input_length;
 *   - keeps no state between calls, allocates nothing per value, never
 *     throws, aborts or prints; safe on any number of threads with distinct
 *     frames;
 *   - returns a status (XF_OK, XF_REDUCED, or one of the codes below).
 */
#ifndef XFMT_XFMT_H
#define XFMT_XFMT_H

#include <stddef.h>
#include <stdint.h>

#if defined(XFMT_BUILDING)
#define XF_API __attribute__((visibility("default")))
#else
#define XF_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ======================================================================
 * Catalog and dispatch
 * ====================================================================== */

typedef uint32_t xf_status;

/* Statuses shared by many conversions. */
#define XF_OK                 0u          /* success */
#define XF_REDUCED            2u          /* success with a reduced layout (fewer decimals) */
#define XF_UTF16_LABEL        25u         /* user-defined label delivered as UTF-16 */
#define XF_NL_WIDTH_LOW       39u         /* national formats: width below the minimum */
#define XF_NL_WIDTH_HIGH      40u         /* national formats: width above the maximum */
#define XF_NL_DECIMALS_LOW    41u         /* national formats: decimals below 0 */
#define XF_NL_DECIMALS_HIGH   42u         /* national formats: decimals above the maximum */
#define XF_E_NOT_BUILT        0x8001D801u /* the conversion has no routine in this library */
#define XF_E_DATE_RANGE       0x8001D815u /* date or time outside the valid range: field of '*' */
#define XF_E_HOURS_RANGE      0x8001D81Au /* TIME: hours beyond 2^53: field of '*' */
#define XF_E_CAPACITY         0x8001D826u /* width larger than the output capacity */
#define XF_E_OVERFLOW         0x8001D827u /* number does not fit: field of '*' */
#define XF_IN_RANGE_WARNING   0x2001u     /* informat: value outside the double range, missing stored */
#define XF_IN_INVALID         0x80002006u /* informat: invalid text, missing stored */
#define XF_IN_BAD_WIDTH       0x80002022u /* informat: bad width or decimals */

/* Option word of the frame: bits 0-15 the locale id of the national-language
 * conversions (0 or outside 1-136: the process locale chosen through
 * ZAV_LOCALE), bit 16 asks them to validate width and decimals. */
#define XF_OPT_LOCALE_MASK    0xFFFFull
#define XF_OPT_VALIDATE       0x10000ull

/* Option flags of the frame. */
#define XF_FLAG_NESTED        2u   /* set around a nested call on the same frame */
#define XF_FLAG_MULTILABEL    4u   /* user formats: collect every matching label */
#define XF_FLAG_UNFORMATTED   8u   /* user formats: the value matched nothing */
#define XF_FLAG_COMMA_INNER   16u  /* set by COMMA around its inner call */

/* Encodings of the frame. */
#define XF_ENC_SINGLE_BYTE    0u
#define XF_ENC_UTF16BE        24u
#define XF_ENC_UTF16LE        25u

typedef struct xf_frame {            /* offset */
    int32_t     width;               /*  0  w */
    int32_t     decimals;            /*  4  d */
    const void *input;               /*  8  double* or text */
    uint32_t    input_length;        /* 16  bytes (8 for a double) */
    void       *output;              /* 24  caller's buffer */
    uint32_t    output_capacity;     /* 32  bytes at output */
    uint32_t    output_length;       /* 36  set by the routine */
    uint64_t    reserved;            /* 40 */
    uint64_t    option_word;         /* 48  locale id, validation request */
    uint32_t    option_flags;        /* 56  XF_FLAG_* */
    uint32_t    input_encoding;      /* 60  0 single-byte, 24/25 UTF-16 */
    uint32_t    requested_output_encoding; /* 64  25 = host wants UTF-16LE */
    uint32_t    output_encoding;     /* 68  25 when output holds UTF-16LE */
} xf_frame;                          /* sizeof == 72 */

typedef xf_status (*xf_routine)(xf_frame *frame);

/* One conversion of a module table: 48 bytes. The eight bytes from
 * min_width and the eight from national form the width block. */
typedef struct fmtinfo_eachfmt {
    char       name[16];             /*  0  upper case, blank padded to 8, then NUL */
    uint32_t   name_length;          /* 16 */
    uint16_t   min_width;            /* 20 */
    uint16_t   max_width;            /* 22  32767: unbounded character conversion */
    uint16_t   default_width;        /* 24 */
    uint16_t   national;             /* 26  carried for the host */
    uint16_t   min_decimals;         /* 28 */
    uint16_t   max_decimals;         /* 30 */
    uint16_t   default_decimals;     /* 32 */
    uint8_t    reserved[6];          /* 34 */
    xf_routine routine;              /* 40  NULL: no conversion in this library */
} fmtinfo_eachfmt;

/* A module table as its entry routine returns it. */
typedef struct fmtinfo {
    uint64_t               count;
    const fmtinfo_eachfmt *rows;
} fmtinfo;

/* A possible-format row, and the catalog handle of the same shape: 80 bytes. */
typedef struct fmtposs_row {
    uint64_t        link;                /*  0  0 in the table; handle: 0 or itself */
    char            module_name[16];     /*  8  e.g. "JAZWFMSC", NUL padded */
    uint32_t        module_name_length;  /* 24  8; 1 in an intrinsic row */
    uint32_t        alignment;           /* 28 */
    fmtinfo_eachfmt row;                 /* 32 */
} fmtposs_row;

/* One row of the module list. */
typedef struct names_and_entries_row {
    const char      *module_name;        /* NUL-terminated */
    const fmtinfo *(*entry)(void);
} names_and_entries_row;

/* User-format context handed to xfname2: at most 256 bytes; all zero asks
 * for the control file "cntlout.xml" in the current directory. */
typedef struct xf_ufmt_context {
    void       *control;         /*   0  loaded control block, or NULL */
    uint32_t    read_from_file;  /*   8  nonzero: the control block must be read anew */
    uint32_t    source;          /*  12  5 in-memory catalog, 3 native, 4 transport, else control file */
    void       *word1;           /*  16  first context word, copied into the user handle */
    void       *word2;           /*  24  second context word, copied into the user handle */
    const char *control_path;    /*  32  NULL: "cntlout.xml" in the current directory */
    char        library[8];      /*  40  library name, blank padded ("INMEMORY", ...) */
    uint8_t     reserved[208];   /*  48 */
} xf_ufmt_context;               /* sizeof == 256 */

/* --- Catalog tables (constant data) ----------------------------------- */

/* The 548 possible-format rows, grouped by module. */
XF_API extern const fmtposs_row fmtposs[548];
/* The ten modules and their entry routines, in search order. */
XF_API extern const names_and_entries_row names_and_entries[10];

/* Module entry routines: each returns its module's table; stateless. */
XF_API const fmtinfo *jazwfbin(void);
XF_API const fmtinfo *jazwfdte(void);
XF_API const fmtinfo *jazwfmsc(void);
XF_API const fmtinfo *jazwfnls(void);
XF_API const fmtinfo *jazwftme(void);
XF_API const fmtinfo *jazwfuwf(void);
XF_API const fmtinfo *jazwibin(void);
XF_API const fmtinfo *jazwidte(void);
XF_API const fmtinfo *jazwimsc(void);
XF_API const fmtinfo *jazwiuwi(void);

/* Stores the address of fmtposs and 548; returns 0. */
XF_API xf_status get_fmt_poss_table(const fmtposs_row **table, uint64_t *count);
/* The process-wide anchor of user-defined formats: always NULL here. */
XF_API void *get_fmt_cntl_anchor(void);
/* Finds the module whose name starts with the first name_length bytes given
 * (first row to last) and stores its entry routine; 0 found, 1 not found.
 * The anchor is not used. */
XF_API xf_status getep(void *anchor, const char *module_name, uint32_t name_length,
                       const fmtinfo *(**entry)(void));
/* getep, then the entry routine: the module's table, or NULL with *status 1. */
XF_API const fmtinfo *xfload(void *anchor, const char *module_name, uint32_t name_length,
                             xf_status *status);

/* ======================================================================
 * Numeric output formats
 * ====================================================================== */

/* ======================================================================
 * Dates and times
 * ====================================================================== */

/* ======================================================================
 * Informats
 * ====================================================================== */

/* ======================================================================
 * User-defined formats
 * ====================================================================== */

/* ======================================================================
 * National language
 * ====================================================================== */

/* ======================================================================
 * Text and encodings
 * ====================================================================== */

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* XFMT_XFMT_H */
