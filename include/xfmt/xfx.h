/*
 * xfx: the host-side extension of xfmt.
 *
 * A second public header beside xfmt.h, for hosts that take conversions from
 * data (a format name such as "DATETIME22.3" in a file's metadata) and convert
 * whole columns: written formats as records, the catalog as data with a
 * description and a computed example per name, missing-value helpers, the
 * strftime pattern of a layout, and conversion of n values per call with UTF-8
 * text in and out. C99 and C++ clean; every XF_API name is exported from
 * libxfmt.so with C linkage. Nothing here changes a layout or prototype of
 * xfmt.h: the pinned interface stays as it is, these names sit beside it.
 *
 * Thread safety: every function may be called on any number of threads at
 * once; none keeps state between calls except where a contract says so.
 * No function throws, aborts or prints.
 */
#ifndef XFMT_XFX_H
#define XFMT_XFX_H

#include "xfmt/xfmt.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ======================================================================
 * Written formats as data
 * ====================================================================== */

/* Value family: what the stored value means, so that a host can build the
 * right kind of column. */
#define XFX_FAMILY_NONE        0u  /* separator rows and intrinsic names: no value */
#define XFX_FAMILY_NUMBER      1u  /* a plain quantity */
#define XFX_FAMILY_CURRENCY    2u  /* an amount of money */
#define XFX_FAMILY_PERCENT     3u  /* a proportion shown as a percentage */
#define XFX_FAMILY_DATE        4u  /* days since 1960-01-01 */
#define XFX_FAMILY_TIME        5u  /* seconds since midnight, shown as a time of day */
#define XFX_FAMILY_DATETIME    6u  /* seconds since 1960-01-01T00:00:00 */
#define XFX_FAMILY_DURATION    7u  /* seconds, not wrapped at 24 hours (TIME, HHMM, MMSS, HOUR) */
#define XFX_FAMILY_BINARY      8u  /* a binary or radix layout of a number or text */
#define XFX_FAMILY_CHARACTER   9u  /* text */
#define XFX_FAMILY_NATIONAL   10u  /* a month, quarter or weekday number shown as a
                                    * word of the locale's language (NLSTRMON, ...) */

/* Flags of a written format. */
#define XFX_INFORMAT        0x001u  /* text to value (the catalog's "@" names) */
#define XFX_CHARACTER       0x002u  /* the value is text (a "$" name) */
#define XFX_NATIONAL        0x004u  /* the text depends on the locale */
#define XFX_USER            0x008u  /* a user-defined format read through a context */
#define XFX_BUILT           0x010u  /* this library has the conversion */
#define XFX_WIDTH_GIVEN     0x020u  /* the text gave a width */
#define XFX_DECIMALS_GIVEN  0x040u  /* the text gave decimals */
#define XFX_INTRINSIC       0x080u  /* one of the three intrinsic names */
#define XFX_SEPARATOR       0x100u  /* a separator row of the catalog: never converts */
#define XFX_BYTES           0x200u  /* the format writes (the informat reads) raw bytes,
                                     * not text: IB, PD, RB, $EBCDIC, ... */

/* A written format ("DATE9.", "@COMMA12.2") as a record. */
typedef struct xfx_spec {
    char     name[40];          /*   0  upper case, NUL-terminated, without the "@" of an
                                 *      informat; "$" and "$F" give "$CHAR" */
    uint32_t name_length;       /*  40 */
    uint32_t flags;             /*  44  XFX_* flags */
    uint32_t family;            /*  48  XFX_FAMILY_* */
    int32_t  width;             /*  52  as given, else the default width */
    int32_t  decimals;          /*  56  as given, else the default decimals */
    uint16_t min_width;         /*  60  limits of the catalog row (a user format: */
    uint16_t max_width;         /*  62  its three widths, decimals 0 to 31) */
    uint16_t default_width;     /*  64 */
    uint16_t min_decimals;      /*  66 */
    uint16_t max_decimals;      /*  68 */
    uint16_t default_decimals;  /*  70 */
    char     module[12];        /*  72  owning module ("JAZWFDTE"), NUL-terminated;
                                 *      empty for intrinsic and user-defined names */
    uint8_t  reserved[32];      /*  84  zero */
} xfx_spec;                     /* sizeof == 116 */

/* Errors of the functions of this header (0 is success). */
typedef int32_t xfx_error;
#define XFX_OK               0
#define XFX_E_SYNTAX         1  /* not NAME[w][.[d]] */
#define XFX_E_UNKNOWN_NAME   2  /* no catalog row, no intrinsic, no user format */
#define XFX_E_WIDTH          3  /* width outside the limits of the name */
#define XFX_E_DECIMALS       4  /* decimals outside the limits of the name */
#define XFX_E_ARGUMENT       5  /* a NULL pointer, an index or value out of range */
#define XFX_E_CAPACITY       6  /* an output buffer too small */
#define XFX_E_NOT_BUILT      7  /* the name has no conversion in this library */
#define XFX_E_ENCODING       8  /* text that is not valid UTF-8 */

/* Options of xfx_parse_spec. */
#define XFX_PARSE_INFORMAT   1u  /* read the name as an informat even without "@" */

/* Parses a format as people write it: optional blanks, an optional
 * "@" (informat), the name (letters, digits, "_", a leading "$"; any case),
 * an optional width, then optionally "." and optional decimals:
 * "DATETIME22.3", "$CHAR10.", "BEST.", "BEST", "@COMMA12.", "date9.", "$10."
 * (a "$" with a width is "$CHAR"), "AGEGRP.". The width is the run of digits
 * before the "." (no catalogued name ends in a digit). Reads length bytes of
 * text (no terminator needed). A name that is not catalogued is looked up as
 * a user-defined format through context (an xf_ufmt_context, as xfname2
 * takes it; NULL: no user formats); the handle that lookup creates is
 * released before returning. Fills *spec (zeroed first): on XFX_OK entirely;
 * on XFX_E_WIDTH and XFX_E_DECIMALS too (name, limits and the value given),
 * so that a message can name the limits; on other errors only name and
 * name_length when a name was read. Allocates only inside a user-format
 * lookup; thread safe. */
XF_API xfx_error xfx_parse_spec(const char *text, size_t length, uint32_t options, void *context,
                                xfx_spec *spec);

/* A short English text of an error ("width outside the limits"); a static
 * string, never NULL ("unknown error" for other values). */
XF_API const char *xfx_error_text(xfx_error error);

/* A one-line message about error for the written format (length bytes)
 * and the record xfx_parse_spec filled (may be NULL), such as
 * "width 40 is outside the limits of F (1 to 32)". Writes at most
 * capacity - 1 bytes and a terminating NUL (capacity 0: nothing); returns
 * the length of the whole message, so a return >= capacity means it was cut. */
XF_API size_t xfx_error_message(xfx_error error, const char *text, size_t length,
                                const xfx_spec *spec, char *out, size_t capacity);

/* The record written back: "@" for an informat, the name, the width,
 * "." and the decimals when they are not zero ("DATETIME22.3", "DATE9.",
 * "@COMMA12.2"). Same output rules and return value as xfx_error_message. */
XF_API size_t xfx_spec_text(const xfx_spec *spec, char *out, size_t capacity);

/* --- The catalog as data ---------------------------------------------- */

/* One catalogued name with its description and an example computed by the
 * library. */
typedef struct xfx_catalog_entry {
    xfx_spec  spec;                /*   0  width and decimals: the example's */
    char      description[120];    /* 116  one line, English, NUL-terminated */
    char      example_spec[48];    /* 236  the written format the example used */
    char      example_value[64];   /* 284  a format: the value (a number as text, ".A",
                                    *      or the text of a "$" format); an informat:
                                    *      the text it read */
    char      example_output[160]; /* 348  the output as UTF-8; an informat: the stored
                                    *      value as text. Bytes of an XFX_BYTES layout,
                                    *      and controls, are written as \xHH */
    xf_status example_status;      /* 508  the conversion's status (XF_E_NOT_BUILT: no
                                    *      output) */
    uint8_t   reserved[32];        /* 512  zero */
} xfx_catalog_entry;               /* sizeof == 544 */

/* Number of entries: the 548 catalogued names followed by the three
 * intrinsic names (551). */
XF_API uint32_t xfx_catalog_count(void);

/* Fills *entry for entry index (0 <= index < xfx_catalog_count()), in the
 * order of the possible-format table, then the intrinsic names. The example
 * converts a value chosen by the family (2023-07-04, 12:34:56, 1234.5678,
 * "Hello", ...) at the default width, doubled while the field shows only
 * stars; a "$" format gets a width its text fits; an informat reads the
 * text its format writes (or a usual text of its family; a byte layout no
 * format writes: bytes of that layout) at the text's length. National names convert in the locale ZAV_LOCALE names, and every
 * example output is UTF-8. Returns XFX_OK or XFX_E_ARGUMENT. Allocates
 * nothing that outlives the call; thread safe. */
XF_API xfx_error xfx_catalog_entry_at(uint32_t index, xfx_catalog_entry *entry);

/* The one-line description of a record (what xfx_catalog_entry_at
 * gives for its name); same output rules and return value as
 * xfx_error_message. */
XF_API size_t xfx_describe(const xfx_spec *spec, char *out, size_t capacity);

/* --- Missing values --------------------------------------------------- */

/* Stores at *value the missing value of symbol: '.' the ordinary missing
 * value, '_' the special missing value ._, 'A'-'Z' (or 'a'-'z') .A-.Z.
 * Returns XFX_OK, or XFX_E_ARGUMENT for any other symbol or a NULL value. */
XF_API xfx_error xfx_missing_value(int symbol, double *value);

/* The symbol of a missing value: '.', '_', 'A'-'Z', or ' ' for a missing
 * pattern whose selector byte names no symbol; 0 when value is not a
 * missing value (an ordinary NaN is not one). */
XF_API int xfx_missing_symbol(double value);

/* 1 when value is a missing value of any kind, else 0. */
XF_API int xfx_is_missing(double value);

/* --- strftime patterns ------------------------------------------------- */

/* The strftime pattern that writes the same text as the format, up
 * to letter case and the field's padding blanks ("DATE9." gives "%d%b%Y",
 * "E8601DT19." "%Y-%m-%dT%H:%M:%S", "TIME8." "%k:%M:%S", "TIMEAMPM11."
 * "%l:%M:%S %p"), for a built date, time or datetime format that is not
 * national. The pattern is read off the format's text for a probe moment
 * and kept only when it writes the format's text for moments through every
 * month and weekday. Returns the length (output rules of
 * xfx_error_message), or 0 when no pattern writes the same text (unpadded
 * days and months, fractions of a second, quarters, week numbers, eras,
 * names shortened to fit, ...) or spec is NULL. */
XF_API size_t xfx_strftime_pattern(const xfx_spec *spec, char *out, size_t capacity);

/* ======================================================================
 * Whole-column conversion
 * ====================================================================== */

/* A conversion opened once for many values (opaque). Read-only once open:
 * any number of threads may convert through one conversion at once. */
typedef struct xfx_conversion xfx_conversion;

/* Opens the conversion of a written format (the text and options of
 * xfx_parse_spec; context as there) for locale_id (the national-language
 * conversions: 1-136, 0 the process locale chosen through ZAV_LOCALE).
 * Returns XFX_OK and *conversion, or an error of xfx_parse_spec,
 * XFX_E_NOT_BUILT (no conversion in this library, the separator rows
 * included) or XFX_E_ARGUMENT (NULL conversion, out of memory).
 * Allocates the conversion (and a user format's records); release it with
 * xfx_close. */
XF_API xfx_error xfx_open(const char *text, size_t length, uint32_t options, uint32_t locale_id,
                          void *context, xfx_conversion **conversion);

/* Releases a conversion (NULL: nothing). */
XF_API void xfx_close(xfx_conversion *conversion);

/* The record of an open conversion (valid until xfx_close). */
XF_API const xfx_spec *xfx_conversion_spec(const xfx_conversion *conversion);

/* The most bytes one converted value can take as UTF-8 (text layouts), or
 * exactly (XFX_BYTES layouts): the stride that never cuts a field. */
XF_API size_t xfx_max_field_bytes(const xfx_conversion *conversion);

/* Flags of the column functions. */
#define XFX_COL_NAN_MISSING   0x1u  /* a NaN that is not a missing value (NumPy's and
                                     * pandas' NaN) is the ordinary missing value; without
                                     * it, such a NaN goes to the routine as it is */
#define XFX_COL_NUL_AFTER     0x2u  /* xfx_convert_strings: a NUL byte after every text,
                                     * inside its span (offsets[i+1] - 1 is the NUL) */

/* Per-value statuses of the column functions, beside the routines' own. */
#define XFX_S_UNREPRESENTABLE 0x8001DA01u /* a character of the input has no byte in
                                           * the encoding the routine reads */
#define XFX_S_BAD_UTF8        0x8001DA02u /* the input text is not valid UTF-8 */
#define XFX_S_FIELD_SMALL     0x8001DA03u /* the UTF-8 text is longer than the stride */

/* A short English text of any status a conversion or a column function
 * returns ("number does not fit the width", "the text is not valid UTF-8");
 * an unknown value gives "status 0x...." from a buffer of the calling
 * thread. Never NULL. */
XF_API const char *xfx_status_text(xf_status status);

/* The inputs of the column functions: n values, either doubles (values) or
 * UTF-8 texts (texts, with n + 1 offsets: text i is bytes text_offsets[i]
 * up to text_offsets[i + 1]: the layout of Arrow's large strings). A
 * conversion whose value is text (XFX_CHARACTER, or an informat) takes
 * texts, any other doubles; the other pointer is ignored and may be NULL. Texts are converted from UTF-8
 * to what the routine reads (Windows-1252 for catalogued conversions, the
 * library's UTF-16 for user-defined character formats, bytes as they are for
 * XFX_BYTES informats); a character that has no place there is the value's
 * XFX_S_UNREPRESENTABLE, invalid UTF-8 its XFX_S_BAD_UTF8.
 * statuses (NULL: not wanted) receives one status per value: the routine's
 * (XF_OK, XF_REDUCED, XF_E_OVERFLOW, ...) or one of XFX_S_*. A value whose
 * status is not XF_OK or XF_REDUCED still gets what the routine wrote (a
 * field of "*"), or nothing (an empty text) for the XFX_S_* statuses and
 * XF_E_CAPACITY. Texts out are UTF-8 whatever the routine writes
 * (Windows-1252 marks such as the euro sign, national text in the process
 * codeset, UTF-16 labels); XFX_BYTES layouts are written as raw bytes.
 * An informat written without a width reads each text whole
 * (its length within the informat's limits), as the routine would with that
 * width. Nothing is allocated per value: a column of a date format takes
 * one table of the days it spans per call (freed before the call returns),
 * so that each distinct day is converted once. They keep no state between
 * calls; thread safe. */

/* n fields of stride bytes at fields: field i starts at fields + i*stride,
 * holds the converted text as the routine laid it out (padding blanks
 * kept) and is filled up to stride with pad. Returns XFX_OK, or
 * XFX_E_ARGUMENT (NULL conversion, fields or missing input with n > 0; a
 * numeric informat, whose results are numbers). */
XF_API xfx_error xfx_convert_fixed(const xfx_conversion *conversion, size_t n, const double *values,
                                   const char *texts, const int64_t *text_offsets, uint32_t flags,
                                   char *fields, size_t stride, char pad, xf_status *statuses);

/* As xfx_convert_fixed, but each field is stride code points (UTF-32 in
 * the machine's byte order, the layout of NumPy's "U" arrays): field i
 * starts at fields + i*stride and is filled up to stride with pad. A text
 * of more than stride characters is the value's XFX_S_FIELD_SMALL.
 * Allocates one work buffer per call. */
XF_API xfx_error xfx_convert_fixed_utf32(const xfx_conversion *conversion, size_t n, const double *values,
                                         const char *texts, const int64_t *text_offsets, uint32_t flags,
                                         uint32_t *fields, size_t stride, uint32_t pad, xf_status *statuses);

/* n texts without their leading and trailing blanks, one after the other in
 * data (capacity bytes), delimited by n + 1 offsets (offsets[0] = 0; text i
 * is data[offsets[i]] up to data[offsets[i + 1]]). Converts in order while
 * the texts fit; *done (not NULL) receives the number of values converted,
 * n unless the data was full. Returns XFX_OK, XFX_E_CAPACITY when data was
 * full before value *done (offsets up to offsets[*done] are written;
 * convert the rest in a second call), or XFX_E_ARGUMENT as
 * xfx_convert_fixed. */
XF_API xfx_error xfx_convert_strings(const xfx_conversion *conversion, size_t n, const double *values,
                                     const char *texts, const int64_t *text_offsets, uint32_t flags,
                                     char *data, size_t capacity, int64_t *offsets, xf_status *statuses,
                                     size_t *done);

/* Numeric informats over a column: n texts in, n doubles out (the ordinary
 * missing value where the text is invalid, with the routine's status).
 * Returns XFX_OK, or XFX_E_ARGUMENT (NULL pointers with n > 0, a conversion
 * that is not a numeric informat). */
XF_API xfx_error xfx_convert_numbers(const xfx_conversion *conversion, size_t n, const char *texts,
                                     const int64_t *text_offsets, double *values, xf_status *statuses);

#ifdef __cplusplus
}
#endif

#endif /* XFMT_XFX_H */
