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
#define XF_E_NULL_ARGUMENT    0x8001D802u /* xffmt: the frame or the handle is NULL */
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
    const struct xf_user_format *catalog;   /*  48  source 5: the anchor header of an
                                             *      in-memory catalog (see "User-defined formats") */
    const void *const *catalog_ranges;      /*  56  source 5: range pointers of the first
                                             *      format after the anchor */
    uint8_t     reserved[192];   /*  64  zero */
} xf_ufmt_context;               /* sizeof == 256 */

/* Value-label routine of a user-defined handle: called by xffmt with the
 * frame and the handle's two context words (the format header and its
 * range-pointer array). */
typedef xf_status (*xf_label_routine)(xf_frame *frame, void *header, void *ranges);

/* A user-defined handle. Its kind byte sits where a catalog handle has the
 * first letter of its module name, so xffmt tells the two apart by it. */
typedef struct xf_user_handle {
    uint64_t         link;           /*   0  the record itself */
    char             kind;           /*   8  '+' character format, '-' numeric */
    uint8_t          reserved1[3];   /*   9 */
    uint32_t         one;            /*  12  always 1 */
    char             name[32];       /*  16  blank padded */
    uint32_t         name_length;    /*  48 */
    uint16_t         min_width;      /*  52 */
    uint16_t         max_width;      /*  54 */
    uint16_t         default_width;  /*  56 */
    uint16_t         reserved2;      /*  58 */
    uint32_t         reserved3;      /*  60 */
    xf_label_routine routine;        /*  64  chosen by setfptr */
    void            *header;         /*  72  the format's control block */
    void            *ranges;         /*  80  second context word: its range pointers */
    void            *chain_first;    /*  88  first block of the allocation chain */
    void            *chain_last;     /*  96  last block of the allocation chain */
} xf_user_handle;                    /* sizeof == 104 */

/* --- Entry points ------------------------------------------------------ */

/* Initialise the library; nothing needs doing; both return 0. */
XF_API xf_status xfinit(void);
XF_API xf_status xfinit2(void);
/* Resolve a conversion name (length significant bytes, no terminator needed,
 * case sensitive; "$", "$F" and "$f" stand for "$CHAR") to a handle. kind 73
 * ('I') asks for an informat: "@" is put before the name. On success returns
 * 0, stores the handle and, when width_block is not NULL, writes 16 bytes:
 * min w, max w, default w, national flag, min d, max d, default d, 0 (u16
 * each; a user-defined format gives its three widths, then zeros). Unknown
 * names (and a NULL name, a length below 1 or above 63) return 1 and leave
 * *handle NULL. The handle is a new 80-byte record (release it with xfdel)
 * or, for "_C_R_A_S_H_", "INTRINSIC-CRDATE" and "$IS-INTRINSIC", a static
 * row (never release it).
 * xfname and xfname2 set *handle to NULL first; xfname2 also reads
 * user-defined formats through the context (a xf_ufmt_context). xfname3,
 * their worker, refreshes the record *handle points at when it is not NULL
 * (an 80-byte fmtposs_row, or a 104-byte xf_user_handle for a user-defined
 * format): the copy's link then points at itself, xffmt converts on the
 * caller's own frame with it and xfdel leaves it alone. A NULL handle asks
 * for the width block only. Allocates only the handle (and the records of a
 * user-defined format); thread safe. */
XF_API xf_status xfname (const char *name, int32_t length, int32_t kind,
                         void *width_block, void **handle);
XF_API xf_status xfname2(const char *name, int32_t length, int32_t kind,
                         void *width_block, void **handle, void *context);
XF_API xf_status xfname3(const char *name, int32_t length, int32_t kind,
                         void *width_block, void **handle, void *context);
/* Convert one value with a handle; returns the conversion's status, or
 * XF_E_NOT_BUILT (nothing written) when the handle has no routine, or
 * XF_E_NULL_ARGUMENT. A handle from xfname converts on a copy of the frame
 * whose three encoding fields are zero; only the output length comes back.
 * A refreshed handle converts on the frame itself: after status 0 or 2 a
 * request for encoding 25 widens single-byte output to UTF-16LE through the
 * Windows-1252 table when the result fits 512 bytes and the capacity
 * (output length doubled, output encoding 25). A user-defined character
 * format reads single-byte input as UTF-16 (widened into a local buffer, at
 * most 512 units; the routine sees the length in units); its UTF-16 output
 * reaches a host that asked for no UTF-16 as UTF-8 (at most 256 bytes and
 * the capacity, whole characters). Never allocates. */
XF_API xf_status xffmt  (xf_frame *frame, void *handle);
/* Release a handle; returns 0. A "-" user-defined handle frees its whole
 * allocation chain; a handle with link 0 (from xfname) is freed as one
 * block; a handle with a nonzero link (a refreshed record, a "+"
 * user-defined handle) and the static intrinsic rows are left alone. */
XF_API xf_status xfdel  (void *handle);
/* Release any handle, a "+" user-defined handle included (xfdel leaves those
 * to their owner, so this is how a host frees a character user-defined
 * format): a user-defined handle ("+" or "-") frees its whole allocation
 * chain (a record refreshed in the caller's storage stays where it is, the
 * chain anchored to it goes); any other handle is released as by xfdel. NULL
 * and the static intrinsic rows are left alone. Returns 0. */
XF_API xf_status xfrelease(void *handle);

/* Allocation chain: a zeroed block of size bytes behind a two-word header
 * (link to the next block, size; one spare word after the bytes), linked
 * after the block *chain points at; *chain then points at the new block.
 * Returns the address past the header, or NULL when memory is exhausted or
 * chain is NULL. */
XF_API void *xfmalloc(void **chain, uint64_t size);
/* Does nothing: chains are freed as a whole by xfdel. */
XF_API void xffree(void *block);

/* Number of significant bytes of a text: length less its trailing blanks
 * (0 for an all-blank text); a length of 0 or less is returned as given. */
XF_API int32_t zstrip(const char *text, int32_t length);

/* --- Intrinsic pseudo-formats ------------------------------------------ */

/* The static resolved rows of the three intrinsic names, outside every
 * module: kind byte blank, module name length 1. crashfmt is
 * "_C_R_A_S_H_"; ver_num[0] is "INTRINSIC-CRDATE", ver_num[1] is
 * "$IS-INTRINSIC". Resolution hands out their addresses: never xfdel them. */
XF_API extern const fmtposs_row crashfmt;
XF_API extern const fmtposs_row ver_num[2];

/* "_C_R_A_S_H_": writes "X" (when the capacity allows), output length 1; 0. */
XF_API xf_status zfmcrash(xf_frame *frame);
/* "INTRINSIC-CRDATE": the build stamp "Apr 18 2019 13:09:42" cut to
 * min(w, 20, capacity) bytes, which is the output length; returns 0. */
XF_API xf_status zfmvernum(xf_frame *frame);
/* Hands back the build date ("Apr 18 2019") and time ("13:09:42") as
 * NUL-terminated static texts; either pointer may be NULL. */
XF_API void get_date_time(const char **date, const char **time);
/* "$IS-INTRINSIC": reads at most the first 32 bytes of the input (UTF-16
 * input, encodings 24 and 25, is narrowed first), drops trailing blanks,
 * upper-cases, and writes "YES" or "NO " (3 bytes, fewer only when the
 * capacity is smaller; output encoding 0): YES for F, $, $F, every catalogued
 * format name (not the separators, not the informats) and the texts
 * $IS-INTRINSIC, $FMT-META, INTRINSIC-CRDATE, $UFMT-CRDATE. Returns 0. */
XF_API xf_status zfmintrns(xf_frame *frame);

/* --- Character output --------------------------------------------------- */

/* $CHARw. (also "$", "$F"): the input bytes left-aligned in w positions,
 * blank padded, cut at w. Writes min(w, capacity) bytes, which is the output
 * length; returns XF_E_CAPACITY when w exceeds the capacity, else 0. */
XF_API xf_status zfmchar(xf_frame *frame);

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

/* --- Missing values ---------------------------------------------------- */

/* The 28 missing values as bit patterns: row i = 0xFFFFFF0000000000 - i x
 * 0x10000000000 (0 "._", 1 ".", 2 "A" ... 27 "Z"). */
XF_API extern const uint64_t missing_values[28];
/* " _.ABCDEFGHIJKLMNOPQRSTUVWXYZ" (29 characters and a NUL): the symbol of a
 * missing value is misscoll[-(byte 5 as a signed byte)]. */
XF_API extern const char misscoll[30];
/* The ordinary missing value (bits 0xFFFFFE0000000000). */
XF_API extern const double std_miss_val;
/* The host's global control block, set by the host (NULL until then). Word 9
 * (the tenth pointer-sized word) points at the host's table of missing
 * doubles, indexed like missing_values. */
XF_API extern void *ej_global_gcb_anchor;

/* 1 when the value is a missing value (bytes 0-4 zero, bytes 6-7 0xFF, any
 * byte 5), else 0. Reads the 8 bytes at value_ptr when it is not NULL,
 * otherwise value; the frame is not read. */
XF_API int32_t zmiss(const xf_frame *frame, const void *value_ptr, double value);
/* Standard display of the frame's missing value: the whole capacity blank,
 * the symbol d places left of the right end of the w-wide field (d 98/99
 * count as 0), output length min(w, capacity). Returns 0. */
XF_API xf_status zfmmiss(xf_frame *frame);
/* Row i of missing_values as a double; i outside 0-27 gives std_miss_val. */
XF_API double ZMISSV(int32_t i);
/* Entry i (0-27) of the host's missing-value table reached through
 * ej_global_gcb_anchor; while the anchor or its word 9 is NULL, and for i
 * outside 0-27, the library's own table (ZMISSV) answers. */
XF_API double wzmisv(int32_t i);
/* Prints "in wzmisc in mvsextra..." and a line feed to standard output and
 * returns the low byte of the value's bit pattern (a leftover stub). */
XF_API int32_t wzmisc(double value);

/* --- ASCII/Latin-1 and EBCDIC ----------------------------------------- */

/* IBM 1047 with line feed 0x0A <-> 0x15 and 0x85 <-> 0x25; inverse
 * permutations of each other. */
XF_API extern const uint8_t as2eb[256];
XF_API extern const uint8_t eb2as[256];
/* In place, length bytes (length < 1: nothing): each byte through as2eb
 * (wztxatoe, zas2eb) or eb2as (wztxetoa, zeb2as). */
XF_API void wztxatoe(uint8_t *text, int32_t length);
XF_API void wztxetoa(uint8_t *text, int32_t length);
XF_API void zas2eb(uint8_t *text, int32_t length);
XF_API void zeb2as(uint8_t *text, int32_t length);

/* --- Strings -----------------------------------------------------------
 * Lengths are signed; positions count from 0; "not found" is -1. Upper-
 * casing goes through the C library's toupper table of the current locale.
 * A null text reads as empty. */

/* Length less trailing blanks (length < 0: NUL-terminated, measured first). */
XF_API int32_t wzstrip(const char *text, int32_t length);
/* Upper-cases in place (length < 0: NUL-terminated). */
XF_API void wzstrup(char *text, int32_t length);
/* 1 when la == lb and the texts are equal ignoring case, else 0. */
XF_API int32_t wzsteqn(const char *a, int32_t la, const char *b, int32_t lb);
/* Position of byte (its low 8 bits) in set (set_length < 0: NUL-terminated);
 * -1 when absent or set is NULL. */
XF_API int32_t wzstpos(const char *set, int32_t set_length, int32_t byte);
/* Position of the first byte of text not in set; -1 when all are or length < 1. */
XF_API int32_t wzstver(const char *text, int32_t length, const char *set, int32_t set_length);
/* Position of the first byte of text other than byte; -1 if none. */
XF_API int32_t wzstnot(const char *text, int32_t length, int32_t byte);
/* Position of the first byte of text in the NUL-terminated set; -1 if none. */
XF_API int32_t STQX(const char *text, int32_t length, const char *set);
/* Position of the first byte of text not in the NUL-terminated set; -1 if none. */
XF_API int32_t STQXN(const char *text, int32_t length, const char *set);
/* Position of the first occurrence of pattern in text (byte comparison); -1
 * when none or the pattern is longer; an empty pattern is found at 0. */
XF_API int32_t wzstndx(const char *text, int32_t length, const char *pattern,
                       int32_t pattern_length);
/* In place: each byte found at position k of from (its first occurrence)
 * becomes to[k]; to holds at least from_length bytes. */
XF_API void wzstrns(char *text, int32_t length, const char *to, const char *from,
                    int32_t from_length);
/* Removes in place every byte in set, keeping the order; returns the new
 * length (bytes after it keep their old values). */
XF_API int32_t wzstdel(char *text, int32_t length, const char *set, int32_t set_length);
/* Returns its argument. */
XF_API const char *wztxlit(const char *literal);

/* --- Memory ------------------------------------------------------------
 * Negative lengths count as 0. */

/* Copies min(lengths) bytes, blank-fills the rest of target (areas must not
 * overlap). */
XF_API void wzstmov(const void *source, int32_t source_length, void *target, int32_t target_length);
/* As wzstmov with overlapping areas allowed; source length 0 blank-fills the
 * whole target. vzMP is the same routine. */
XF_API void vzmp(const void *source, int32_t source_length, void *target, int32_t target_length);
XF_API void vzMP(const void *source, int32_t source_length, void *target, int32_t target_length);
/* Copies min(length, limit) bytes (no overlap). */
XF_API void vzmi(const void *source, void *target, int32_t length, int32_t limit);
/* Copies length bytes (no overlap). */
XF_API void MBL_OPT(const void *source, void *target, int32_t length);
/* Copies min(length, limit) bytes; overlapping areas are safe. Never
 * allocates (a move, not a copy through a temporary). */
XF_API void vzni(const void *source, void *target, int32_t length, int32_t limit);
/* Copies length bytes; overlapping areas are safe. */
XF_API void vznl(const void *source, void *target, int32_t length);
/* Zero-fill min(length, limit) bytes. */
XF_API void vzzl(void *target, int32_t length, int32_t limit);
XF_API void vzzi(void *target, int32_t length, int32_t limit);
/* Fill length bytes with byte (low 8 bits). */
XF_API void vzfbl(int32_t byte, void *target, int32_t length);
XF_API void vzftl(int32_t byte, void *target, int32_t length);
XF_API void wzbfcl(int32_t byte, void *target, int32_t length);
/* Fill length bytes with blanks. */
XF_API void vzBL(void *target, int32_t length);
XF_API void vzbtl(void *target, int32_t length);
/* 1 when every byte of text equals byte (also for an empty text), else 0. */
XF_API int32_t vzabl(int32_t byte, const void *text, int32_t length);
XF_API int32_t ATL(int32_t byte, const void *text, int32_t length);
/* Position of the first byte differing from byte; -1 if none. */
XF_API int32_t vzsntl(const void *text, int32_t length, int32_t byte);
/* Reverses length bytes in place (length < 2: nothing). */
XF_API void vzbytrv(void *area, int32_t length);
/* The first length (1-8) bytes of a big-endian double at area become a key
 * that sorts as unsigned bytes: sign bit set when non-negative, every bit
 * complemented when negative; then the bytes are reversed (vzbytrv). */
XF_API void wzcsdbl(void *area, int32_t length);
/* Stores value big-endian (two's complement, sign-extended) into length
 * (1-8) bytes. For length 2 the value is first clamped to -32768..32767
 * and 8193 is returned when it had to be; otherwise returns 0. */
XF_API int32_t wzctint(int32_t value, void *area, int32_t length);
/* Stores the first length (0-8) bytes of value's bit pattern, most
 * significant byte first (the big-endian form wzcsdbl reads). */
XF_API void wzctdbl(void *area, int32_t length, double value);
/* The smaller and larger of two integers. Exported C names: C++ code of the
 * library and its tests always writes std::min and std::max qualified. */
XF_API int32_t min(int32_t a, int32_t b);
XF_API int32_t max(int32_t a, int32_t b);

/* --- Clock and process -------------------------------------------------- */

/* Today's local date: month 1-12, day 1-31, four-digit year. */
XF_API void wzdate(int32_t *month, int32_t *day, int32_t *year);
/* The local time of day; seconds carry the fraction of the current second. */
XF_API void wztime(int32_t *hour, int32_t *minute, double *seconds);
/* Seconds since 1970-01-01 00:00:00 UTC with microseconds. */
XF_API double vtutod(void);
/* Stores the C library's time-zone offset (seconds west of UTC), less 3600
 * when daylight saving time is in force now. */
XF_API void hztz(int32_t *offset);
/* Ends the process with status 0. */
XF_API void vacrash(void);
/* Does nothing. */
XF_API void vaterm(void);

/* ======================================================================
 * Numeric output formats
 * ====================================================================== */

/* Rounding addends: zpowten[d] = 0.5 * 10^-d for d = 0..31. */
XF_API extern const double zpowten[32];

/* F w.d, the plain-number printer every other conversion falls back on.
 * Reads w, d (0-31 fixed decimals; 99 best; 98 three significant digits;
 * 80-89 code-80 significant digits; -999 E notation; other negatives E with
 * the decimals implied by w) and the double at input. Writes the number
 * right-justified in w positions (the output length is w): fewer decimals
 * when the integral digits need the room (status 2), E notation when even
 * that fails, else w '*' and 0x8001D827. w < 1: 0x8001D827, nothing written.
 * w > 32: frame->width becomes 32 and 32 '*' are written. Missing values:
 * the standard display, status 0. w above the capacity: the field is cut to
 * the capacity, status 0x8001D826. */
XF_API xf_status zfmt(xf_frame *frame);
/* The same routine under a second entry name. */
XF_API xf_status zfmn(xf_frame *frame);
/* BEST w.: zfmt with decimals code 99 (as many significant digits as fit). */
XF_API xf_status zfmb(xf_frame *frame);
/* BESTX w.: BEST; w above 32 prints 32 positions and blanks after them up to
 * min(w, capacity) (the output length stays that of the 32-wide field). */
XF_API xf_status zfmbx(xf_frame *frame);
/* E w.: zfmt with decimals code -999 (E notation, w - 7 decimals). */
XF_API xf_status zfmexp(xf_frame *frame);
/* D w.d: d significant digits (code 80 + d; d above 9 counts as best);
 * "." is placed in the last position before the inner call. */
XF_API xf_status zfmd(xf_frame *frame);
/* Z w.d: F w.d with leading zeros ("-01.50", "000042"); status 0 once padded. */
XF_API xf_status zfmz(xf_frame *frame);

/* E form of |magnitude| right-justified in width positions at out (width
 * <= capacity, width <= 64): decimals 99 as many digits as fit with trailing
 * zeros dropped, -k or k: k decimals (fewer when they do not fit). Returns
 * the length of the text written after the blanks, or -1 (nothing written)
 * when it does not fit or the magnitude is not finite. */
XF_API int32_t fmte(double magnitude, int32_t width, int32_t decimals, char *out,
                    uint32_t capacity);
/* Decimals that show |magnitude| with digits significant digits in width
 * positions of the fixed layout, or -999 when only E notation can. */
XF_API int32_t zfmtd(double magnitude, int32_t width, int32_t digits);

/* COMMA w.d: zfmt's text with "," between groups of three integral digits
 * when the longer text fits w; otherwise zfmt's text unchanged (status 0).
 * zfmt's nonzero statuses pass through; 0x8001D826 when the grouped text
 * fits w but not the capacity. Missing values: the standard display. */
XF_API xf_status zfmcma(xf_frame *frame);
/* The other punctuated formats lay the number out as F w.d, then add their
 * marks when they fit w, dropping the alignment blank, then the groups, then
 * the currency sign, then the parentheses (for a minus sign) before keeping
 * the plain text (stars only when that does not fit). Statuses as zfmt (2 for reduced decimals, 0x8001D827 stars,
 * 0x8001D826 cut to the capacity); missing values: the standard display.
 *   COMMAX   1.234.567,89      period groups, comma decimal mark
 *   DOLLAR   $1,234.56  -$1,234.56
 *   DOLLARX  $1.234,56  -$1.234,56
 *   EURO     0x80 then 1,234.56 (0x80 is the euro sign in Windows-1252)
 *   EUROX    0x80 then 1.234,56
 *   YEN      0xA5 then 1,234 (0xA5 is the yen sign in Windows-1252)
 *   NEGPAREN (1,234.56) for a negative value, "1,234.56 " for a positive one
 *   PERCENT  value x 100: "(12.5%)" negative, " 12.5% " positive
 *   PERCENTN value x 100: "-12.5%" */
XF_API xf_status zfmcmax(xf_frame *frame);
XF_API xf_status zfmdlr(xf_frame *frame);
XF_API xf_status zfmdlrx(xf_frame *frame);
XF_API xf_status zfmeuro(xf_frame *frame);
XF_API xf_status zfmerx(xf_frame *frame);
XF_API xf_status zfmyen(xf_frame *frame);
XF_API xf_status zfmnprn(xf_frame *frame);
XF_API xf_status zfmpct(xf_frame *frame);
XF_API xf_status pctn(xf_frame *frame);

/* Binary number formats write exactly w raw bytes of round(value x 10^d)
 * (half away from zero; d 0..31, others count as 0) and set output_length
 * to w. w outside the format's range: XF_E_OVERFLOW, nothing written
 * (output length 0); w above output_capacity: XF_E_CAPACITY, nothing
 * written. A value past the field stores the field's extreme of the same
 * sign (all nines for packed and zoned) and returns XF_E_OVERFLOW; a
 * missing value stores 0 (PD: minus zero; RB: its bits). IB, PIB and RB
 * follow the host's byte order (least significant byte first on a
 * little-endian host).
 *   IB w.d    (1-8)  two's complement, host order
 *   IBR w.d   (1-8)  two's complement, least significant byte first
 *   PIB w.d   (1-8)  unsigned, host order; negative values store FF..
 *   PIBR w.d  (1-8)  the same, least significant byte first
 *   PD w.d    (1-16) packed decimal, 2w-1 digits, last nibble C (+) or D (-)
 *   PK w.d    (1-16) packed decimal, 2w digits, no sign; negatives store 0
 *   ZD w.d    (1-32) ASCII zoned: digits 30-39, the sign overpunched on the
 *                    last: "{" "A".."I" plus, "}" "J".."R" minus
 *   RB w.d    (1-8)  the host's double; w below 8 keeps its w most
 *                    significant bytes; a product past the double range
 *                    stores the NaN 0xFFFFD10000000000 (XF_E_OVERFLOW)
 *   VAXRB w.d (1-8)  VAX D-floating (16-bit words little-endian, the most
 *                    significant first), cut to w; missing and NaN store 0 */
XF_API xf_status zfmib(xf_frame *frame);
XF_API xf_status zfmibr(xf_frame *frame);
XF_API xf_status zfmpib(xf_frame *frame);
XF_API xf_status zfmpibr(xf_frame *frame);
XF_API xf_status zfmpd(xf_frame *frame);
XF_API xf_status zfmpk(xf_frame *frame);
XF_API xf_status zfmzd(xf_frame *frame);
XF_API xf_status zfmrb(xf_frame *frame);
XF_API xf_status zfmvaxrb(xf_frame *frame);

/* Mainframe formats: the bytes an IBM mainframe program writes, on every
 * host. Field rules as the binary number formats above.
 *   S370FIB w.d   (1-8)  two's complement, big-endian
 *   S370FIBU w.d  (1-8)  unsigned big-endian of |value|
 *   S370FPIB w.d  (1-8)  unsigned big-endian; a negative value stores the w
 *                        low bytes of its two's complement (80 00.. below
 *                        -2^(8w-1))
 *   S370FPD w.d   (1-16) as PD
 *   S370FPDU w.d  (1-16) 2w-1 digits of |value|, sign nibble F
 *   S370FZD w.d   (1-32) digits F0-F9, the last zone C (plus or zero) or D
 *   S370FZDL w.d  (1-32) the same with the sign zone on the first digit
 *   S370FZDS w.d  (2-32) 4E (+) or 60 (-), then w-1 digits
 *   S370FZDT w.d  (2-32) w-1 digits, then 4E or 60
 *   S370FZDU w.d  (1-32) digits of |value|, every zone F
 *   S370FRB w.d   (2-8)  IBM hexadecimal floating point, long form, the first
 *                        w bytes (cut, not rounded); zero, missing values and
 *                        NaN store zero bytes; past 7.2e75 the largest
 *                        magnitude with its sign and XF_E_OVERFLOW
 *   S370FF w.d    (1-32) zfmt's text of the value, each byte through as2eb
 *                        (blank 40, "-" 60, "." 4B); statuses as zfmt
 *   S370FHEX w.   (1-16) HEX's text through as2eb; at w 16 the hex digits of
 *                        the IBM long form (past its range: 16 stars, 5C) */
XF_API xf_status zfms370ib(xf_frame *frame);
XF_API xf_status zfms370ibu(xf_frame *frame);
XF_API xf_status zfms370pib(xf_frame *frame);
XF_API xf_status zfms370pd(xf_frame *frame);
XF_API xf_status zfms370pdu(xf_frame *frame);
XF_API xf_status zfms370zd(xf_frame *frame);
XF_API xf_status zfms370zdl(xf_frame *frame);
XF_API xf_status zfms370zds(xf_frame *frame);
XF_API xf_status zfms370zdt(xf_frame *frame);
XF_API xf_status zfms370zdu(xf_frame *frame);
XF_API xf_status zfms370rb(xf_frame *frame);
XF_API xf_status zfms370f(xf_frame *frame);
XF_API xf_status zfms370hex(xf_frame *frame);

/* Floating-point layouts of other programs; field rules as the binary
 * number formats. Missing values and NaN store zero bytes (XF_OK); a value
 * past the layout's range: XF_E_OVERFLOW with the bytes said.
 *   IEEE w.d  (2-8) IEEE 754, high-order byte first on every host: w 5-8 the
 *                   top w bytes of the double, w 2-4 of the single (rounded
 *                   to nearest); past the range zero bytes
 *   IEEER w.d (2-8) the same w bytes, least significant first
 *   FLOAT 4.d       the host's single; past its range zero bytes
 *   MRB w.d   (2-8) Microsoft Binary Format, fraction bytes low to high then
 *                   the exponent; w 2-4 single (rounded to nearest), 5-8
 *                   double, the w most significant bytes; past 1.7e38 the
 *                   largest magnitude with its sign */
XF_API xf_status zfmieee(xf_frame *frame);
XF_API xf_status zfmieeer(xf_frame *frame);
XF_API xf_status zfmfloat(xf_frame *frame);
XF_API xf_status zfmmrb(xf_frame *frame);

/* PC and transport-file fields; field rules as the binary number formats.
 *   PCPIB w.d    (1-8) unsigned, least significant byte first on every host;
 *                      a negative value stores the w low bytes of its two's
 *                      complement (00 .. 80 below -2^(8w-1))
 *   XPORTINT w.  (1-8) two's complement, big-endian
 *   XPORTFLT w.d (2-8) IBM hexadecimal floating point as S370FRB; a missing
 *                      value stores its code, "." 2E, "_" 5F, "A".."Z"
 *                      41..5A, then zero bytes
 * Character fields (w outside the range: XF_E_OVERFLOW, nothing written;
 * cut to the capacity: XF_E_CAPACITY):
 *   $XPORTCH w. (1-200)   the value's bytes, blank padded, cut to w
 *   $CSTR w.    (1-32767) the value less its trailing blanks, NUL padded
 *   $BYVAL w.   (2-8)     the value's first w bytes, NUL padded */
XF_API xf_status zfmpcpib(xf_frame *frame);
XF_API xf_status zfmxportint(xf_frame *frame);
XF_API xf_status zfmxportflt(xf_frame *frame);
XF_API xf_status zfmxportch(xf_frame *frame);
XF_API xf_status zfmcstr(xf_frame *frame);
XF_API xf_status zfmbyval(xf_frame *frame);

/* HEX w. (1-16), OCTAL w. (1-24), BINARY w. (1-64): the value rounded to an
 * integer (d plays no part) in w digits of base 16, 8, 2, zero padded,
 * upper-case hex. 0 .. base^w - 1 as is; negative values down to
 * -base^w / 2 in w-digit two's complement (HEX4 of -1 is "FFFF"). Other
 * values and bad w: w '*' and XF_E_OVERFLOW. HEX16 shows the 16 hex digits
 * of the double's bits for every value; missing values otherwise show the
 * standard display. w above the capacity: cut, XF_E_CAPACITY. */
XF_API xf_status zfmhex(xf_frame *frame);
XF_API xf_status zfmoct(xf_frame *frame);
XF_API xf_status zfmbin(xf_frame *frame);
/* $HEX w., $OCTAL w., $BINARY w.: the bytes of the character value at input
 * (input_length bytes) as 2, 3 or 8 digits a byte, blanks ("20") past its
 * end, cut at w (also inside a byte). Output length min(w, capacity);
 * XF_E_CAPACITY when cut by the capacity; w < 1: XF_E_OVERFLOW. */
XF_API xf_status zfmchex(xf_frame *frame);
XF_API xf_status zfmcoct(xf_frame *frame);
XF_API xf_status zfmcbin(xf_frame *frame);

/* Spelled and special numeric formats. Each reads w, d and the double at
 * input and writes min(w, capacity) positions (the output length); w < 1:
 * nothing written, 0x8001D827; missing values: the standard display; a
 * value the format cannot show: '*' and 0x8001D827; a field cut to the
 * capacity: 0x8001D826. Statuses of the F layout (2) pass through.
 *   WORDS    left-aligned words, cents as hundredths:
 *            "one hundred twenty-three and forty-five hundredths"
 *   WORDF    left-aligned words, cents as figures: "... and 45/100"
 *            (both: |amount| below 10^15, "minus " before a negative one)
 *   FRACT    right-justified "2 1/4", "-1/3", the closest fraction that fits
 *   ROMAN    integral part 1..3999 in upper-case numerals: "MCMXCIX"
 *   SSN      integral part 0..999999999 as "012-34-5678"
 *   ODDSR    F w.d between "<.001" (below 10^-d) and ">999.999" (1000 on);
 *            negative: '*'
 *   PVALUE   F w.d, "<.0001" below 10^-d; negative: '*'
 *   LOGPROB  the value is -log10(p); shows p as F w.(w-2) or, when smaller,
 *            as "5.0E-13"; negative value: '*'
 *   NUMX     F w.d with a comma as the decimal mark
 *   SIZEK    bytes / 1024 as F (w-1).d and "K"; SIZEKB: F (w-2).d and "KB"
 *   SIZEKMG  bytes in KB, MB, GB or TB (powers of 1024) as F (w-2).d and the unit */
XF_API xf_status zfmwords(xf_frame *frame);
XF_API xf_status zfmwordf(xf_frame *frame);
XF_API xf_status zfmfract(xf_frame *frame);
XF_API xf_status zfmroman(xf_frame *frame);
XF_API xf_status zfmssn(xf_frame *frame);
XF_API xf_status zfmoddsr(xf_frame *frame);
XF_API xf_status zfmpval(xf_frame *frame);
XF_API xf_status zfmlogp(xf_frame *frame);
XF_API xf_status zfmnumx(xf_frame *frame);
XF_API xf_status zfmsizek(xf_frame *frame);
XF_API xf_status zfmsizekb(xf_frame *frame);
XF_API xf_status zfmsizekmg(xf_frame *frame);

/* ======================================================================
 * Dates and times
 * ====================================================================== */

/* Date values count days from 1960-01-01 (valid: -138061 = 1582-01-01 up to
 * 6589335 = 20000-12-31); datetimes count seconds from 1960-01-01 00:00:00
 * (valid: -11928470400 up to 569318630400 exclusive); times count seconds
 * from midnight. A Julian value is year x 1000 + day of year. Years are
 * leap by 4/100/400 except multiples of 4000, which are not; a year 0..99
 * given to the Julian routines means 2000..2049 (0..49) or 1950..1999.
 * The calendar routines are pure and thread-safe; where they cannot answer
 * they return the ordinary missing value (bits 0xFFFFFE0000000000). */

/* Month lengths, January first, February 0 (its length is 28 + leap). */
XF_API extern const int32_t dpm[12];
/* Month lengths indexed 1..12 (entry 0 is 0), February 28. */
XF_API extern const int32_t daysinmonth[13];
/* "January".."December", "JAN".."DEC", "Sunday".."Saturday" (31 strings). */
XF_API extern const char *const datestgs[31];
/* "January".."December" and "Sunday".."Saturday". */
XF_API extern const char *const months[12];
XF_API extern const char *const weekdays[7];
/* Japanese eras: rows of {first day as a date value, Gregorian start year},
 * Meiji, Taisho, Showa, Heisei, Reiwa, then a zero row. */
XF_API extern const double reigns[6][2];
/* " MTSHR ": letters[i] (1..5) is the letter of era row i - 1. */
XF_API extern const char letters[8];

/* Julian value of a year/month/day (truncated); missing when invalid. */
XF_API double zjulymd(double year, double month, double day);
/* Date value of a Julian value (day of year 0 = last day of the previous
 * year); missing when invalid. */
XF_API double zdatjul(double julian);
/* Year (four digits), month, day of a Julian value; all three missing when
 * invalid. Returns 0. */
XF_API int32_t zymdjul(double *year, double *month, double *day, double julian);
/* Julian value of a date (floored); a missing date is returned as it is, a
 * date out of range gives missing. */
XF_API double zjuldat(double date);
/* Date value of month/day/year; missing when invalid. */
XF_API double zmdy(double month, double day, double year);
/* Year, month 1-12, day 1-31 and quarter 1-4 of a date; missing passes through. */
XF_API double zyear(double date);
XF_API double zmonth(double date);
XF_API double zday(double date);
XF_API double zqtr(double date);
/* Weekday 1 = Sunday .. 7 = Saturday; before 1600-01-02 the result runs
 * from -5 to 1 (kept so for compatibility). Missing when missing or out of range. */
XF_API double zwekday(double date);
/* Stores the month, day and year of a date and returns the month; a missing
 * or out-of-range date stores 0 in all three and returns 0. */
XF_API int32_t getMonthDayYear(int32_t *month, int32_t *day, int32_t *year, double date);
/* Days in a month (months above 12 taken modulo 12, multiples of 12 give 31;
 * below 1 gives 0). February: 29 when the year is divisible by 4 and lies in
 * 1901..2099, otherwise only when divisible by 400 and not by 4000. */
XF_API double get_lastday(int32_t month, int32_t year);
/* second + (hour x 60 + minute) x 60; missing if any argument is missing. */
XF_API double zhms(double hour, double minute, double second);
/* Datetime of a date and a time of day; missing when the date is missing or
 * out of range or the time is missing. */
XF_API double zdhms(double date, double hour, double minute, double second);
/* Date part (floor(dt / 86400)) and time of day (0 <= t < 86400, fraction
 * kept) of a datetime; missing when missing or out of the datetime range. */
XF_API double zdatprt(double dt);
XF_API double ztimprt(double dt);
/* Hour 0-23, minute 0-59 and second 0 <= s < 60 of a datetime or time value
 * (negative values count back from midnight); missing when missing. */
XF_API double zhour(double v);
XF_API double zminute(double v);
XF_API double zsecond(double v);
/* Range guard of the date and time formats. kind 1 date, 2 and 3 datetime
 * or time range, others no test. Returns 0 when the value may be formatted,
 * 1 when out of range (width filled with '*', output length set), 2 when
 * missing (the missing display written). */
XF_API int32_t zdatrng(xf_frame *frame, int32_t kind);
/* Week-based year, week and weekday of a date by rule *rule: 'U' (weeks
 * from Sunday, week 0 before the first Sunday, weekday 1 = Sunday), 'W'
 * (from Monday, weekday 1 = Monday), 'V' (ISO 8601 week date). Outputs start
 * at -1 (all stay so for a missing or out-of-range date). Returns 0. */
XF_API int32_t get_yywwdd(const char *rule, int32_t ignored, double *year, double *week,
                          double *weekday, double date);
/* Days from m1/d1/y1 to m2/d2/y2 and their actual/actual year fraction
 * (days in leap years / 366 + days in other years / 365, leap by 4/100/400).
 * A first date later than the second gives negative results. */
XF_API void diff_actact(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                        int64_t *days, double *year_fraction);
/* Writes the week text of a date by rule into out: *width 0-2 "ww", 3-4
 * "Www", 5-6 "yyWww", 7-8 "yyWwwdd", 9-10 "yyyyWwwdd", 11 and more
 * "yyyy-Www-dd"; blank-fills *width bytes first, writes from the left and
 * stores the layout's width in *width. out must hold max(*width, 11) bytes.
 * A missing or out-of-range date gives '*' in the layout's positions. */
XF_API void zkfweek(char *out, int32_t *width, const char *rule, int32_t ignored, double date);
/* Writes |value| right-aligned in exactly digits characters (higher digits
 * dropped). fill '0' keeps leading zeros, another fill replaces them (the
 * last digit stays), fill 0 first sets digits to the count the value needs.
 * Returns the digit count (at most 20). */
XF_API int32_t i2s(int64_t value, char *out, int32_t digits, char fill);

/* Date layouts of the numeric families. zfmcymd stores year, month, day of
 * a date (returns 1, or -1 when the date or a part is missing). zfmcprt
 * writes three fields in width characters at output with the separator (0
 * for none): fields above 99 in four digits, others in two. */
XF_API int32_t zfmcymd(double *year, double *month, double *day, double date);
XF_API void zfmcprt(int32_t width, char separator, char *output, int32_t left, int32_t middle,
                    int32_t right);
/* Common writers of the two-field families with their separator (0 none). */
XF_API xf_status zfmdlmy(xf_frame *frame, char separator);
XF_API xf_status zfmdlym(xf_frame *frame, char separator);
XF_API xf_status zfmdlqy(xf_frame *frame, char separator);
XF_API xf_status zfmdlyq(xf_frame *frame, char separator);

/* Date formats (xf_routine): the value is a date; out-of-range dates give a
 * field of '*' and XF_E_DATE_RANGE, missing values the missing display and
 * XF_OK; a width above the output capacity gives XF_E_CAPACITY with nothing
 * written. */
XF_API xf_status zfmdmy(xf_frame *frame);
XF_API xf_status zfmdmyb(xf_frame *frame);
XF_API xf_status zfmdmyc(xf_frame *frame);
XF_API xf_status zfmdmyd(xf_frame *frame);
XF_API xf_status zfmdmyn(xf_frame *frame);
XF_API xf_status zfmdmyp(xf_frame *frame);
XF_API xf_status zfmmdy(xf_frame *frame);
XF_API xf_status zfmmdyb(xf_frame *frame);
XF_API xf_status zfmmdyc(xf_frame *frame);
XF_API xf_status zfmmdyd(xf_frame *frame);
XF_API xf_status zfmmdyn(xf_frame *frame);
XF_API xf_status zfmmdyp(xf_frame *frame);
XF_API xf_status zfmymd(xf_frame *frame);
XF_API xf_status zfmymdb(xf_frame *frame);
XF_API xf_status zfmymdc(xf_frame *frame);
XF_API xf_status zfmymdn(xf_frame *frame);
XF_API xf_status zfmymdp(xf_frame *frame);
XF_API xf_status zfmymds(xf_frame *frame);
XF_API xf_status zfmmmy(xf_frame *frame);
XF_API xf_status zfmmmyc(xf_frame *frame);
XF_API xf_status zfmmmyd(xf_frame *frame);
XF_API xf_status zfmmmyn(xf_frame *frame);
XF_API xf_status zfmmmyp(xf_frame *frame);
XF_API xf_status zfmmmys(xf_frame *frame);
XF_API xf_status zfmyym(xf_frame *frame);
XF_API xf_status zfmyymc(xf_frame *frame);
XF_API xf_status zfmyymd(xf_frame *frame);
XF_API xf_status zfmyymn(xf_frame *frame);
XF_API xf_status zfmyymp(xf_frame *frame);
XF_API xf_status zfmyyms(xf_frame *frame);
XF_API xf_status zfmyyq(xf_frame *frame);
XF_API xf_status zfmyyqc(xf_frame *frame);
XF_API xf_status zfmyyqd(xf_frame *frame);
XF_API xf_status zfmyyqn(xf_frame *frame);
XF_API xf_status zfmyyqp(xf_frame *frame);
XF_API xf_status zfmyyqs(xf_frame *frame);
XF_API xf_status zfmyyqr(xf_frame *frame);
XF_API xf_status zfmyqrc(xf_frame *frame);
XF_API xf_status zfmyqrd(xf_frame *frame);
XF_API xf_status zfmyqrn(xf_frame *frame);
XF_API xf_status zfmyqrp(xf_frame *frame);
XF_API xf_status zfmyqrs(xf_frame *frame);
/* DATE, MONYY, DAY, MONTH, YEAR (stars with XF_OK out of range), QTR, QTRR,
 * WEEKDAY, JULIAN and JULDATE, JULDAY, NENGO (stars with XF_OK before
 * 1868-04-06). */
XF_API xf_status zfmdate(xf_frame *frame);
XF_API xf_status zfmmony(xf_frame *frame);
XF_API xf_status zfmday(xf_frame *frame);
XF_API xf_status zfmmont(xf_frame *frame);
XF_API xf_status zfmyear(xf_frame *frame);
XF_API xf_status zfmqtr(xf_frame *frame);
XF_API xf_status zfmqtrr(xf_frame *frame);
XF_API xf_status zfmweek(xf_frame *frame);
XF_API xf_status zfmjul(xf_frame *frame);
XF_API xf_status zfmjuld(xf_frame *frame);
XF_API xf_status zfmneng(xf_frame *frame);
/* DTDATE (zfmdtdat), DTMONYY (zfmdtmy), DTYEAR (zfmdtyr), DTYYQC
 * (zfmdtyqc): the day of a datetime (floor of value / 86400) as DATE, MONYY,
 * YEAR and YYQC write it; missing values the missing display, a datetime
 * outside 1582..20000 '*' and XF_E_DATE_RANGE. */
XF_API xf_status zfmdtdat(xf_frame *frame);
XF_API xf_status zfmdtmy(xf_frame *frame);
XF_API xf_status zfmdtyr(xf_frame *frame);
XF_API xf_status zfmdtyqc(xf_frame *frame);
/* MINGUO (zfmmingo): Republic of China years (1912 is 1), left-justified:
 * width 10 "0112/07/04"; otherwise "112/07/04" when the year and "/mm/dd"
 * fit, else "1120704"; narrower than that '*' and XF_E_OVERFLOW. Dates
 * before 1912-01-01: '*' with XF_OK. */
XF_API xf_status zfmmingo(xf_frame *frame);
/* XYYMMDD (zfmxymd): YYMMDD with hyphens: 230704 (w6-7), 23-07-04 (w8-9),
 * 2023-07-04 (w10-12), right-justified. YYQZ (zfmyyqz): 2303 (w4-5),
 * 202303 (w6). */
XF_API xf_status zfmxymd(xf_frame *frame);
/* $N8601B (zfmn8b), $N8601BA (zfmn8ba), $N8601E (zfmn8e), $N8601EA
 * (zfmn8ea), $N8601EH (zfmn8eh), $N8601EX (zfmn8ex), $N8601H (zfmn8h),
 * $N8601X (zfmn8x): the internal ISO 8601 value (a character value: one
 * 8-byte element, or two for an interval) as text, left-justified in w:
 * durations as PnYnMnDTnHnMnS (B, E, H, X) or P0001-02-03T04:05:06 (EA, EH,
 * EX; BA without separators), datetimes as 2023-07-04T12:30:45 (B and BA
 * 20230704T123045); left-out components dropped from PnYnMnDTnHnMnS, one
 * "-" each (B, BA, E, EA, EH, H) or an "x" per digit (EX, X) elsewhere; the
 * fraction with its significant digits (EA: three), or d (1..3) digits cut.
 * A blank value: a blank field. An invalid value: '*' and XF_E_DATE_RANGE;
 * text longer than w: '*' and XF_E_OVERFLOW. */
XF_API xf_status zfmn8b(xf_frame *frame);
XF_API xf_status zfmn8ba(xf_frame *frame);
XF_API xf_status zfmn8e(xf_frame *frame);
XF_API xf_status zfmn8ea(xf_frame *frame);
XF_API xf_status zfmn8eh(xf_frame *frame);
XF_API xf_status zfmn8ex(xf_frame *frame);
XF_API xf_status zfmn8h(xf_frame *frame);
XF_API xf_status zfmn8x(xf_frame *frame);
XF_API xf_status zfmyyqz(xf_frame *frame);
/* ISO 8601 without a zone, right-justified: E8601DA and IS8601DA
 * (zfme8da) 2023-07-04, B8601DA (zfmb8da) 20230704, of a date; the DN forms
 * (zfme8dn, zfmb8dn) the same of a datetime's date; TM (zfme8tm, zfmb8tm)
 * the time of day 12:34:56 / 123456 (wrapping like a clock) with the
 * decimals that fit, cut rather than rounded; DT (zfme8dt, zfmb8dt)
 * 2023-07-04T12:34:56 / 20230704T123456 with decimals, E8601DT16
 * 2023-07-04T12:34. */
XF_API xf_status zfme8da(xf_frame *frame);
XF_API xf_status zfmb8da(xf_frame *frame);
XF_API xf_status zfme8dn(xf_frame *frame);
XF_API xf_status zfmb8dn(xf_frame *frame);
XF_API xf_status zfme8tm(xf_frame *frame);
XF_API xf_status zfmb8tm(xf_frame *frame);
XF_API xf_status zfme8dt(xf_frame *frame);
XF_API xf_status zfmb8dt(xf_frame *frame);
/* ISO 8601 marked as UTC (the value is not shifted): E8601DZ and IS8601DZ
 * (zfme8dz) 2023-07-04T12:34:56+00:00, B8601DZ (zfmb8dz)
 * 20230704T123456+0000, of a datetime; E8601TZ and IS8601TZ (zfme8tz)
 * 12:34:56+00:00, B8601TZ (zfmb8tz) 123456+0000, of a time of day. The
 * offset is written when it fits after the decimals asked for, otherwise
 * "Z" with the decimals that fit; then the seconds are dropped
 * (20230704T1234Z). Fractions are cut. */
XF_API xf_status zfme8dz(xf_frame *frame);
XF_API xf_status zfmb8dz(xf_frame *frame);
XF_API xf_status zfme8tz(xf_frame *frame);
XF_API xf_status zfmb8tz(xf_frame *frame);
/* E8601LZ and IS8601LZ (zfme8lz) 12:34:56+01:00, B8601LZ (zfmb8lz)
 * 123456+0100: a local time of day (not shifted) with the standard offset
 * of the process zone, read from the clock once and kept until a test
 * installs another clock. Narrower fields drop the decimals, then the
 * seconds (12:34+01:00); '*' and XF_E_OVERFLOW below that. */
XF_API xf_status zfme8lz(xf_frame *frame);
XF_API xf_status zfmb8lz(xf_frame *frame);
/* DOWNAME (zfmdown) "Tuesday", MONNAME (zfmmonn) "July": the name
 * right-justified, cut to the width when longer. YYMON (zfmymon) 2023JUL
 * from width 7, 23JUL at 5 and 6. */
XF_API xf_status zfmdown(xf_frame *frame);
XF_API xf_status zfmmonn(xf_frame *frame);
XF_API xf_status zfmymon(xf_frame *frame);
/* Packed Julian dates, four bytes ending in the sign nibble F: PDJULG
 * (zfmpdjg) yyyydddF, 2023-07-04 as 20 23 18 5F; PDJULI (zfmpdji) 0cyydddF
 * with c the century from 1900, 2023-07-04 as 01 23 18 5F. Years the layout
 * cannot hold (PDJULG past 9999, PDJULI outside 1900-2899): '*' and
 * XF_E_DATE_RANGE. Wider fields put zero bytes first; a missing value gets
 * the missing display (text) like every date format. */
XF_API xf_status zfmpdjg(xf_frame *frame);
XF_API xf_status zfmpdji(xf_frame *frame);
/* Dates in words, right-justified; the fullest layout whose text fits the
 * width is written, days without a leading zero. WEEKDATE (zfmwkdt)
 * "Tuesday, July 4, 2023", "Tue, Jul 4, 2023", "Tue, Jul 4, 23", "Tuesday",
 * "Tue"; WEEKDATX (zfmwkdx) "Tuesday, 4 July 2023", "Tue, 4 Jul 2023",
 * "Tue, 4 Jul 23", "Tuesday", "Tue"; WORDDATE (zfmwrdt) "July 4, 2023",
 * "Jul 4, 2023", "Jul 4, 23", "July", "Jul"; WORDDATX (zfmwrdx) "4 July
 * 2023", "4 Jul 2023", "4 Jul 23", "July", "Jul". DTWKDATX (zfmdtwk) is
 * WEEKDATX of a datetime's date. Widths 1 and 2: '*' and XF_E_OVERFLOW. */
XF_API xf_status zfmwkdt(xf_frame *frame);
XF_API xf_status zfmwkdx(xf_frame *frame);
XF_API xf_status zfmwrdt(xf_frame *frame);
XF_API xf_status zfmwrdx(xf_frame *frame);
XF_API xf_status zfmdtwk(xf_frame *frame);
/* TOD w.d (zfmtod): TIME of the time of day, two-digit hours (01:00:00).
 * HOUR w.d (zfmhour): hours as a plain number, HOUR4.1 of 12:34:56 "12.6". */
XF_API xf_status zfmtod(xf_frame *frame);
/* TIMEAMPM w.d (zfmtimm): the time of day on a 12-hour clock, " AM"/" PM"
 * appended from width 5 (" 1:00:00 AM" at 11; midnight and noon are 12). */
XF_API xf_status zfmtimm(xf_frame *frame);
XF_API xf_status zfmhour(xf_frame *frame);
/* DATETIME w.d (zfmdttm): 04JUL23:12:34:56 at width 16, 04JUL2023:12:34:56
 * from 18, with the decimals that fit; narrower fields drop the seconds,
 * minutes and hours in turn. Seconds round half up at the decimals shown,
 * carrying into the date; parts not shown are cut. */
XF_API xf_status zfmdttm(xf_frame *frame);
/* DATEAMPM w.d (zfmdtmm): DATETIME's date, then the hour, minutes and
 * seconds on a 12-hour clock with " AM" / " PM": 04JUL23:12 PM from width
 * 13, 04JUL23:12:34 PM from 16, 04JUL23:12:34:56 PM from 19,
 * 04JUL2023:12:34:56 PM from 21, decimals from 23; the date alone below 13.
 * MDYAMPM w.d (zfmdyam): the fullest text that fits of 7/04/2023
 * 12:34:56.789 PM (up to d decimals), 7/04/2023 12:34 PM, 7/04/23 12:34 PM,
 * 7/04/2023, 7/04/23. Midnight is 12 AM; seconds round half up at the
 * decimals shown, carrying into the date; parts not shown are cut. */
XF_API xf_status zfmdtmm(xf_frame *frame);
XF_API xf_status zfmdyam(xf_frame *frame);
/* HHMM w.d (zfmhhmm) hours and minutes, MMSS w.d (zfmmmss) minutes and
 * seconds: the larger unit without a limit, the smaller one rounded half up
 * with the decimals that fit (HHMM5. of 12:34:56 is 12:35, MMSS6. 754:57);
 * only the larger part, cut, when ":" and two digits do not fit; '*' with
 * XF_OK when even that does not fit. */
XF_API xf_status zfmhhmm(xf_frame *frame);
XF_API xf_status zfmmmss(xf_frame *frame);
/* TIME w.d: elapsed hours (no wrap at 24), minutes and seconds with d
 * decimals where they fit; parts that do not fit are dropped from the
 * right. Out of the datetime range: '*' and XF_E_DATE_RANGE; hours beyond
 * 2^53: '*' and XF_E_HOURS_RANGE; width below the hours: '*' and XF_OK. */
XF_API xf_status zfmtime(xf_frame *frame);

/* ======================================================================
 * Informats
 * ====================================================================== */

/* Numeric informats read frame->input (input_length bytes of text, not
 * terminated, at most w of them) and store one double at frame->output,
 * setting output_length to 8. With output NULL or output_capacity below 8
 * they write nothing and return XF_E_CAPACITY. Otherwise they return:
 *   XF_OK                blank field (ordinary missing), "." / ".A" / "A" ...
 *                        (the host's missing value for the letter), zero
 *                        (+0, also for "-0"), or the number: the double
 *                        nearest the decimal text, ties to even;
 *   XF_IN_RANGE_WARNING  the number rounds to 0 or past the largest double:
 *                        ordinary missing stored;
 *   XF_IN_INVALID        text that is no number: ordinary missing stored;
 *   XF_IN_BAD_WIDTH      w below 0, or d outside 0..31 (98 and 99 count as
 *                        0): ordinary missing stored.
 * d implied decimals apply only to text without a point ("12345" with d 2
 * reads 123.45). Stateless, never allocates, reads no byte past the field. */

/* @F, @E: blanks and tabs around the number, an optional sign, digits with
 * at most one point, an exponent after E, e, D or d. */
XF_API xf_status wzifmn(xf_frame *frame);
/* @NUMX (zifmnumx): a comma is the decimal mark ("12,5"); text with a
 * comma and a point is invalid; text without a comma reads as @F.
 * @YEN (zifmyen): yen signs (byte 5C, or A5 as YEN writes it) and commas are dropped, a point is
 * the decimal point (5C "1,000" is 1000). @SIZEKMG (zifmsizekmg): a
 * number, optionally one blank and KB, MB, GB or TB in any case, times
 * 1024, 1024^2, 1024^3, 1024^4 ("1.5 mb" 1572864); d applies first. */
XF_API xf_status zifmnumx(xf_frame *frame);
XF_API xf_status zifmyen(xf_frame *frame);
XF_API xf_status zifmsizekmg(xf_frame *frame);
/* @BZ: leading blanks skipped, every later blank read as 0 (at most 32
 * bytes); an all-blank field reads 0. */
XF_API xf_status zifmbz(xf_frame *frame);
/* @COMMA, @DOLLAR, @NEGPAREN: blanks, tabs, ",", "$", "%", ")" and the
 * currency marks of Windows-1252 are dropped; "(" before the number makes it
 * negative; then read as @F. */
XF_API xf_status zifmcma(xf_frame *frame);
/* @PERCENT: as @COMMA, and a "%" after the number divides it by 100 exactly
 * ("12%" reads 0.12). */
XF_API xf_status zifmpct(xf_frame *frame);
/* @COMMAX, @DOLLARX: of the first min(w, 32) bytes, ".", "$", "%", ")" and
 * blanks are dropped and "," becomes "."; the rest is read as @COMMA. */
XF_API xf_status zifmcmx(xf_frame *frame);

/* Binary informats read exactly w raw bytes (fewer at input: XF_IN_INVALID)
 * and store value / 10^d; layouts as the formats of the same names (@IB,
 * @PIB and @RB in the host's byte order).
 *   @IB, @IBR (1-8) two's complement; @PIB, @PIBR (1-8) unsigned;
 *   @PD (1-16): sign nibble B or D minus, A C E F plus, a digit there or a
 *     nibble above 9 among the digits XF_IN_INVALID; @PK (1-16) 2w digits;
 *   @ZD (1-32): ASCII digits, the last overpunched ("{" "A".."I" plus, "}"
 *     "J".."R" minus, a plain digit plus); EBCDIC-shaped fields read too:
 *     zones F or 3 before the last byte, whose zone C F A E is plus and
 *     D B 7 minus;
 *   @RB (1-8): the w most significant bytes of the host's double, the rest
 *     zero.
 * w outside the range or d outside 0..31: XF_IN_BAD_WIDTH. */
XF_API xf_status zifmib(xf_frame *frame);
XF_API xf_status zifmibr(xf_frame *frame);
XF_API xf_status zifmpib(xf_frame *frame);
XF_API xf_status zifmpibr(xf_frame *frame);
XF_API xf_status zifmpd(xf_frame *frame);
XF_API xf_status zifmpk(xf_frame *frame);
XF_API xf_status zifmzd(xf_frame *frame);
XF_API xf_status zifmrb(xf_frame *frame);
/* Mainframe informats: the inverses of the S370F formats, on every host.
 *   @S370FIB (1-8) signed big-endian; @S370FIBU, @S370FPIB (1-8) unsigned
 *   @S370FPD (1-16): sign nibble C or F plus, D minus; @S370FPDU: F only
 *   @S370FZD (1-32): digits F0-F9, the last zone C or F plus, D minus; one
 *     EBCDIC point (4B) may stand among the digits, and then fixes the
 *     decimals instead of d
 *   @S370FZDB (1-32): as @S370FZD without the point, every 40 read as 0
 *   @S370FZDL (1-32) sign zone first; @S370FZDS, @S370FZDT (2-32) a separate
 *     4E or 60 first or last; @S370FZDU (1-32) every zone F
 *   @S370FRB (2-8): the first w bytes of an IBM long form, the rest zero
 *   @S370FF (1-32): EBCDIC text read as @F reads ASCII text
 *   @S370FHEX (1-16): EBCDIC hex digits as @HEX; at w 16 an IBM long form
 * Any other byte: XF_IN_INVALID with the ordinary missing value. */
XF_API xf_status zifms370ib(xf_frame *frame);
XF_API xf_status zifms370ibu(xf_frame *frame);
XF_API xf_status zifms370pib(xf_frame *frame);
XF_API xf_status zifms370pd(xf_frame *frame);
XF_API xf_status zifms370pdu(xf_frame *frame);
XF_API xf_status zifms370zd(xf_frame *frame);
XF_API xf_status zifms370zdb(xf_frame *frame);
XF_API xf_status zifms370zdl(xf_frame *frame);
XF_API xf_status zifms370zds(xf_frame *frame);
XF_API xf_status zifms370zdt(xf_frame *frame);
XF_API xf_status zifms370zdu(xf_frame *frame);
XF_API xf_status zifms370rb(xf_frame *frame);
XF_API xf_status zifms370f(xf_frame *frame);
XF_API xf_status zifms370hex(xf_frame *frame);
/* @IEEE, @IEEER (2-8), @FLOAT (4), @MRB (2-8), @VAXRB (2-8): the inverses of
 * the formats; absent low-order bytes are zero, then the value is divided
 * by 10^d. @VAXRB refuses the reserved operand (sign set, exponent 0). */
XF_API xf_status zifmieee(xf_frame *frame);
XF_API xf_status zifmieeer(xf_frame *frame);
XF_API xf_status zifmfloat(xf_frame *frame);
XF_API xf_status zifmmrb(xf_frame *frame);
XF_API xf_status zifmvaxrb(xf_frame *frame);
/* @PCPIB (1-8): unsigned, least significant byte first, divided by 10^d. */
XF_API xf_status zifmpcpib(xf_frame *frame);
/* @$CSTR (1-32767), @$BYVAL (2-8): the bytes before the first NUL of the
 * field (all w when there is none), padded with blanks to w, delivered as
 * @$CHAR delivers; w outside the range: XF_IN_BAD_WIDTH, nothing written. */
XF_API xf_status zifmcstr(xf_frame *frame);
XF_API xf_status zifmbyval(xf_frame *frame);
/* @ZDB (1-32): as @ZD, a blank (20, or EBCDIC 40) standing for 0.
 * @ZDV (1-32): as @ZD but strict: EBCDIC shape (zone F before the last
 * byte, the last zone A-F: B and D minus) or ASCII shape (digits 30-39, the
 * last overpunched), anything else XF_IN_INVALID.
 * @$PHEX (w bytes): 2w-1 hex digits, the final (sign) nibble left out.
 * @BITS w.d (w 1-64, d 0-63): the w bits after the first d, from the high
 * bit of the first byte, unsigned; fewer input bytes: XF_IN_INVALID. */
XF_API xf_status zifmzdb(xf_frame *frame);
XF_API xf_status zifmzdv(xf_frame *frame);
XF_API xf_status zifmcphex(xf_frame *frame);
XF_API xf_status zifmbits(xf_frame *frame);
/* Punched-card column binary: two bytes a column, their low six bits rows
 * 12, 11, 0, 1, 2, 3 and 4 .. 9.
 *   @$CB (w bytes): a character a column by the EBCDIC card code, in the
 *     host's set; a combination with no character: blank, XF_IN_INVALID
 *   @CB (1-32, even): one digit punch a column, divided by 10^d
 *   @PUNCH.d (w 0, d 1-12; 10 is row 0): 1 or 0 for row d of the column
 *   @ROW w.d (w 0-12 first row, d 0-25 rows): the position from 1 of the
 *     one punch among the d rows (carrying on into the next column); none
 *     or d 0: missing; two or more: missing with XF_IN_INVALID */
XF_API xf_status zifmccb(xf_frame *frame);
XF_API xf_status zifmcb(xf_frame *frame);
XF_API xf_status zifmpunch(xf_frame *frame);
XF_API xf_status zifmrow(xf_frame *frame);
/* Mainframe time stamps, read from packed fields (digit nibbles, F or C as
 * the sign nibble; cc 00 1900s, 01 2000s, 02 2100s) and clocks:
 *   @PDTIME (4) 0hhmmssF, time; all zero bytes: missing
 *   @RMFDUR (4) mmsstttF, seconds with thousandths
 *   @RMFSTAMP (8) 0hhmmssF ccyydddF; @SMFSTAMP (8) big-endian hundredths
 *     since midnight, ccyydddF; @SHRSTAMP (8) ccyydddF hhmmssth: datetime
 *   @TODSTAMP (1-8) the time-of-day clock (bit 51 a microsecond, from
 *     1900-01-01; shorter fields are its high-order bytes): datetime; a zero
 *     clock is missing; @MSEC (8) the clock as seconds, no epoch
 *   @TU (4) unsigned timer units, 38400 a second
 * Bytes outside the layout: XF_IN_INVALID with the ordinary missing value. */
XF_API xf_status zifmpdtime(xf_frame *frame);
XF_API xf_status zifmrmfdur(xf_frame *frame);
XF_API xf_status zifmrmfstamp(xf_frame *frame);
XF_API xf_status zifmsmfstamp(xf_frame *frame);
XF_API xf_status zifmshrstamp(xf_frame *frame);
XF_API xf_status zifmtodstamp(xf_frame *frame);
XF_API xf_status zifmmsec(xf_frame *frame);
XF_API xf_status zifmtu(xf_frame *frame);
/* @HEX (1-16), @OCTAL (1-24), @BINARY (1-64): digits of the base (hex in
 * either case), blanks around them skipped, read as an unsigned integer (d
 * plays no part); @HEX16 reads the bits of a double. A blank field is the
 * ordinary missing value (XF_OK); any other byte XF_IN_INVALID. */
XF_API xf_status zifmhex(xf_frame *frame);
XF_API xf_status zifmoct(xf_frame *frame);
XF_API xf_status zifmbin(xf_frame *frame);

/* Date, time and datetime informats (module JAZWIDTE). They read as the
 * numeric informats do (at most w bytes, blanks and tabs around the text
 * ignored, XF_E_CAPACITY with nothing written below 8 bytes of output) and
 * store a date value (days since 1960-01-01), a time value (seconds since
 * midnight) or a datetime value (seconds since 1960-01-01 00:00:00).
 *   XF_OK            the value; blank field or "." (ordinary missing);
 *                    "._", ".A" .. ".Z" (the host's missing value);
 *   XF_IN_INVALID    any other shape, a day that does not exist or lies
 *                    outside 1582-01-01 .. 20000-12-31: ordinary missing;
 *   XF_IN_BAD_WIDTH  w below 0, d outside 0..31 (98, 99 allowed): missing.
 * Two-digit years: 00..49 are 2000..2049, 50..99 are 1950..1999. Date
 * separators are one of "/", "-", "." or a blank; month names are JAN..DEC
 * or the full English name, in any case. A time of day is h:mm[:ss[.fff]]
 * with minutes and seconds below 60, optionally followed by AM or PM (A, P;
 * any case; blanks before allowed; hour 1..12, 12 AM is midnight). */
/* @DATE: day, month name, year: "04JUL2023", "4jul23", "04-JUL-2023". */
XF_API xf_status zifmdate(xf_frame *frame);
/* @DATETIME: an @DATE date, then ":", "T" or blanks and a time of day with
 * hours 0..23 ("04JUL2023:12:34:56"); the date alone is its midnight. */
XF_API xf_status zifmdttm(xf_frame *frame);
/* @DDMMYY, @MMDDYY, @YYMMDD: day, month and year in that order, either
 * separated ("04/07/2023", "4-7-23", "2023-07-04"; day and month 1 or 2
 * digits, year 2 or 4) or compact in 6 or 8 digits ("040723", "20230704"). */
XF_API xf_status zifmdmy(xf_frame *frame);
XF_API xf_status zifmmdy(xf_frame *frame);
XF_API xf_status zifmymd(xf_frame *frame);
/* @JULIAN: year and day of the year 001..366 in 7 or 5 digits: "2023185",
 * "23185". */
XF_API xf_status zifmjul(xf_frame *frame);
/* @MDYAMPM: an @MMDDYY date, then blanks (a comma allowed) and a time of day
 * with hours 0..23 or AM/PM: "07/04/2023 12:34:56 PM"; the date alone is
 * its midnight. */
XF_API xf_status zifmdyam(xf_frame *frame);
/* @MONYY: month name and year, "JUL2023", "jul-23": the first of the month. */
XF_API xf_status zifmmony(xf_frame *frame);
/* @NENGO: era letter M, T, S, H or R, an optional ".", era year, month and
 * day separated ("R.01/05/01", "H1-1-8") or compact in 6 digits
 * ("R010501"). A day before its era began is invalid. */
XF_API xf_status zifmneng(xf_frame *frame);
/* @TIME: a time of day without limit of 24 hours (up to 999999 hours
 * without AM/PM): "12:34", "1:02:03.5", "12:34:56 PM". */
XF_API xf_status zifmtime(xf_frame *frame);
/* @YYQ: year, an optional separator, Q and the quarter 1..4: "2023Q3";
 * the first day of the quarter. */
XF_API xf_status zifmyyq(xf_frame *frame);
/* @MINGUO (zifmmingo): Republic of China year, month, day, separated
 * ("112/07/04", "1 1 1") or all digits ("1120704"); year 0 is invalid. */
XF_API xf_status zifmmingo(xf_frame *frame);
/* @XYYMMDD (zifmxymd): "2023-07-04", "23-07-04", "20230704", "230704" (and
 * whatever @YYMMDD reads). */
XF_API xf_status zifmxymd(xf_frame *frame);
/* @YYQZ (zifmyyqz): "2303", "202303": the first day of the quarter.
 * @YYMMN (zifmyymn): "2307", "202307": the first of the month. */
XF_API xf_status zifmyyqz(xf_frame *frame);
XF_API xf_status zifmyymn(xf_frame *frame);
/* @YMDDTTM (zifmymdt): yy[yy]-mm-dd hh:mm[:ss[.fff]] with any one of "-",
 * "/", ":", "." or a blank between the parts (a "T" also between day and
 * hour): a datetime. d (0..39) changes nothing. */
XF_API xf_status zifmymdt(xf_frame *frame);
/* @PDJULG (zifmpdjg) and @PDJULI (zifmpdji): four bytes of packed decimal,
 * yyyydddF and ccyydddF (ccyy counted from 1900), w 4; the sign nibble A,
 * C, E or F; four blank bytes (20 or 40) are a blank field. */
XF_API xf_status zifmpdjg(xf_frame *frame);
XF_API xf_status zifmpdji(xf_frame *frame);
/* National date informats @<lang>DFDE (zifm<lang>de: day, month, year:
 * "15Okt2023", "15 Oktober 23", "15-okt-2023"), @<lang>DFMY (zifm<lang>my:
 * month and year, the first of the month: "Oct 23") and @<lang>DFDT
 * (zifm<lang>dt: a DFDE date, one blank or punctuation character and
 * hh:mm[:ss[.fff]]: "15okt2023:12:30:15.5"; d 0..39 changes nothing) for
 * the 23 prefixes AFR af_ZA, CAT ca_ES, CRO hr_HR, CSY cs_CZ, DAN da_DK,
 * DES de_CH, DEU de_DE, ENG en_GB, ESP es_ES, FIN fi_FI, FRA fr_FR, FRS
 * fr_CH, HUN hu_HU, ITA it_IT, MAC mk_MK, NLD nl_NL, NOR nb_NO, POL pl_PL,
 * PTG pt_PT, RUS ru_RU, SLO sl_SI, SVE sv_SE, and EUR: the frame's locale
 * (the ZAV_LOCALE locale when the frame names none, en_GB when that matches
 * no record). Months: any month name of the locale record (both sets), an
 * abbreviation without its final point, or the first three letters of a
 * full name naming one month only; any case. Valid UTF-8 is read as UTF-8,
 * other text as Windows-1252. Blanks or punctuation may separate the parts;
 * two-digit years as for the other date informats. */
XF_API xf_status zifmafrde(xf_frame *frame);
XF_API xf_status zifmafrdt(xf_frame *frame);
XF_API xf_status zifmafrmy(xf_frame *frame);
XF_API xf_status zifmcatde(xf_frame *frame);
XF_API xf_status zifmcatdt(xf_frame *frame);
XF_API xf_status zifmcatmy(xf_frame *frame);
XF_API xf_status zifmcrode(xf_frame *frame);
XF_API xf_status zifmcrodt(xf_frame *frame);
XF_API xf_status zifmcromy(xf_frame *frame);
XF_API xf_status zifmcsyde(xf_frame *frame);
XF_API xf_status zifmcsydt(xf_frame *frame);
XF_API xf_status zifmcsymy(xf_frame *frame);
XF_API xf_status zifmdande(xf_frame *frame);
XF_API xf_status zifmdandt(xf_frame *frame);
XF_API xf_status zifmdanmy(xf_frame *frame);
XF_API xf_status zifmdesde(xf_frame *frame);
XF_API xf_status zifmdesdt(xf_frame *frame);
XF_API xf_status zifmdesmy(xf_frame *frame);
XF_API xf_status zifmdeude(xf_frame *frame);
XF_API xf_status zifmdeudt(xf_frame *frame);
XF_API xf_status zifmdeumy(xf_frame *frame);
XF_API xf_status zifmengde(xf_frame *frame);
XF_API xf_status zifmengdt(xf_frame *frame);
XF_API xf_status zifmengmy(xf_frame *frame);
XF_API xf_status zifmespde(xf_frame *frame);
XF_API xf_status zifmespdt(xf_frame *frame);
XF_API xf_status zifmespmy(xf_frame *frame);
XF_API xf_status zifmeurde(xf_frame *frame);
XF_API xf_status zifmeurdt(xf_frame *frame);
XF_API xf_status zifmeurmy(xf_frame *frame);
XF_API xf_status zifmfinde(xf_frame *frame);
XF_API xf_status zifmfindt(xf_frame *frame);
XF_API xf_status zifmfinmy(xf_frame *frame);
XF_API xf_status zifmfrade(xf_frame *frame);
XF_API xf_status zifmfradt(xf_frame *frame);
XF_API xf_status zifmframy(xf_frame *frame);
XF_API xf_status zifmfrsde(xf_frame *frame);
XF_API xf_status zifmfrsdt(xf_frame *frame);
XF_API xf_status zifmfrsmy(xf_frame *frame);
XF_API xf_status zifmhunde(xf_frame *frame);
XF_API xf_status zifmhundt(xf_frame *frame);
XF_API xf_status zifmhunmy(xf_frame *frame);
XF_API xf_status zifmitade(xf_frame *frame);
XF_API xf_status zifmitadt(xf_frame *frame);
XF_API xf_status zifmitamy(xf_frame *frame);
XF_API xf_status zifmmacde(xf_frame *frame);
XF_API xf_status zifmmacdt(xf_frame *frame);
XF_API xf_status zifmmacmy(xf_frame *frame);
XF_API xf_status zifmnldde(xf_frame *frame);
XF_API xf_status zifmnlddt(xf_frame *frame);
XF_API xf_status zifmnldmy(xf_frame *frame);
XF_API xf_status zifmnorde(xf_frame *frame);
XF_API xf_status zifmnordt(xf_frame *frame);
XF_API xf_status zifmnormy(xf_frame *frame);
XF_API xf_status zifmpolde(xf_frame *frame);
XF_API xf_status zifmpoldt(xf_frame *frame);
XF_API xf_status zifmpolmy(xf_frame *frame);
XF_API xf_status zifmptgde(xf_frame *frame);
XF_API xf_status zifmptgdt(xf_frame *frame);
XF_API xf_status zifmptgmy(xf_frame *frame);
XF_API xf_status zifmrusde(xf_frame *frame);
XF_API xf_status zifmrusdt(xf_frame *frame);
XF_API xf_status zifmrusmy(xf_frame *frame);
XF_API xf_status zifmslode(xf_frame *frame);
XF_API xf_status zifmslodt(xf_frame *frame);
XF_API xf_status zifmslomy(xf_frame *frame);
XF_API xf_status zifmsvede(xf_frame *frame);
XF_API xf_status zifmsvedt(xf_frame *frame);
XF_API xf_status zifmsvemy(xf_frame *frame);

/* Character informats deliver w bytes at frame->output: the first
 * min(w, input_length) bytes of the text, padded with blanks; output_length
 * is set to w and the output encoding to 0. When output_capacity is below w
 * the field is cut to the capacity and XF_E_CAPACITY returned; w below 0
 * returns XF_IN_BAD_WIDTH with nothing written. Otherwise XF_OK. */

/* @$CHAR, @$F: the bytes as they are. */
XF_API xf_status zifmc(xf_frame *frame);
/* @$CHARZB: binary zeros become blanks. */
XF_API xf_status zifmzbc(xf_frame *frame);
/* @$QUOTE: when the text, blanks around it aside, starts and ends with the
 * same quote (' or "), that one pair is removed. */
XF_API xf_status zifmcq(xf_frame *frame);
/* @$HEX, @$OCTAL, @$BINARY: each 2, 3 or 8 digits of the first w input
 * bytes become one byte (an incomplete last group is dropped); the output
 * length is that byte count, cut to the capacity (XF_E_CAPACITY). A bad
 * digit or an octal group above 377: the bytes blank and XF_IN_INVALID. */
XF_API xf_status zifmchex(xf_frame *frame);
XF_API xf_status zifmcoct(xf_frame *frame);
XF_API xf_status zifmcbin(xf_frame *frame);
/* @$ASCII (zifmascii): as @$CHAR (this host is ASCII). @$EBCDIC
 * (zifmebcdic): each byte through eb2as. @$UPCASE (zifmupcase): a-z become
 * A-Z, nothing else changes. @$REVERJ (zifmreverj): the w-byte field read
 * backwards ("XYZ  " gives "  ZYX"). @$REVERS (zifmrevers): the same, its
 * leading blanks moved to the end ("XYZ  " gives "ZYX  "). */
XF_API xf_status zifmascii(xf_frame *frame);
XF_API xf_status zifmebcdic(xf_frame *frame);
XF_API xf_status zifmupcase(xf_frame *frame);
XF_API xf_status zifmreverj(xf_frame *frame);
XF_API xf_status zifmrevers(xf_frame *frame);

/* ======================================================================
 * User-defined formats
 * ====================================================================== */

/* --- Records of a user-defined format ----------------------------------
 *
 * A format is a header (xf_user_format) and an array of range_count pointers
 * to range entries; each entry points at a label. Records are plain memory,
 * read only once built; the lookup routines never free them.
 *
 * In-memory catalog (context source 5). A host that keeps its own formats
 * hands them over without a control file:
 *   1. an array of headers: element 0 is the anchor (marker "00000000",
 *      range_count 0), then one header per format, each with a marker that is
 *      not "00000000"; the last header's marker begins with a blank, every
 *      other one's does not;
 *   2. one array of range pointers holding each format's range_count
 *      pointers back to back, in the order of the headers;
 *   3. a context with source = 5, catalog = the anchor and catalog_ranges =
 *      the first element of the pointer array, passed to xfname2.
 * The catalog must stay unchanged and alive as long as any handle resolved
 * from it. Names are upper case, blank padded to 32; kind 11 formats are
 * found by names given with "$", the others by names without it. Keys of
 * numeric entries are made as xf_numeric_key does; within a format searched
 * by bisection (linear_search 0) the entries are sorted by start and do not
 * overlap.
 */

/* Format header (UserFormat): 96 bytes. */
typedef struct xf_user_format {
    char        marker[8];        /*  0  "00000000" in the anchor; first byte blank in the last header */
    char        name[32];         /*  8  blank padded */
    int16_t     kind;             /* 40  1 numeric, 3 numeric with pictures, 11 character */
    uint8_t     internal[2];      /* 42  3 and 1 in headers the reader builds */
    uint16_t    min_width;        /* 44  */
    uint16_t    max_width;        /* 46  */
    int64_t     range_count;      /* 48  entries in the range-pointer array */
    uint64_t    label_count;      /* 56  labels built */
    double      fuzz;             /* 64  widens every numeric range at build time */
    uint32_t    has_other;        /* 72  nonzero: other_label is written when nothing matches */
    uint16_t    default_width;    /* 76  */
    int16_t     max_label_length; /* 78  longest label text in UTF-8 bytes */
    const void *other_label;      /* 80  an xf_label_text, xf_label_format or xf_picture_label */
    uint8_t     linear_search;    /* 88  1 stored order, 0 bisection over sorted entries */
    uint8_t     round;            /* 89  pictures round to the nearest integer */
    uint8_t     multilabel;       /* 90  a value may carry every matching label */
    uint8_t     reserved[5];      /* 91  zero in headers a host builds; the reader
                                   *     marks a search index it keeps here */
} xf_user_format;

/* Range entry kinds and flags. */
#define XF_RANGE_NUMERIC       1u   /* xf_range_numeric, a range */
#define XF_RANGE_NUMERIC_VALUE 2u   /* xf_range_numeric, start_key only */
#define XF_RANGE_CHAR_VALUE    3u   /* xf_range_char_value */
#define XF_RANGE_CHAR          4u   /* xf_range_char */
#define XF_RANGE_FIXED_VALUE   10u  /* xf_range_fixed, start only */
#define XF_RANGE_FIXED         11u  /* xf_range_fixed */
#define XF_RANGE_LOW           1u   /* the start is LOW */
#define XF_RANGE_HIGH          2u   /* the end is HIGH */
#define XF_RANGE_START_EXCL    4u   /* the start value itself is outside */
#define XF_RANGE_END_EXCL      8u   /* the end value itself is outside */
#define XF_RANGE_LABEL_LIST    16u  /* label points at an xf_label_list */

/* Numeric entry (kinds 1 and 2): 48 bytes. Keys are 8 big-endian bytes
 * compared as unsigned bytes. LOW is 00 01 00 00 00 00 00 00 (above every
 * missing value, below every number) in start_key and low_key; HIGH is eight
 * bytes FF in end_key and high_key. low_key is start - fuzz, high_key
 * end + fuzz (a missing bound is not fuzzed). */
typedef struct xf_range_numeric {
    uint8_t     entry_kind;       /*  0 */
    uint8_t     flags;            /*  1 */
    uint8_t     reserved[6];      /*  2 */
    const void *label;            /*  8 */
    uint8_t     start_key[8];     /* 16 */
    uint8_t     end_key[8];       /* 24 */
    uint8_t     low_key[8];       /* 32 */
    uint8_t     high_key[8];      /* 40 */
} xf_range_numeric;

/* Character range (kind 4): the start text (start_length UTF-16 units) at
 * offset 16, the end text right after it. */
typedef struct xf_range_char {
    uint8_t     entry_kind;       /*  0 */
    uint8_t     flags;            /*  1 */
    uint16_t    start_length;     /*  2 */
    uint16_t    end_length;       /*  4 */
    uint16_t    reserved;         /*  6 */
    const void *label;            /*  8 */
} xf_range_char;                  /* text at offset 16 */

/* Character single value (kind 3): its flags after the label pointer and
 * its text (length units) at offset 18. */
typedef struct xf_range_char_value {
    uint8_t     entry_kind;       /*  0 */
    uint8_t     reserved1;        /*  1 */
    uint16_t    length;           /*  2 */
    uint32_t    reserved2;        /*  4 */
    const void *label;            /*  8 */
    uint8_t     flags;            /* 16 */
    uint8_t     reserved3;        /* 17 */
} xf_range_char_value;            /* text at offset 18 */

/* Fixed-width character keys (kinds 10 and 11): 16 units each, blank
 * padded; kind 10 uses start only. 80 bytes. */
typedef struct xf_range_fixed {
    uint8_t     entry_kind;       /*  0 */
    uint8_t     flags;            /*  1 */
    uint8_t     reserved[6];      /*  2 */
    const void *label;            /*  8 */
    uint16_t    start[16];        /* 16 */
    uint16_t    end[16];          /* 48 */
} xf_range_fixed;

/* Label kinds. */
#define XF_LABEL_TEXT     6u   /* xf_label_text */
#define XF_LABEL_PICTURE  12u  /* xf_picture_label */
                               /* any other kind: xf_label_format */

/* Text label (LabelEntry): length UTF-16 units at offset 4. */
typedef struct xf_label_text {
    uint8_t     label_kind;       /* 0  6 */
    uint8_t     reserved;         /* 1 */
    int16_t     length;           /* 2  units */
} xf_label_text;                  /* text at offset 4 */

/* Label naming another format, applied with width |width| and decimals. */
typedef struct xf_label_format {
    uint8_t     label_kind;       /*  0  neither 6 nor 12 */
    uint8_t     decimals;         /*  1 */
    int16_t     width;            /*  2 */
    char        name[32];         /*  4  blank padded ("F", "DATE", "$UPCASE", a user format) */
} xf_label_format;

/* Several labels of one range (entry flag XF_RANGE_LABEL_LIST). */
typedef struct xf_label_list {
    uint32_t    count;            /*  0 */
    uint32_t    reserved;         /*  4 */
    /* count pointers to labels at offset 8 */
} xf_label_list;

/* Picture label: a numeric template (datatype 0) or a date directive
 * template (datatype 1 DATE, 2 TIME, 3 DATETIME). The template, prefix and
 * language are bytes of the text area at offset 32; the offsets are
 * relative to it. mult holds the multiplier's eight bytes in reverse order
 * (0: none). */
typedef struct xf_picture_label {
    uint8_t     label_kind;       /*  0  12 */
    uint8_t     datatype;         /*  1 */
    char        fill;             /*  2  blank when none */
    char        decsep;           /*  3  kept for the host */
    char        dig3sep;          /*  4  kept for the host */
    uint8_t     noedit;           /*  5  nonzero: the template is written literally */
    int16_t     prefix_offset;    /*  6 */
    int16_t     prefix_length;    /*  8 */
    int16_t     picture_length;   /* 10 */
    int16_t     digit_count;      /* 12  digits "0"-"9" in the template */
    int16_t     language_offset;  /* 14 */
    int16_t     language_length;  /* 16 */
    uint8_t     reserved[6];      /* 18  zero in labels a host builds; the reader
                                   *     marks (four bytes and a count) a
                                   *     compiled date template it keeps after
                                   *     the text */
    uint8_t     mult[8];          /* 24 */
} xf_picture_label;               /* text area at offset 32 */

/* The 8-byte collating key of a number, big-endian at key: non-negative
 * values get the sign bit set, negative ones are complemented, -0 keys as
 * +0; every missing value keys below every number. */
XF_API void xf_numeric_key(double value, uint8_t key[8]);

/* Installs in handle->routine the lookup routine for the header's kind and
 * search: kind 1 or 3 yfpfnfn (linear) or yfpfnfm (bisection), kind 11
 * yfpfcfn or yfpfcfm; any other kind leaves it unchanged. */
XF_API void setfptr(void *header, xf_user_handle *handle);

/* Lookup routines (xf_label_routine): the value is the frame's double, or
 * for the character ones its text in UTF-16 units: input_length counts units
 * when input_encoding is 0 (as xffmt passes text it widened), bytes when it
 * is 25 (text the host sent as UTF-16LE). The
 * matched label is written in a field of w characters: UTF-16LE (output
 * encoding 25) when the frame requests 25, else UTF-8 (output encoding 0),
 * cut at the output capacity without splitting a character. Pictures and
 * unmatched numbers are single-byte text in min(w, capacity) positions. A
 * value that matches nothing without an OTHER label sets
 * XF_FLAG_UNFORMATTED. Return 0, the status of the standard number routine
 * for an unmatched number, or 0xFFFFFFFF when several labels do not fit.
 *   yfpfnfn linear (may collect every match with XF_FLAG_MULTILABEL),
 *   yfpfnfm bisection over kinds 1 and 2, yfpfnfs over kind 2 only,
 *   yfpfnfr over kind 1 only; yfpfcfn linear, yfpfcfm bisection over kinds
 *   3 and 4, yfpfcfs kind 3 only, yfpfcfr kind 4 only, yfpfcfx kind 10
 *   only, yfpfcfy kind 11 only, yfpfcfz kinds 10 and 11. The bisection
 *   routines need entries sorted and not overlapping. */
XF_API xf_status yfpfnfn(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfnfm(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfnfs(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfnfr(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfcfn(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfcfm(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfcfs(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfcfr(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfcfx(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfcfy(xf_frame *frame, void *header, void *ranges);
XF_API xf_status yfpfcfz(xf_frame *frame, void *header, void *ranges);

/* Writes the labels of several matched entries side by side in slots of w
 * characters (collect nonzero: count entries in matches, all labels of a
 * list; else the single entry and the first label of a list). value is the
 * number handed to pictures. Returns 0, or -1 with min(w, capacity) '*'
 * when they do not fit. */
XF_API int32_t getmulti(int32_t collect, xf_frame *frame, int64_t count,
                        const void *const *matches, const void *entry,
                        double value, int32_t round);
/* Applies the format a xf_label_format names (resolved through the catalog
 * the header belongs to, then the built-in ones) with the label's width and
 * decimals; returns its status. A name that does not resolve gives
 * min(w, capacity) '*' and 0. */
XF_API xf_status yfmtlbl(xf_frame *frame, void *header, void *ranges, const void *label);
/* Copies min(source_units, dest_units) UTF-16 units and fills the rest of
 * dest with U+0020. */
XF_API void MPTLU(const uint16_t *source, int32_t source_units, uint16_t *dest, int32_t dest_units);
/* Compares two UTF-16 texts as signed 16-bit units, trailing blanks
 * insignificant: -1, 0 or 1. */
XF_API int32_t zstrcomu(const uint16_t *a, int32_t a_units, const uint16_t *b, int32_t b_units);

/* Renders a picture label into exactly w bytes at output (w >= 0; the
 * caller guarantees the room). round: the header's round flag. */
XF_API void yfpict(int32_t w, char *output, const void *label, int32_t round, double value);
/* Renders a date, time or datetime value (datatype 1, 2, 3) under a
 * template of directives into work (at most work_capacity bytes); returns
 * the length written. Directives: %a %A %b %B %d %H %I %j %m %M %p %S %U %w
 * %y %Y %%, each optionally with the flag 0 (%0d: zero padded); any other
 * character is copied. Names are English for an empty or "English"
 * language. A missing value or one outside the calendar gives a lone ".". */
XF_API int32_t datefmt(const char *picture, int32_t picture_length, int32_t datatype,
                       const char *language, int32_t language_length, double value,
                       char *work, int32_t work_capacity);

/* Reads the user-defined format named by the first length bytes of name
 * (prefix "@$", "@", "$" or none giving the request kind) from the source the
 * context names, allocating its records on *chain with xfmalloc. Returns 0
 * when found, with context->control set to the format header and
 * context->word2 to its range-pointer array; nonzero otherwise. */
XF_API int32_t xfrdfmt(int32_t source, const char *name, int32_t length,
                       xf_ufmt_context *context, void **chain);
/* Dispatches a request on context->source: 5 xfrdmnr, 3 and 4 return -17
 * (not supported), anything else the control file (xfrdexp). Returns 0 with
 * context->control and context->word2 set, 1 when not found, or a negative
 * reader error. request_kind: 1 numeric, 11 character, 20 and 30 informats;
 * name: 32 bytes blank padded. */
XF_API int32_t xfrdcom(int32_t request_kind, const char *name, xf_ufmt_context *context,
                       void **chain);
/* Walks the in-memory catalog of context (source 5) for a header of the
 * same class (kind 11 or not) and name; 0 found (control and word2 set), 1 not. */
XF_API int32_t xfrdmnr(int32_t request_kind, const char *name, xf_ufmt_context *context);
/* Reads the control file (context->control_path, or "cntlout.xml" in the
 * current directory) and builds the rows of the requested format on *chain.
 * Returns 0, 1 when the file holds no such format, or a negative code:
 * -1 the file cannot be opened ("Open failed" is printed), -2 malformed XML
 * or reference, -3 a row that cannot be used (bad number, type mismatch),
 * -4 memory, -9 bad DATATYPE, -14 a needed column missing, -16 HLO "F",
 * -20 bad TYPE. */
XF_API int32_t xfrdexp(int32_t request_kind, const char *name, xf_ufmt_context *context,
                       void **chain);

/* ======================================================================
 * National language
 * ====================================================================== */

/* --- Locale database ---------------------------------------------------- */

/* One text field of a locale record: length bytes at text (not terminated;
 * length 0 and text NULL when absent). Characters outside ASCII are written
 * as seven-character escapes "<U00A0>". */
typedef struct zav_locale_field {
    uint32_t    length;
    const char *text;
} zav_locale_field;

/* The 136 locale records of 189 fields each; locale id k is row k-1.
 * Constant, shared by all threads. */
XF_API extern const zav_locale_field ZAVlocaleData[136][189];

/* Zero-fills capacity bytes at dest, selects the record of locale_id (1-136)
 * or, for any other id, the first record whose language and country codes
 * match positions 0-1 and 3-4 of ZAV_LOCALE (case-insensitive; "en_US" when
 * unset), and copies field (0-188, not range-checked) into dest. Returns the
 * field's length (0 when empty), or -1 when no record matches or the field
 * is longer than capacity (dest then stays all zero). ZAV_LOCALE is read
 * once, on the first call that needs it; never allocates. */
XF_API int getZAVLocDB(char *dest, int capacity, int field, int locale_id);

/* Locale-code table: 79 buckets of {key, id}; keys are five upper-case
 * characters "LL_CC". Bucket b holds the keys whose hash
 * (((c0 + 12573) * 33 + c1) * 33 + c3) * 33 + c4 (64-bit) mod 79 is b. */
typedef struct zav_locname_entry {
    const char *key;                 /* five characters, NUL-terminated */
    uint32_t    id;                  /* locale id 1-136 */
} zav_locname_entry;
typedef struct zav_locname_bucket {
    const zav_locname_entry *entries; /* NULL when count is 0 */
    int32_t                  count;
} zav_locname_bucket;

/* Encoding-name table: 122 buckets of {name, id, length}; names upper case.
 * Bucket b holds the names whose hash c[0] + 3c[1] + 5c[n-3] + 7c[n-2] +
 * 9c[n-1] mod 122 is b. */
typedef struct zav_encname_entry {
    const char *name;                /* NUL-terminated, length bytes */
    uint32_t    id;                  /* encoding id 20-248 */
    int32_t     length;
} zav_encname_entry;
typedef struct zav_encname_bucket {
    const zav_encname_entry *entries; /* NULL when count is 0 */
    int32_t                  count;
} zav_encname_bucket;

/* The library exports the two tables as
 *     const zav_locname_bucket table[79];
 *     const zav_encname_bucket etable[122];
 * They are not declared here: global names that short would shadow the
 * host's own variables. A host that reads them declares them itself. */

/* Upper-cases the length bytes of name in place (a-z only) and looks the
 * five-character code "ll_cc" up in table. Returns 0 with *id the locale id,
 * or 5 with *id 0 (length not 5, name NULL, or unknown code). One bucket
 * probe, no allocation; writes the caller's buffer. */
XF_API uint32_t LocnameToID(char *name, uint32_t length, uint32_t *id);

/* Upper-cases the length bytes of name in place and looks the encoding name
 * up in etable. Returns 0 with *id the encoding id, or 4 with *id 0 (length
 * below 4, name NULL, or unknown name). One bucket probe, no allocation;
 * writes the caller's buffer. */
XF_API uint32_t EncnameToID(char *name, int32_t length, uint32_t *id);

/* National output encoder: text (*length bytes, non-ASCII characters as
 * "<UXXXX>" escapes, U+00A4 becoming the marker U+0001) is converted to the
 * process codeset (UTF-16LE when the frame asks for encoding 25) and cut,
 * character by character, to width. On return text holds the converted bytes
 * and *length their count; text must have room for max(*length, capacity)
 * bytes. Returns the converted length minus width (<= 0) when the text fits
 * whole, 1 when trailing characters were dropped, 2 when the result is longer
 * than capacity (text unchanged), 4 when it cannot be converted. */
XF_API int getExpResultFromNarrowCharBuf(const xf_frame *frame, char *text, int32_t *length,
                                         int32_t width, uint32_t capacity);

/* Monetary conventions of one currency, in the shape of the monetary part of
 * the C library's locale conventions. Texts are NUL-terminated; non-ASCII
 * characters are written as "<UXXXX>" escapes. */
typedef struct xf_monetary {
    const char *int_curr_symbol;     /* ISO 4217 code, "USD" */
    const char *currency_symbol;     /* local symbol, "US$" */
    const char *mon_decimal_point;
    const char *mon_thousands_sep;
    const char *mon_grouping;        /* digits per group as text, "3" */
    const char *positive_sign;
    const char *negative_sign;
    char int_frac_digits, frac_digits;
    char p_cs_precedes, p_sep_by_space, n_cs_precedes, n_sep_by_space;
    char p_sign_posn, n_sign_posn;
} xf_monetary;

/* The 82 currencies, in alphabetical order of the code (AED ... ZWD). */
XF_API extern const xf_monetary lconv_monetary[82];
/* Placement of digits (V), symbol ($), sign (-) and parentheses, indexed by
 * (symbol precedes + 2 * space between) * 5 + sign position. */
XF_API extern const char *const CurrencyFormatPatterns[20];

/* NLMNL and NLMNI: an amount in the currency of entry with the local symbol
 * (nlmnyloc) or the international code (nlmnyint), punctuated and placed by
 * the frame's locale, right-aligned in w; drops grouping, then the symbol,
 * then switches to exponent form before giving a field of '*'. Validation
 * (option XF_OPT_VALIDATE): w 8..32, d 0..28, else 39..42. */
XF_API xf_status nlmnyloc(xf_frame *frame, const xf_monetary *entry);
XF_API xf_status nlmnyint(xf_frame *frame, const xf_monetary *entry);
/* One routine per NLMNI/NLMNL format: nlmnyint or nlmnyloc on the
 * currency's row of lconv_monetary. */
XF_API xf_status nlmniaed(xf_frame *frame);
XF_API xf_status nlmniaud(xf_frame *frame);
XF_API xf_status nlmnibgn(xf_frame *frame);
XF_API xf_status nlmnibrl(xf_frame *frame);
XF_API xf_status nlmnicad(xf_frame *frame);
XF_API xf_status nlmnichf(xf_frame *frame);
XF_API xf_status nlmnicny(xf_frame *frame);
XF_API xf_status nlmniczk(xf_frame *frame);
XF_API xf_status nlmnidkk(xf_frame *frame);
XF_API xf_status nlmnieek(xf_frame *frame);
XF_API xf_status nlmniegp(xf_frame *frame);
XF_API xf_status nlmnieur(xf_frame *frame);
XF_API xf_status nlmnigbp(xf_frame *frame);
XF_API xf_status nlmnihkd(xf_frame *frame);
XF_API xf_status nlmnihrk(xf_frame *frame);
XF_API xf_status nlmnihuf(xf_frame *frame);
XF_API xf_status nlmniidr(xf_frame *frame);
XF_API xf_status nlmniils(xf_frame *frame);
XF_API xf_status nlmniinr(xf_frame *frame);
XF_API xf_status nlmnijpy(xf_frame *frame);
XF_API xf_status nlmnikrw(xf_frame *frame);
XF_API xf_status nlmniltl(xf_frame *frame);
XF_API xf_status nlmnilvl(xf_frame *frame);
XF_API xf_status nlmnimop(xf_frame *frame);
XF_API xf_status nlmnimxn(xf_frame *frame);
XF_API xf_status nlmnimyr(xf_frame *frame);
XF_API xf_status nlmninok(xf_frame *frame);
XF_API xf_status nlmninzd(xf_frame *frame);
XF_API xf_status nlmnipln(xf_frame *frame);
XF_API xf_status nlmnirol(xf_frame *frame);
XF_API xf_status nlmnirub(xf_frame *frame);
XF_API xf_status nlmnirur(xf_frame *frame);
XF_API xf_status nlmnisek(xf_frame *frame);
XF_API xf_status nlmnisgd(xf_frame *frame);
XF_API xf_status nlmniskk(xf_frame *frame);
XF_API xf_status nlmnithb(xf_frame *frame);
XF_API xf_status nlmnitry(xf_frame *frame);
XF_API xf_status nlmnitwd(xf_frame *frame);
XF_API xf_status nlmniusd(xf_frame *frame);
XF_API xf_status nlmnizar(xf_frame *frame);
XF_API xf_status nlmnlaed(xf_frame *frame);
XF_API xf_status nlmnlaud(xf_frame *frame);
XF_API xf_status nlmnlbgn(xf_frame *frame);
XF_API xf_status nlmnlbrl(xf_frame *frame);
XF_API xf_status nlmnlcad(xf_frame *frame);
XF_API xf_status nlmnlchf(xf_frame *frame);
XF_API xf_status nlmnlcny(xf_frame *frame);
XF_API xf_status nlmnlczk(xf_frame *frame);
XF_API xf_status nlmnldkk(xf_frame *frame);
XF_API xf_status nlmnleek(xf_frame *frame);
XF_API xf_status nlmnlegp(xf_frame *frame);
XF_API xf_status nlmnleur(xf_frame *frame);
XF_API xf_status nlmnlgbp(xf_frame *frame);
XF_API xf_status nlmnlhkd(xf_frame *frame);
XF_API xf_status nlmnlhrk(xf_frame *frame);
XF_API xf_status nlmnlhuf(xf_frame *frame);
XF_API xf_status nlmnlidr(xf_frame *frame);
XF_API xf_status nlmnlils(xf_frame *frame);
XF_API xf_status nlmnlinr(xf_frame *frame);
XF_API xf_status nlmnljpy(xf_frame *frame);
XF_API xf_status nlmnlkrw(xf_frame *frame);
XF_API xf_status nlmnlltl(xf_frame *frame);
XF_API xf_status nlmnllvl(xf_frame *frame);
XF_API xf_status nlmnlmop(xf_frame *frame);
XF_API xf_status nlmnlmxn(xf_frame *frame);
XF_API xf_status nlmnlmyr(xf_frame *frame);
XF_API xf_status nlmnlnok(xf_frame *frame);
XF_API xf_status nlmnlnzd(xf_frame *frame);
XF_API xf_status nlmnlpln(xf_frame *frame);
XF_API xf_status nlmnlrol(xf_frame *frame);
XF_API xf_status nlmnlrub(xf_frame *frame);
XF_API xf_status nlmnlrur(xf_frame *frame);
XF_API xf_status nlmnlsek(xf_frame *frame);
XF_API xf_status nlmnlsgd(xf_frame *frame);
XF_API xf_status nlmnlskk(xf_frame *frame);
XF_API xf_status nlmnlthb(xf_frame *frame);
XF_API xf_status nlmnltry(xf_frame *frame);
XF_API xf_status nlmnltwd(xf_frame *frame);
XF_API xf_status nlmnlusd(xf_frame *frame);
XF_API xf_status nlmnlzar(xf_frame *frame);

/* --- National dates and times ------------------------------------------- */

/* One row of a member's pattern table: a pattern, or NULL for the locale
 * field numbered by code (4096 + field: a datetime field; 190: the member's
 * short numeric form). */
typedef struct xf_nl_pattern {
    const char *pattern;
    int32_t     code;
} xf_nl_pattern;

/* Expands a national date/time pattern (pattern_length bytes, "%d %B %Y"
 * ...) for a date value and an hour, minute and second (each may be missing)
 * with the names of locale_id (0 or outside 1-136: ZAV_LOCALE). Writes |*width|
 * bytes at out: blank filled, the text left-aligned (right-aligned for a
 * negative *width). Returns 0 with the text length in *width, 1 when the text
 * is longer (out holds its first |*width| bytes), -2 for an unknown
 * conversion letter. Non-ASCII characters stay "<UXXXX>" escapes. */
XF_API int expand(double date, double hours, double minutes, double seconds, int32_t locale_id,
                  const char *pattern, int32_t pattern_length, char *out, int32_t *width,
                  int32_t decimals);
/* Expands pattern (NUL-terminated) or, when it is NULL, the locale field
 * numbered by code for a date value into text (room *length on entry, text
 * length on return). Returns -3 for a date outside [-138061, 6589336), -1 for
 * an unreadable field, else the expand result. */
XF_API int zkfdate(double date, int32_t locale_id, char *text, int32_t *length,
                   const char *pattern, int32_t code);
/* As zkfdate for a datetime (seconds from 1960) rounded to decimals; the
 * field is code & 0xFF and code bit 256 appends " %z". Range
 * [-11928470400, 569318630400) seconds, else -3. */
XF_API int zkfdttm(double datetime, int32_t locale_id, char *text, int32_t *length,
                   const char *pattern, int32_t code, int32_t decimals);
/* As zkfdttm for a time of day; the date part is missing. */
XF_API int zkftime(double time, int32_t locale_id, char *text, int32_t *length,
                   const char *pattern, int32_t code, int32_t decimals);

/* Pattern tables of the one-pattern members (first row used). */
XF_API extern const xf_nl_pattern nldatel_pat[3];
XF_API extern const xf_nl_pattern nldatem_pat[2];
XF_API extern const xf_nl_pattern nldateyml_pat[3];
XF_API extern const xf_nl_pattern nldateymm_pat[2];
XF_API extern const xf_nl_pattern nldateyql_pat[3];
XF_API extern const xf_nl_pattern nldateyqm_pat[2];
XF_API extern const xf_nl_pattern nldatemdl_pat[3];
XF_API extern const xf_nl_pattern nldatemdm_pat[2];
XF_API extern const xf_nl_pattern nldatew_pat[4];
XF_API extern const xf_nl_pattern nldatemn_pat[3];
XF_API extern const xf_nl_pattern nldatewn_pat[3];
XF_API extern const xf_nl_pattern nldatmdt_pat[3];
XF_API extern const xf_nl_pattern nldatmyml_pat[3];
XF_API extern const xf_nl_pattern nldatmymm_pat[2];
XF_API extern const xf_nl_pattern nldatmyql_pat[3];
XF_API extern const xf_nl_pattern nldatmyqm_pat[2];
XF_API extern const xf_nl_pattern nldatmmdl_pat[3];
XF_API extern const xf_nl_pattern nldatmmdm_pat[2];
XF_API extern const xf_nl_pattern nldatml_pat[4];
XF_API extern const xf_nl_pattern nldatmm_pat[3];
XF_API extern const xf_nl_pattern nldatms_pat[1];
XF_API extern const xf_nl_pattern nldatmw_pat[6];
XF_API extern const xf_nl_pattern nldatmmn_pat[3];
XF_API extern const xf_nl_pattern nldatmwn_pat[3];

/* The national date, datetime and time members. Each reads the frame's
 * value (a date, datetime or time), locale id and validation bit, writes the
 * locale's text left-aligned into the blank-filled capacity (output length:
 * the text's bytes; UTF-16LE when the host asks for encoding 25) and returns
 * 0, 39-42 (validation), XF_E_DATE_RANGE (two-pattern and S members: value
 * out of range, field of '*'), XF_E_OVERFLOW (nothing fits, field of '*') or
 * XF_E_CAPACITY. One-pattern members deliver nothing (output length 0) for a
 * value out of range. */
XF_API xf_status nldate(xf_frame *frame);
XF_API xf_status nldatemd(xf_frame *frame);
XF_API xf_status nldateym(xf_frame *frame);
XF_API xf_status nldateyr(xf_frame *frame);
XF_API xf_status nldateyq(xf_frame *frame);
XF_API xf_status nldateyw(xf_frame *frame);
XF_API xf_status nldatel(xf_frame *frame);
XF_API xf_status nldatem(xf_frame *frame);
XF_API xf_status nldateyml(xf_frame *frame);
XF_API xf_status nldateymm(xf_frame *frame);
XF_API xf_status nldateyql(xf_frame *frame);
XF_API xf_status nldateyqm(xf_frame *frame);
XF_API xf_status nldatemdl(xf_frame *frame);
XF_API xf_status nldatemdm(xf_frame *frame);
XF_API xf_status nldatew(xf_frame *frame);
XF_API xf_status nldatemn(xf_frame *frame);
XF_API xf_status nldatewn(xf_frame *frame);
XF_API xf_status nldates(xf_frame *frame);
XF_API xf_status nldateyms(xf_frame *frame);
XF_API xf_status nldatemds(xf_frame *frame);
XF_API xf_status nldateyqs(xf_frame *frame);
XF_API xf_status nldatm(xf_frame *frame);
XF_API xf_status nldatmap(xf_frame *frame);
XF_API xf_status nldatmz(xf_frame *frame);
XF_API xf_status nldatmwz(xf_frame *frame);
XF_API xf_status nldatmtm(xf_frame *frame);
XF_API xf_status nldatmtz(xf_frame *frame);
XF_API xf_status nldatmmd(xf_frame *frame);
XF_API xf_status nldatmym(xf_frame *frame);
XF_API xf_status nldatmyr(xf_frame *frame);
XF_API xf_status nldatmyq(xf_frame *frame);
XF_API xf_status nldatmyw(xf_frame *frame);
XF_API xf_status nldatml(xf_frame *frame);
XF_API xf_status nldatmm(xf_frame *frame);
XF_API xf_status nldatms(xf_frame *frame);
XF_API xf_status nldatmw(xf_frame *frame);
XF_API xf_status nldatmdt(xf_frame *frame);
XF_API xf_status nldatmyml(xf_frame *frame);
XF_API xf_status nldatmymm(xf_frame *frame);
XF_API xf_status nldatmyql(xf_frame *frame);
XF_API xf_status nldatmyqm(xf_frame *frame);
XF_API xf_status nldatmmdl(xf_frame *frame);
XF_API xf_status nldatmmdm(xf_frame *frame);
XF_API xf_status nldatmmn(xf_frame *frame);
XF_API xf_status nldatmwn(xf_frame *frame);
XF_API xf_status nldatmyms(xf_frame *frame);
XF_API xf_status nldatmmds(xf_frame *frame);
XF_API xf_status nldatmyqs(xf_frame *frame);
XF_API xf_status nltime(xf_frame *frame);
XF_API xf_status nltimap(xf_frame *frame);
XF_API xf_status nlstrmon(xf_frame *frame);
XF_API xf_status nlstrqtr(xf_frame *frame);
XF_API xf_status nlstrwk(xf_frame *frame);

/* National numbers, percents and money in the frame's locale (option word
 * bits 0-15, else ZAV_LOCALE), right-aligned in w. With the validation bit
 * of the option word a width or decimals outside the catalog limits gives
 * 39-42. A missing value is the standard missing display. w < 1 writes
 * nothing (0x8001D827). A field wider than the capacity: nlnum, nlpct and
 * nlmny and their variants give '*' up to the capacity, nlbest, nld and
 * nlpvalue the field cut to the capacity; both with 0x8001D826. Text outside ASCII (U+00A0 group marks, the euro
 * sign) is in the process codeset, or UTF-16LE when requested_output_encoding
 * is 25 (widths then count code units; output_encoding says which).
 *
 * nlnum (NLNUM w.d, w 1-32, d 0-9): d decimals, the locale's decimal mark
 * (field 172) and group mark (173) between the groups of field 174 ("3;2":
 * 12,34,567), "-" before a negative number. Too narrow: decimal places go
 * one by one (status 2) while the grouped text does not fit; with none left,
 * the grouping goes and the F w.d layout is written with the locale's mark
 * (its own decimal reduction, E notation); '*' when nothing fits.
 * nlnumi (NLNUMI): the same with "," between groups of three and "." in
 * every locale. */
XF_API xf_status nlnum(xf_frame *frame);
XF_API xf_status nlnumi(xf_frame *frame);
/* nlpct (NLPCT w.d, w 1-32, d 0-9): value x 100 as nlnum writes it, with
 * "%" right after the last digit; the "%" is never dropped.
 * nlpcti (NLPCTI): the same with "," and ".". nlpctp (NLPCTP): as NLPCT.
 * nlpctn (NLPCTN): as NLPCT, but every value keeps a position for the minus,
 * so that positive and negative values show the same decimals; the "%"
 * ends the field for both, as with PERCENTN. */
XF_API xf_status nlpct(xf_frame *frame);
XF_API xf_status nlpcti(xf_frame *frame);
XF_API xf_status nlpctn(xf_frame *frame);
XF_API xf_status nlpctp(xf_frame *frame);
/* nlmny (NLMNY w.d, w 1-32, d 0-9) and nlmnyi (NLMNYI): nlmnyloc and
 * nlmnyint with the locale's own currency: the local symbol of field 156
 * (its code, field 155, when the output cannot show it) or the code. A
 * missing value is placed with d counted as 0. */
XF_API xf_status nlmny(xf_frame *frame);
XF_API xf_status nlmnyi(xf_frame *frame);
/* nlbest (NLBEST w., w 1-32): what zfmb writes, with the locale's decimal
 * mark, and the minus after the number where the locale's negative-sign
 * position (field 182) is 2, or 3 and 4 with the sign beside a currency
 * symbol that follows the number (field 179 = 0).
 * nld (NLD w.d, w 1-32, d 0-16): what zfmd writes, with the locale's mark.
 * nlpvalue (NLPVALUE w.d, w 3-32, d 1-30): what zfmpval writes ("<,0001"
 * included), with the locale's mark. */
XF_API xf_status nlbest(xf_frame *frame);
XF_API xf_status nld(xf_frame *frame);
XF_API xf_status nlpvalue(xf_frame *frame);

/* --- Euro conversion ----------------------------------------------------- */

/* The process-wide conversion state: the working copy of the 26 rates, the
 * currency list and its length, the currency sign ('E' once set up). */
typedef struct xf_euro_state {
    double     *rates;
    const char *currencies;
    uint32_t    currencies_length;
    char        currency_sign;
} xf_euro_state;

/* Units per euro, index 0 the euro itself, in the order of valid_curr. */
XF_API extern const double conv_rate[26];
/* "EUR ATS BEF ... SIT ": 26 codes of three letters and a blank (104 bytes). */
XF_API extern const char valid_curr[105];
XF_API extern xf_euro_state euro_reentstr;
/* Both return &euro_reentstr. */
XF_API xf_euro_state *estrent(void);
XF_API xf_euro_state *getrent(void);
/* Allocates a working copy of conv_rate into state->rates (once per call;
 * a replaced copy is kept alive) and sets the currency list to valid_curr
 * when none is set. Safe to call from several threads at once. */
XF_API void eurconv(xf_euro_state *state);
/* Sets the currency sign to 'E'. */
XF_API void eurochr(xf_euro_state *state);
/* EURFRxxx: an amount in the national currency xxx printed in euros (value /
 * rate) exactly as EUROX w.d prints it; EURTOxxx: an amount in euros printed
 * in xxx (value * rate) as w.d does. Missing values go to EUROX or w.d
 * unchanged. The output length is the width (within the capacity); the
 * status is the printing format's. First use sets up the rate copy; safe
 * from any number of threads. */
XF_API xf_status eurfrats(xf_frame *frame);
XF_API xf_status eurfrbef(xf_frame *frame);
XF_API xf_status eurfrfim(xf_frame *frame);
XF_API xf_status eurfrfrf(xf_frame *frame);
XF_API xf_status eurfrdem(xf_frame *frame);
XF_API xf_status eurfriep(xf_frame *frame);
XF_API xf_status eurfritl(xf_frame *frame);
XF_API xf_status eurfrluf(xf_frame *frame);
XF_API xf_status eurfrnlg(xf_frame *frame);
XF_API xf_status eurfrpte(xf_frame *frame);
XF_API xf_status eurfresp(xf_frame *frame);
XF_API xf_status eurfrchf(xf_frame *frame);
XF_API xf_status eurfrdkk(xf_frame *frame);
XF_API xf_status eurfrgbp(xf_frame *frame);
XF_API xf_status eurfrgrd(xf_frame *frame);
XF_API xf_status eurfrsek(xf_frame *frame);
XF_API xf_status eurfrczk(xf_frame *frame);
XF_API xf_status eurfrhuf(xf_frame *frame);
XF_API xf_status eurfrnok(xf_frame *frame);
XF_API xf_status eurfrrur(xf_frame *frame);
XF_API xf_status eurfrtrl(xf_frame *frame);
XF_API xf_status eurfrplz(xf_frame *frame);
XF_API xf_status eurfrrol(xf_frame *frame);
XF_API xf_status eurfryud(xf_frame *frame);
XF_API xf_status eurfrsit(xf_frame *frame);
XF_API xf_status eurtoats(xf_frame *frame);
XF_API xf_status eurtobef(xf_frame *frame);
XF_API xf_status eurtofim(xf_frame *frame);
XF_API xf_status eurtofrf(xf_frame *frame);
XF_API xf_status eurtodem(xf_frame *frame);
XF_API xf_status eurtoiep(xf_frame *frame);
XF_API xf_status eurtoitl(xf_frame *frame);
XF_API xf_status eurtoluf(xf_frame *frame);
XF_API xf_status eurtonlg(xf_frame *frame);
XF_API xf_status eurtopte(xf_frame *frame);
XF_API xf_status eurtoesp(xf_frame *frame);
XF_API xf_status eurtochf(xf_frame *frame);
XF_API xf_status eurtodkk(xf_frame *frame);
XF_API xf_status eurtogbp(xf_frame *frame);
XF_API xf_status eurtogrd(xf_frame *frame);
XF_API xf_status eurtosek(xf_frame *frame);
XF_API xf_status eurtoczk(xf_frame *frame);
XF_API xf_status eurtohuf(xf_frame *frame);
XF_API xf_status eurtonok(xf_frame *frame);
XF_API xf_status eurtorur(xf_frame *frame);
XF_API xf_status eurtotrl(xf_frame *frame);
XF_API xf_status eurtoplz(xf_frame *frame);
XF_API xf_status eurtorol(xf_frame *frame);
XF_API xf_status eurtoyud(xf_frame *frame);
XF_API xf_status eurtosit(xf_frame *frame);

/* ======================================================================
 * Text and encodings
 * ====================================================================== */

/* Result codes of the text routines. */
#define XF_TX_OUTPUT_SMALL    0x803FE807u /* destination too small */
#define XF_TX_BAD_LEAD        0x803FE808u /* invalid UTF-8 lead byte (or unpaired surrogate) */
#define XF_TX_CUT_OFF         0x803FE814u /* sequence cut off by the end of the input */

/* Encoding ids used by the text routines (the ids of EncnameToID). */
#define XF_ENC_UTF8           20u
#define XF_ENC_UTF32BE        26u
#define XF_ENC_UTF32LE        27u
#define XF_ENC_ASCII          28u
#define XF_ENC_ISO_ARABIC     34u
#define XF_ENC_ISO_HEBREW     36u
#define XF_ENC_WIN_LATIN1     62u
#define XF_ENC_WIN_HEBREW     65u
#define XF_ENC_WIN_ARABIC     66u

/* Character formats of reworked bytes. Each reads at most input_length bytes
 * of text, writes min(w, capacity) positions (the output length) and returns
 * 0, or 0x8001D826 when w is above the capacity.
 *   $QUOTE   the text without trailing blanks in double quotes, inner '"'
 *            doubled; a long text is cut before the closing quote; w 1: '*'
 *            and 0x8001D827
 *   $UPCASE  the Windows-1252 letters in upper case (a-z, 0xE0-0xFE but
 *            0xF7, 0x9A 0x9C 0x9E 0xFF), left-aligned
 *   $REVERS  the first w bytes reversed and left-aligned: "abc  " -> "cba  "
 *   $REVERJ  the first w bytes (blank padded to w) reversed: "abc  " -> "  cba"
 *   $ASCII   the bytes as they stand (text here is already ASCII), 0x20 padded
 *   $EBCDIC  each byte through as2eb, 0x40 padded */
XF_API xf_status zfmquote(xf_frame *frame);
XF_API xf_status zfmupcase(xf_frame *frame);
XF_API xf_status zfmrevers(xf_frame *frame);
XF_API xf_status zfmreverj(xf_frame *frame);
XF_API xf_status zfmascii(xf_frame *frame);
XF_API xf_status zfmebcdic(xf_frame *frame);

/* UTF-8 tables, indexed by a byte (utf8_mask by sequence length 1-6, entry 0
 * unused). bytesFromUTF8: 1 for 0x00-0xBF, 2-6 by lead byte. valid_1st_utf8:
 * 1 for 0x00-0x7F and 0xC2-0xF4. valid_2nd_utf8: 1 for 0x80-0xBF. */
XF_API extern const uint8_t bytesFromUTF8[256];
XF_API extern const uint8_t valid_1st_utf8[256];
XF_API extern const uint8_t valid_2nd_utf8[256];
XF_API extern const uint8_t utf8_mask[7];

/* Single-byte code pages, byte -> UTF-16 code unit; unassigned bytes are
 * U+FFFD, except the five holes of wlt1unic (0x81 0x8D 0x8F 0x90 0x9D), which
 * are the C1 controls of the same value. */
XF_API extern const uint16_t arabunic[256];  /* ISO Arabic, id 34 */
XF_API extern const uint16_t waraunic[256];  /* Windows Arabic, id 66 */
XF_API extern const uint16_t hebrunic[256];  /* ISO Hebrew, id 36 */
XF_API extern const uint16_t whebunic[256];  /* Windows Hebrew, id 65 */
XF_API extern const uint16_t ansiunic[256];  /* ASCII: 0x80-0xFF are U+FFFD */
XF_API extern const uint16_t wlt1unic[256];  /* Windows Latin 1 */

/* One-character decoder: reads at most avail bytes at src, stores the code
 * point and the bytes used; returns 0 or an XF_TX_* code. */
typedef uint32_t (*xf_tx_decoder)(const uint8_t *src, uint32_t avail, uint32_t *code_point,
                                  uint32_t *used);
/* One-character storer: writes code_point into at most space bytes at dst and
 * stores the bytes written (0 on failure); returns 0 or an XF_TX_* code. */
typedef uint32_t (*xf_tx_storer)(uint32_t code_point, uint8_t *dst, uint32_t space,
                                 uint32_t *written);

/* Decodes one UTF-8 character (an xf_tx_decoder). avail 0 gives U+FFFD, 0 bytes
 * used and XF_TX_CUT_OFF. A valid lead with too few bytes: all bytes used,
 * U+FFFD, XF_TX_CUT_OFF. An invalid lead: it and up to n-1 following
 * continuation bytes used, U+FFFD, XF_TX_BAD_LEAD. Continuation bytes after a
 * valid lead are not checked (see isLegalUTF8). */
XF_API uint32_t UTF8_UTF32(const uint8_t *src, uint32_t avail, uint32_t *code_point,
                           uint32_t *used);
/* Encodes one code point as UTF-8 in 1-4 bytes (an xf_tx_storer); surrogates
 * and values above U+10FFFF are encoded without objection. Too little space:
 * nothing written, XF_TX_OUTPUT_SMALL. */
XF_API uint32_t UTF32_UTF8(uint32_t code_point, uint8_t *dst, uint32_t space, uint32_t *written);
/* Checks one UTF-8 sequence of length bytes: 1 legal, 0 not. *bad_pos is set
 * to length, or to the index of the first byte after the lead that is not a
 * continuation byte (a bad second byte for its lead leaves it at length).
 * Lengths outside 1-4 are accepted unchecked; nothing limits the second byte
 * after 0xF4, so sequences beyond U+10FFFF pass. */
XF_API int32_t isLegalUTF8(const uint8_t *seq, int32_t length, int32_t *bad_pos);
/* Stores one code point as four bytes, big-endian (COPY_UTF32) or
 * little-endian (COPY_UTF32_SWAP) (xf_tx_storer). Less than four bytes of
 * space: nothing stored, *written 0, XF_TX_OUTPUT_SMALL. */
XF_API uint32_t COPY_UTF32(uint32_t code_point, uint8_t *dst, uint32_t space, uint32_t *written);
XF_API uint32_t COPY_UTF32_SWAP(uint32_t code_point, uint8_t *dst, uint32_t space,
                                uint32_t *written);

/* Decodes one character of UTF-16 (big-endian; _SWAP: little-endian) into a
 * code point (xf_tx_decoder). A surrogate pair gives one code point from four
 * bytes. Fewer than 2 bytes, or a high surrogate whose partner is cut off: all
 * bytes used, U+FFFD, XF_TX_CUT_OFF. An unpaired surrogate: 2 bytes used,
 * U+FFFD, XF_TX_BAD_LEAD. */
XF_API uint32_t UTF16_UTF32(const uint8_t *src, uint32_t avail, uint32_t *code_point,
                            uint32_t *used);
XF_API uint32_t UTF16_UTF32_SWAP(const uint8_t *src, uint32_t avail, uint32_t *code_point,
                                 uint32_t *used);
/* Encodes one code point as UTF-16 (big-endian; _SWAP: little-endian), 2 bytes
 * or a 4-byte surrogate pair above U+FFFF (xf_tx_storer). A lone surrogate
 * value is stored as one unit. Above U+10FFFF: nothing written,
 * XF_TX_BAD_LEAD. Too little space: nothing written, XF_TX_OUTPUT_SMALL. */
XF_API uint32_t UTF32_UTF16(uint32_t code_point, uint8_t *dst, uint32_t space, uint32_t *written);
XF_API uint32_t UTF32_UTF16_SWAP(uint32_t code_point, uint8_t *dst, uint32_t space,
                                 uint32_t *written);
/* Whole text: UTF-32 (big-endian; _SWAP: little-endian) at src, src_len
 * bytes, to UTF-16 of the same byte order at dst (capacity bytes); *out_len
 * gets the bytes written. Same results as ConvertFromUTF32. */
XF_API uint32_t UTF32_UTF16s(const uint8_t *src, uint32_t src_len, uint8_t *dst,
                             uint32_t capacity, uint32_t *out_len);
XF_API uint32_t UTF32_UTF16s_SWAP(const uint8_t *src, uint32_t src_len, uint8_t *dst,
                                  uint32_t capacity, uint32_t *out_len);

/* Driver: decodes characters of src (src_len bytes) and stores each code
 * point through store, four bytes each, while fewer than capacity / 4 code
 * points are stored and source remains; stops at the first non-zero decoder
 * or storer result and returns it (0 when all went well). *out_len = 4 x the
 * code points stored. Empty source: *out_len 0, result 0. */
XF_API uint32_t ConvertToUTF32(const uint8_t *src, uint32_t src_len, uint8_t *dst,
                               uint32_t capacity, uint32_t *out_len, xf_tx_decoder decode,
                               xf_tx_storer store);
/* Single-byte code page text (encoding id: 34 arabunic, 66 waraunic, 36
 * hebrunic, 65 whebunic, any other ansiunic) to UTF-32 in the byte order of
 * target_id (24 and 26 big-endian, any other little-endian), one code point
 * per byte while capacity remains (the rest is dropped); *out_len = bytes
 * written. Always returns 0. */
XF_API uint32_t ConvertOSToUTF32(uint32_t encoding_id, uint32_t target_id, const uint8_t *src,
                                 uint32_t src_len, uint8_t *dst, uint32_t capacity,
                                 uint32_t *out_len);
/* Reverse driver: reads UTF-32 code points from src (src_len bytes;
 * big_endian nonzero: big-endian, else little-endian) and stores each through
 * store into dst (capacity bytes). Stops at the first storer failure
 * (XF_TX_OUTPUT_SMALL when the destination is full) and returns it; a
 * trailing group of 1-3 bytes gives XF_TX_CUT_OFF. *out_len = bytes
 * written. */
XF_API uint32_t ConvertFromUTF32(const uint8_t *src, uint32_t src_len, int32_t big_endian,
                                 uint8_t *dst, uint32_t capacity, uint32_t *out_len,
                                 xf_tx_storer store);
/* Reverse of ConvertOSToUTF32: UTF-32 in the byte order of source_id (24 and
 * 26 big-endian, any other little-endian) to the single-byte code page of
 * encoding_id (tables as ConvertOSToUTF32). A code point the page lacks
 * becomes '?' (0x3F). Returns 0, XF_TX_OUTPUT_SMALL when the destination
 * fills before the source ends, XF_TX_CUT_OFF for a trailing partial group;
 * *out_len = bytes written. */
XF_API uint32_t ConvertOSFromUTF32(uint32_t encoding_id, uint32_t source_id, const uint8_t *src,
                                   uint32_t src_len, uint8_t *dst, uint32_t capacity,
                                   uint32_t *out_len);

/* UTF-16 code units (native byte order, src_len_bytes bytes; an odd last byte
 * is ignored; surrogates are encoded as single units) to UTF-8: 1 byte below
 * 0x80, 2 below 0x800, else 3. Returns 0, or 2 when the next character does
 * not fit dst_capacity (what fits is written). *chars_done = units
 * converted, *bytes_written = bytes delivered. Bytes of dst past
 * *bytes_written, within dst_capacity, may have been overwritten. */
XF_API uint32_t UNICODEToUTF8(const uint16_t *src, uint32_t src_len_bytes, uint8_t *dst,
                              uint32_t dst_capacity, uint32_t *chars_done,
                              uint32_t *bytes_written);
/* UTF-8 (src_len bytes) to UTF-16 code units, one unit per character (code
 * points above U+FFFF are truncated to 16 bits; invalid bytes are decoded
 * leniently, never rejected). Returns 0; 1 when a sequence runs past the end
 * of the source; 2 when dst_capacity_bytes is full before the source ends.
 * *chars = units stored, *bytes_written = 2 x *chars. Units of dst past
 * *chars, within dst_capacity_bytes, may have been overwritten. */
XF_API uint32_t UTF8ToUNICODE(const uint8_t *src, uint32_t src_len, uint16_t *dst,
                              uint32_t dst_capacity_bytes,
                              uint32_t *chars, uint32_t *bytes_written);
/* Latin-1 bytes (src_len) to UTF-16 units, each byte its own code point.
 * Returns 0, or 2 when dst_capacity_units is too small: the units that fit
 * are written. *units_written = units written. */
XF_API uint32_t LATIN1ToUNICODE(const uint8_t *src, uint32_t src_len, uint16_t *dst,
                                uint32_t dst_capacity_units, uint32_t *units_written);

/* How many characters of a text fit a field of width positions, by encoding:
 * 24/25 (UTF-16): min(width / 2, characters); 26/27 (UTF-32): min(width / 4,
 * characters); the double-byte East Asian ids (117-160, 165-169, 172, 205,
 * 206): text holds characters 16-bit units, each 2 positions when its high
 * byte is non-zero or its low byte is 0x80 or more, else 1; the result is
 * the characters taken before the positions reach width (width < 1: 0).
 * 20 (UTF-8): text holds characters bytes of UTF-8; the result counts
 * characters (lead bytes), each one position: min(width, characters in the
 * text), never a byte count. Any other id: min(characters, width). A null
 * text counts as empty where the text is read. Negative results never. */
XF_API int32_t getUnicodeWidthFromNarrow(uint32_t encoding_id, const void *text,
                                         int32_t characters, int32_t width);
/* Number of characters in length bytes of text in an encoding: 20 UTF-8
 * (sequences, a cut-off one counting 1), 24/25 UTF-16 (units, a surrogate
 * pair counting 1), 26/27 UTF-32 (length / 4), any other id one per byte.
 * length < 1 or a null text: 0. */
XF_API int32_t NLSNUMCHAR(uint32_t encoding_id, const uint8_t *text, int32_t length);
/* Lower-case (LOWCASE) or upper-case (UPCASE) units UTF-16 code units in
 * place with the simple one-to-one mappings of Basic Latin, Latin-1,
 * Latin Extended-A, Greek, Cyrillic, Armenian and full-width Latin; other
 * units are left alone. Returns 0. */
XF_API uint32_t LOWCASE(uint16_t *text, uint32_t units);
XF_API uint32_t UPCASE(uint16_t *text, uint32_t units);
/* Transcodes src_len bytes from encoding from_id to encoding to_id into dst
 * (capacity bytes). Unicode ids: 20 UTF-8, 24/25 UTF-16 BE/LE (surrogate
 * pairs), 26/27 UTF-32 BE/LE; any other id is a single-byte code page chosen
 * as in ConvertOSToUTF32, where a code point the page lacks becomes '?'.
 * Whole characters only: returns 0; XF_TX_OUTPUT_SMALL when the next
 * character does not fit (what fits is written); XF_TX_CUT_OFF or
 * XF_TX_BAD_LEAD at the first bad input character (characters before it are
 * written). *out_len = bytes written; *src_used = source bytes consumed. */
XF_API uint32_t sanlsTranscodeUnicode(uint32_t from_id, const uint8_t *src, uint32_t src_len,
                                      uint32_t to_id, uint8_t *dst, uint32_t capacity,
                                      uint32_t *out_len, uint32_t *src_used);

/* Base64 (RFC 4648 alphabet, "=" padding). base64tab: the 64 characters and
 * a NUL. base64idx: byte -> 6-bit value, 255 for bytes outside the alphabet. */
XF_API extern const char base64tab[65];
XF_API extern const uint8_t base64idx[256];

/* Encodes count bytes of in into out (capacity bytes). Needs
 * ((count + 2) / 3) * 4 bytes, with line_breaks nonzero that plus that / 76
 * plus 2: a line feed after every 76 characters, a final line feed (counted)
 * and a NUL (not counted). Returns 0 with *out_len set, or -1 (nothing
 * written) when a pointer is null, count or capacity is negative or the
 * capacity is too small. */
XF_API int32_t encode_base64(const uint8_t *in, int32_t count, char *out, int32_t capacity,
                             uint32_t *out_len, int32_t line_breaks);
/* Decodes length characters of Base64 text into out (capacity bytes).
 * CR, LF, blank and tab are skipped; "=" ends the data (what follows it is
 * not read); a final group of 2
 * or 3 characters gives 1 or 2 bytes. Returns:
 *    0  success, *out_len bytes decoded;
 *   -1  a null pointer (*out_len untouched when out_len is null);
 *   -2  a character outside the alphabet (and not skipped as above) was met:
 *       it was skipped and decoding went on; *out_len bytes decoded;
 *   -3  the output is too small: the bytes that fit are written, *out_len
 *       says how many, decoding stopped (checked before -2);
 *   -4  the data ended with a lone character (6 bits, no whole byte): the
 *       bytes before it are decoded (checked before -2).
 * length < 1 gives *out_len 0 and 0. Never writes past capacity. */
XF_API int32_t decode_base64(const char *in, int32_t length, uint8_t *out, int32_t capacity,
                             uint32_t *out_len);

/* $BASE64X (module JAZWFMSC): the character value as Base64 without line
 * breaks in the first min(w, capacity) positions, blank-filled after the
 * encoding; an encoding longer than that leaves the field blank from the
 * output length held on entry. Output length min(w, capacity). Returns 0. */
XF_API xf_status zfmb64x(xf_frame *frame);

/* The bidirectional text formats ($LOGVS, $LOGVSR, $VSLOG, $VSLOGR, $BIDI),
 * w 1-32767. The value is Unicode text: UTF-16 (big- or little-endian) when
 * input_encoding is 24 or 25, else UTF-8 when its bytes are valid UTF-8;
 * any other value is left-to-right text and is written as $CHAR writes it.
 * Reordering follows the Unicode Bidirectional Algorithm (explicit
 * embeddings and isolates, bracket pairs, mirroring; no Arabic shaping) with
 * the paragraph direction fixed by the name: left to right for $LOGVS and
 * $VSLOG, right to left for $LOGVSR and $VSLOGR. Trailing blanks of the value
 * are padding and are dropped before reordering; each paragraph separator
 * starts a new paragraph; a paragraph of more than 1024 characters is
 * reordered in pieces cut after a blank.
 *   $LOGVS, $LOGVSR  logical order to visual order
 *   $VSLOG, $VSLOGR  visual order to logical order (the same reordering run
 *                    over the visual text; see the README for its limits)
 *   $BIDI            the words and numbers in reverse sequence, each run of
 *                    blanks (white space, tabs, line ends) in its place,
 *                    right-to-left words spelled backwards with their
 *                    brackets turned: "abc 123 H" -> "H' 123 abc"
 * The result is left-aligned, blank padded, cut to w without splitting a
 * character: w bytes of UTF-8 (output_encoding 0), or, for UTF-16 input or a
 * request for encoding 25 with UTF-8 input, w UTF-16LE units (2w bytes,
 * output_encoding 25). Output length: the field cut to the capacity (whole
 * units for UTF-16); XF_E_CAPACITY when the field was cut, else 0. Nothing
 * is read past input_length; never allocates. */
XF_API xf_status zfmlogvs(xf_frame *frame);
XF_API xf_status zfmlogvsr(xf_frame *frame);
XF_API xf_status zfmvslog(xf_frame *frame);
XF_API xf_status zfmvslogr(xf_frame *frame);
XF_API xf_status zfmbidi(xf_frame *frame);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* XFMT_XFMT_H */
