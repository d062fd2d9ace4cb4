"""Missing values: the ordinary missing value ``.`` and the special missing
values ``._`` and ``.A`` to ``.Z``.

A stored missing value is a reserved NaN bit pattern. In Python the ordinary
missing value is ``None`` (``float('nan')`` is read as it too), and a special
missing value is a :class:`Missing` object.
"""

import math
import struct

_SYMBOLS = "_ABCDEFGHIJKLMNOPQRSTUVWXYZ"
_ORDINARY_BITS = 0xFFFFFE0000000000


def _bits_of(symbol):
    if symbol == ".":
        return _ORDINARY_BITS
    # Row 0 of the table is "._", row 1 ".", rows 2.. the letters.
    row = 0 if symbol == "_" else _SYMBOLS.index(symbol) + 1
    return 0xFFFFFF0000000000 - row * 0x10000000000


def _double(bits):
    return struct.unpack("<d", struct.pack("<Q", bits))[0]


def _bits(value):
    return struct.unpack("<Q", struct.pack("<d", value))[0]


class Missing:
    """A missing value by its symbol: ``Missing("A")`` is ``.A``,
    ``Missing("_")`` is ``._`` and ``Missing(".")`` the ordinary one.

    Equal to another :class:`Missing` of the same symbol; hashable and
    picklable. ``float(m)`` gives the stored double (a NaN bit pattern).
    """

    __slots__ = ("symbol",)

    def __init__(self, symbol="."):
        if not isinstance(symbol, str):
            raise TypeError("Missing() takes a symbol: '.', '_' or a letter A-Z")
        s = symbol[1:] if len(symbol) == 2 and symbol[0] == "." else symbol
        s = s.upper()
        if len(s) != 1 or s not in "." + _SYMBOLS:
            raise ValueError("not a missing value symbol: %r (use '.', '_' or A-Z)" % symbol)
        object.__setattr__(self, "symbol", s)

    def __setattr__(self, name, value):
        raise AttributeError("Missing is immutable")

    def __getstate__(self):
        return self.symbol

    def __setstate__(self, state):
        object.__setattr__(self, "symbol", state)

    def __reduce__(self):
        return (Missing, (self.symbol,))

    def __repr__(self):
        return "Missing(%r)" % self.symbol

    def __str__(self):
        return "." if self.symbol == "." else "." + self.symbol

    def __eq__(self, other):
        return isinstance(other, Missing) and other.symbol == self.symbol

    def __hash__(self):
        return hash(("xfmt.Missing", self.symbol))

    def __float__(self):
        return _double(_bits_of(self.symbol))

    @property
    def value(self):
        """The stored double of this missing value."""
        return float(self)

    @staticmethod
    def of(value):
        """The missing value a stored double holds: ``None`` when it is not
        one, else a :class:`Missing` (``Missing('.')`` for the ordinary)."""
        if not isinstance(value, float) or not math.isnan(value):
            return None
        b = _bits(value)
        if (b & 0xFFFF00FFFFFFFFFF) != 0xFFFF000000000000:
            return None
        index = -struct.unpack("b", bytes([(b >> 40) & 0xFF]))[0]
        table = " _." + _SYMBOLS[1:]
        if index < 1 or index > 28:
            return Missing(".")  # a selector byte that names no symbol
        return Missing(table[index])


def is_missing(value):
    """True for ``None``, a NaN (any NaN, as NumPy and pandas use it) and a
    :class:`Missing`."""
    if value is None or isinstance(value, Missing):
        return True
    return isinstance(value, float) and math.isnan(value)


def ordinary():
    """The stored double of the ordinary missing value ``.``."""
    return _double(_ORDINARY_BITS)
