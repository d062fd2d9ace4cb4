"""Written formats as records: :func:`parse_spec` and :func:`catalog`."""

import ctypes
import functools
from dataclasses import dataclass

from . import _lib

FAMILIES = ("none", "number", "currency", "percent", "date", "time", "datetime", "duration", "binary",
            "character", "national")

_INFORMAT, _CHARACTER, _NATIONAL, _USER, _BUILT = 0x1, 0x2, 0x4, 0x8, 0x10
_WIDTH_GIVEN, _DECIMALS_GIVEN, _INTRINSIC, _SEPARATOR, _BYTES = 0x20, 0x40, 0x80, 0x100, 0x200

ERRORS = {1: "syntax", 2: "unknown_name", 3: "width", 4: "decimals", 5: "argument", 6: "capacity",
          7: "not_built", 8: "encoding"}


class SpecError(ValueError):
    """A written format that cannot be used. ``code`` names the error:
    "syntax", "unknown_name", "width", "decimals" or "not_built"."""

    def __init__(self, message, code):
        super().__init__(message)
        self.code = code


@dataclass(frozen=True)
class FormatSpec:
    """A format or informat as a record.

    ``family`` tells what the stored value means: "date" (days since
    1960-01-01), "time" (seconds since midnight), "datetime" (seconds since
    1960-01-01T00:00), "duration" (seconds), "number", "currency", "percent",
    "binary", "character", "national", or "none" (catalog separators and
    intrinsic names). ``width`` and ``decimals`` are as written, else the
    defaults; ``width_given`` and ``decimals_given`` say which.
    """

    name: str
    width: int
    decimals: int
    informat: bool
    character: bool
    family: str
    min_width: int
    max_width: int
    default_width: int
    min_decimals: int
    max_decimals: int
    default_decimals: int
    module: str
    width_given: bool
    decimals_given: bool
    national: bool
    user: bool
    built: bool
    raw_bytes: bool

    @property
    def text(self):
        """The record written back: "DATETIME22.3", "@COMMA12.2"."""
        d = str(self.decimals) if self.decimals else ""
        return "%s%s%d.%s" % ("@" if self.informat else "", self.name, self.width, d)

    def __str__(self):
        return self.text

    @property
    def description(self):
        """One line saying what the conversion shows."""
        return _text_of(_lib.library().xfx_describe, _to_c(self))

    @property
    def strftime(self):
        """The strftime pattern that writes the same text (up to letter case
        and padding blanks), or None: ``parse_spec("DATE9.").strftime`` is
        "%d%b%Y"."""
        p = _text_of(_lib.library().xfx_strftime_pattern, _to_c(self))
        return p or None


def _text_of(fn, spec):
    buf = ctypes.create_string_buffer(256)
    n = fn(ctypes.byref(spec), buf, len(buf))
    if n >= len(buf):
        buf = ctypes.create_string_buffer(n + 1)
        fn(ctypes.byref(spec), buf, len(buf))
    return buf.value.decode("utf-8")


def _from_c(s):
    f = s.flags
    return FormatSpec(
        name=s.name.decode("ascii"), width=s.width, decimals=s.decimals, informat=bool(f & _INFORMAT),
        character=bool(f & _CHARACTER), family=FAMILIES[s.family] if s.family < len(FAMILIES) else "none",
        min_width=s.min_width, max_width=s.max_width, default_width=s.default_width,
        min_decimals=s.min_decimals, max_decimals=s.max_decimals, default_decimals=s.default_decimals,
        module=s.module.decode("ascii"), width_given=bool(f & _WIDTH_GIVEN),
        decimals_given=bool(f & _DECIMALS_GIVEN), national=bool(f & _NATIONAL), user=bool(f & _USER),
        built=bool(f & _BUILT), raw_bytes=bool(f & _BYTES))


def _to_c(spec):
    s = _lib.Spec()
    name = spec.name.encode("ascii")
    s.name = name
    s.name_length = len(name)
    s.flags = ((_INFORMAT if spec.informat else 0) | (_CHARACTER if spec.character else 0)
               | (_NATIONAL if spec.national else 0) | (_USER if spec.user else 0)
               | (_BUILT if spec.built else 0) | (_WIDTH_GIVEN if spec.width_given else 0)
               | (_DECIMALS_GIVEN if spec.decimals_given else 0) | (_BYTES if spec.raw_bytes else 0))
    s.family = FAMILIES.index(spec.family)
    s.width, s.decimals = spec.width, spec.decimals
    s.min_width, s.max_width, s.default_width = spec.min_width, spec.max_width, spec.default_width
    s.min_decimals, s.max_decimals = spec.min_decimals, spec.max_decimals
    s.default_decimals = spec.default_decimals
    s.module = spec.module.encode("ascii")
    return s


def error_message(code, text, c_spec):
    lib = _lib.library()
    raw = text.encode("utf-8", "replace")
    buf = ctypes.create_string_buffer(256)
    lib.xfx_error_message(code, raw, len(raw), ctypes.byref(c_spec) if c_spec is not None else None, buf, len(buf))
    return buf.value.decode("utf-8", "replace")


def parse_c(text, informat=False, formats=None):
    """Parses text into a C record; raises SpecError."""
    if not isinstance(text, str):
        raise TypeError("a format is written as a str such as 'DATE9.'")
    lib = _lib.library()
    raw = text.encode("utf-8", "replace")
    s = _lib.Spec()
    ctx = formats._context() if formats is not None else None
    code = lib.xfx_parse_spec(raw, len(raw), 1 if informat else 0, ctypes.byref(ctx) if ctx is not None else None,
                              ctypes.byref(s))
    if code != 0:
        raise SpecError(error_message(code, text, s), ERRORS.get(code, "argument"))
    return s


def parse_spec(text, informat=False, formats=None):
    """Parses a format as people write it into a :class:`FormatSpec`.

    >>> s = parse_spec("DATETIME22.3")
    >>> (s.name, s.width, s.decimals, s.family)
    ('DATETIME', 22, 3, 'datetime')

    A leading "@" (or ``informat=True``) asks for an informat. A name that is
    not catalogued is looked up in ``formats`` (see :func:`load_formats`).
    Raises :class:`SpecError` for bad syntax, an unknown name, or a width or
    decimals outside the name's limits.
    """
    return _from_c(parse_c(text, informat, formats))


@dataclass(frozen=True)
class CatalogEntry:
    """A catalogued name: its record (at the example's width), a one-line
    description, and an example the library converted when asked."""

    spec: FormatSpec
    description: str
    example_spec: str
    example_value: str
    example_output: str
    example_status: int


@functools.lru_cache(maxsize=1)
def _catalog():
    lib = _lib.library()
    out = []
    e = _lib.CatalogEntry()
    for i in range(lib.xfx_catalog_count()):
        lib.xfx_catalog_entry_at(i, ctypes.byref(e))
        out.append(CatalogEntry(_from_c(e.spec), e.description.decode("utf-8", "replace"),
                                e.example_spec.decode("utf-8", "replace"),
                                e.example_value.decode("utf-8", "replace"),
                                e.example_output.decode("utf-8", "replace"), e.example_status))
    return tuple(out)


def catalog(include_separators=False):
    """Every catalogued name (548 and the three intrinsic names) as
    :class:`CatalogEntry` records, in catalog order; the four separator rows
    only when asked."""
    return [e for e in _catalog() if include_separators or e.spec.family != "none" or e.spec.name[:1] != "-"]
