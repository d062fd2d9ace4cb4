"""Finding and loading libxfmt.so, and the C prototypes the package uses.

The library is looked for, in this order:

1. the path in the environment variable ``XFMT_LIBRARY``;
2. the build tree of the checkout this package sits in (``build*/libxfmt.so``
   beside ``python/``), the most recently built one first;
3. the system loader (``libxfmt.so.0``, then ``libxfmt.so``).

When every place fails, ``OSError`` says in one line what was tried.
"""

import ctypes
import glob
import os
import threading

_lock = threading.Lock()
_lib = None


class Spec(ctypes.Structure):
    """The C record ``xfx_spec`` (116 bytes)."""

    _fields_ = [
        ("name", ctypes.c_char * 40),
        ("name_length", ctypes.c_uint32),
        ("flags", ctypes.c_uint32),
        ("family", ctypes.c_uint32),
        ("width", ctypes.c_int32),
        ("decimals", ctypes.c_int32),
        ("min_width", ctypes.c_uint16),
        ("max_width", ctypes.c_uint16),
        ("default_width", ctypes.c_uint16),
        ("min_decimals", ctypes.c_uint16),
        ("max_decimals", ctypes.c_uint16),
        ("default_decimals", ctypes.c_uint16),
        ("module", ctypes.c_char * 12),
        ("reserved", ctypes.c_uint8 * 32),
    ]


class CatalogEntry(ctypes.Structure):
    """The C record ``xfx_catalog_entry`` (544 bytes)."""

    _fields_ = [
        ("spec", Spec),
        ("description", ctypes.c_char * 120),
        ("example_spec", ctypes.c_char * 48),
        ("example_value", ctypes.c_char * 64),
        ("example_output", ctypes.c_char * 160),
        ("example_status", ctypes.c_uint32),
        ("reserved", ctypes.c_uint8 * 32),
    ]


class UserFormatContext(ctypes.Structure):
    """The C record ``xf_ufmt_context`` (256 bytes), reading a control file."""

    _fields_ = [
        ("control", ctypes.c_void_p),
        ("read_from_file", ctypes.c_uint32),
        ("source", ctypes.c_uint32),
        ("word1", ctypes.c_void_p),
        ("word2", ctypes.c_void_p),
        ("control_path", ctypes.c_char_p),
        ("library", ctypes.c_char * 8),
        ("catalog", ctypes.c_void_p),
        ("catalog_ranges", ctypes.c_void_p),
        ("reserved", ctypes.c_uint8 * 192),
    ]


assert ctypes.sizeof(Spec) == 116
assert ctypes.sizeof(CatalogEntry) == 544
assert ctypes.sizeof(UserFormatContext) == 256

_P = ctypes.c_void_p
_SZ = ctypes.c_size_t
_U32 = ctypes.c_uint32
_I32 = ctypes.c_int32

_PROTOTYPES = {
    "xfx_parse_spec": (_I32, [ctypes.c_char_p, _SZ, _U32, _P, ctypes.POINTER(Spec)]),
    "xfx_error_text": (ctypes.c_char_p, [_I32]),
    "xfx_error_message": (_SZ, [_I32, ctypes.c_char_p, _SZ, ctypes.POINTER(Spec), ctypes.c_char_p, _SZ]),
    "xfx_spec_text": (_SZ, [ctypes.POINTER(Spec), ctypes.c_char_p, _SZ]),
    "xfx_describe": (_SZ, [ctypes.POINTER(Spec), ctypes.c_char_p, _SZ]),
    "xfx_catalog_count": (_U32, []),
    "xfx_catalog_entry_at": (_I32, [_U32, ctypes.POINTER(CatalogEntry)]),
    "xfx_missing_value": (_I32, [ctypes.c_int, ctypes.POINTER(ctypes.c_double)]),
    "xfx_missing_symbol": (ctypes.c_int, [ctypes.c_double]),
    "xfx_strftime_pattern": (_SZ, [ctypes.POINTER(Spec), ctypes.c_char_p, _SZ]),
    "xfx_open": (_I32, [ctypes.c_char_p, _SZ, _U32, _U32, _P, ctypes.POINTER(_P)]),
    "xfx_close": (None, [_P]),
    "xfx_conversion_spec": (ctypes.POINTER(Spec), [_P]),
    "xfx_max_field_bytes": (_SZ, [_P]),
    "xfx_convert_fixed": (_I32, [_P, _SZ, _P, _P, _P, _U32, _P, _SZ, ctypes.c_char, _P]),
    "xfx_convert_fixed_utf32": (_I32, [_P, _SZ, _P, _P, _P, _U32, _P, _SZ, _U32, _P]),
    "xfx_convert_strings": (_I32, [_P, _SZ, _P, _P, _P, _U32, _P, _SZ, _P, _P, ctypes.POINTER(_SZ)]),
    "xfx_convert_numbers": (_I32, [_P, _SZ, _P, _P, _P, _P]),
    "xfx_status_text": (ctypes.c_char_p, [_U32]),
    "LocnameToID": (_U32, [ctypes.c_char_p, _U32, ctypes.POINTER(_U32)]),
}


def _candidates():
    """Where the library may be, in the order it is looked for."""
    tried = []
    env = os.environ.get("XFMT_LIBRARY")
    tried.append(("XFMT_LIBRARY", env))
    here = os.path.dirname(os.path.abspath(__file__))
    checkout = os.path.dirname(os.path.dirname(here))
    built = glob.glob(os.path.join(checkout, "build*", "libxfmt.so"))
    built.sort(key=lambda p: os.path.getmtime(p), reverse=True)
    for path in built:
        tried.append(("build tree", path))
    if not built:
        tried.append(("build tree", os.path.join(checkout, "build*", "libxfmt.so")))
    tried.append(("system loader", "libxfmt.so.0"))
    tried.append(("system loader", "libxfmt.so"))
    return tried


def _bind(lib):
    for name, (restype, argtypes) in _PROTOTYPES.items():
        fn = getattr(lib, name)
        fn.restype = restype
        fn.argtypes = argtypes
    return lib


def library():
    """The loaded library (loaded on first use, once per process)."""
    global _lib
    if _lib is not None:
        return _lib
    with _lock:
        if _lib is not None:
            return _lib
        failures = []
        for where, path in _candidates():
            if not path:
                failures.append("%s (unset)" % where)
                continue
            try:
                lib = ctypes.CDLL(path)
            except OSError as e:
                failures.append("%s %s (%s)" % (where, path, str(e).split(":")[-1].strip() or "not loadable"))
                continue
            if not hasattr(lib, "xfx_open"):
                failures.append("%s %s (no xfx_open: an older library)" % (where, path))
                continue
            _lib = _bind(lib)
            return _lib
        raise OSError("xfmt: libxfmt.so not found; tried " + "; ".join(failures))
