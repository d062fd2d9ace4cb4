"""xfmt: the conversions of libxfmt from Python.

Formats turn stored values (numbers, dates as days since 1960-01-01, times
and datetimes as seconds) into the text these formats display; informats
read text back. Pure Python over ctypes: the package needs only the shared
library (see ``xfmt._lib`` for where it is looked for). NumPy and pandas are
optional.

>>> import xfmt
>>> xfmt.format([0, 23451, None], "DATE9.")
['01JAN1960', '16MAR2024', '.']
>>> xfmt.parse_spec("DATETIME22.3").family
'datetime'
>>> xfmt.to_python(23451, "DATE9.")
datetime.date(2024, 3, 16)
"""

from .convert import ConversionError, Formatter, format, input, to_python
from .formats import UserFormats, load_formats
from .missing import Missing, is_missing
from .written import CatalogEntry, FormatSpec, SpecError, catalog, parse_spec

__all__ = [
    "CatalogEntry", "ConversionError", "Formatter", "FormatSpec", "Missing", "SpecError", "UserFormats",
    "catalog", "format", "input", "is_missing", "load_formats", "parse_spec", "to_python",
]
__version__ = "0.1.0"
