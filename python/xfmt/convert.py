"""Converting values and whole columns: :class:`Formatter`, :func:`format`,
:func:`input` and :func:`to_python`."""

import array
import ctypes
import datetime
import math
import threading

from . import _lib
from .missing import Missing, ordinary
from .written import ERRORS, FormatSpec, SpecError, _from_c, error_message, parse_c

try:  # NumPy and pandas are optional
    import numpy as _np
except ImportError:  # pragma: no cover - exercised only without NumPy
    _np = None

_NAN_MISSING, _NUL_AFTER = 0x1, 0x2
_COLUMN_STATUSES = {0x8001DA01: "a character has no place in the encoding the conversion reads",
                    0x8001DA02: "the text is not valid UTF-8",
                    0x8001DA03: "the text is longer than the field"}
_EPOCH_DATE = datetime.date(1960, 1, 1)
_EPOCH = datetime.datetime(1960, 1, 1)
_SECONDS_1960_TO_1970 = 315619200  # 3653 days
_ORDINARY = ordinary()


class ConversionError(ValueError):
    """A value the conversion could not take (see ``index`` and ``status``)."""

    def __init__(self, message, index, status):
        super().__init__(message)
        self.index = index
        self.status = status


def _locale_id(locale):
    if locale is None:
        return 0
    if isinstance(locale, int):
        return locale
    raw = str(locale).encode("ascii")
    out = ctypes.c_uint32(0)
    if _lib.library().LocnameToID(raw, len(raw), ctypes.byref(out)) != 0 or out.value == 0:
        raise ValueError("unknown locale %r" % (locale,))
    return out.value


def _is_scalar(values):
    return values is None or isinstance(values, (int, float, str, bytes, Missing, datetime.date,
                                                 datetime.time, datetime.timedelta)) or \
        (_np is not None and isinstance(values, _np.generic))


# --- values in --------------------------------------------------------------

def _number_of(x, family):
    """One Python value as the stored double of the conversion's family."""
    if x is None:
        return _ORDINARY
    if isinstance(x, Missing):
        return float(x)
    if isinstance(x, datetime.datetime):
        if x.tzinfo is not None:
            x = x.astimezone(datetime.timezone.utc).replace(tzinfo=None)
        seconds = (x - _EPOCH).total_seconds()
        if family == "date":
            return float((x.date() - _EPOCH_DATE).days)
        if family in ("time", "duration"):
            return float(x.hour * 3600 + x.minute * 60 + x.second) + x.microsecond / 1e6
        return seconds
    if isinstance(x, datetime.date):
        days = float((x - _EPOCH_DATE).days)
        return days * 86400.0 if family == "datetime" else days
    if isinstance(x, datetime.time):
        return float(x.hour * 3600 + x.minute * 60 + x.second) + x.microsecond / 1e6
    if isinstance(x, datetime.timedelta):
        return x.total_seconds() if family != "date" else x.total_seconds() / 86400.0
    if isinstance(x, (str, bytes)):
        raise TypeError("a numeric conversion takes numbers, not %r" % (x,))
    if type(x).__name__ in ("NAType", "NaTType"):  # pandas' missing markers
        return _ORDINARY
    try:
        return float(x)
    except (TypeError, ValueError):
        raise TypeError("cannot convert %r to a number" % (x,)) from None


def _datetime64_to_stored(a, family):
    ns = a.astype("datetime64[ns]").astype("int64").astype("float64")
    nat = a != a
    seconds = ns / 1e9 + _SECONDS_1960_TO_1970
    if family == "date":
        out = _np.floor(seconds / 86400.0)
    elif family in ("time", "duration"):
        out = _np.mod(seconds, 86400.0)
    else:
        out = seconds
    out[nat] = _np.nan
    return out


def _numbers(values, family):
    """A float64 buffer of the values: (address, count, the object to keep)."""
    if _np is not None:
        if type(values).__module__.startswith("pandas"):
            values = _pandas_numbers(values)
        if isinstance(values, _np.ndarray):
            a = values
            if a.dtype.kind == "M":
                a = _datetime64_to_stored(a, family)
            elif a.dtype.kind == "m":
                a = a.astype("timedelta64[ns]").astype("int64").astype("float64") / 1e9
            elif a.dtype.kind in "biuf":
                a = a.astype("float64", copy=False)
            else:
                a = _np.array([_number_of(x, family) for x in a.ravel()], dtype="float64")
            a = _np.ascontiguousarray(a.ravel(), dtype="float64")
            return a.ctypes.data, a.size, a
    buf = array.array("d", (_number_of(x, family) for x in values))
    addr, n = buf.buffer_info()
    return addr, n, buf


def _pandas_numbers(series):
    import pandas as pd

    if isinstance(series, pd.DataFrame):
        raise TypeError("format one column (a Series) at a time")
    if isinstance(series, pd.Series) or isinstance(series, pd.Index):
        dt = series.dtype
        if isinstance(dt, pd.DatetimeTZDtype):
            series = series.dt.tz_convert(None) if isinstance(series, pd.Series) else series.tz_convert(None)
            return series.to_numpy()
        if dt.kind in "Mm":
            return series.to_numpy()
        if dt.kind in "biuf" or pd.api.types.is_extension_array_dtype(dt) and dt.kind in "biuf":
            return series.to_numpy(dtype="float64", na_value=_np.nan)
        return series.to_numpy(dtype=object)
    return series


def _texts(values, raw_bytes=False):
    """UTF-8 texts and their n + 1 offsets: (data, offsets, count)."""
    if _np is not None and type(values).__module__.startswith("pandas"):
        values = values.to_numpy(dtype=object)
    parts = []
    for x in values:
        if x is None or (isinstance(x, float) and math.isnan(x)) or type(x).__name__ in ("NAType", "NaTType"):
            parts.append(b"")
        elif isinstance(x, (bytes, bytearray, memoryview)):
            parts.append(bytes(x))
        elif isinstance(x, str):
            parts.append(x.encode("utf-8", "surrogatepass"))
        else:
            parts.append(str(x).encode("utf-8"))
    offsets = array.array("q", [0]) * (len(parts) + 1)
    total = 0
    for i, p in enumerate(parts):
        total += len(p)
        offsets[i + 1] = total
    data = b"".join(parts)
    return data, offsets, len(parts)


# --- the conversion ---------------------------------------------------------

class Formatter:
    """A conversion opened once and used for any number of values.

    ``Formatter("DATE9.")``, ``Formatter("NLDATE20.", locale="de_DE")``,
    ``Formatter("AGEGRP.", formats=load_formats("cntlout.xml"))``,
    ``Formatter("@COMMA12.")`` (an informat: use :meth:`input`).

    Thread safe: the conversion keeps no state, and each call has its own
    buffers (the library runs without the GIL). Picklable: a copy is resolved
    again when it is loaded, so it can be shipped to worker processes.
    """

    def __init__(self, spec, locale=None, formats=None, informat=False):
        if isinstance(spec, FormatSpec):
            spec = spec.text
        self._args = (spec, locale, formats, informat)
        self._handle = None
        lib = _lib.library()
        self._lib = lib
        raw = spec.encode("utf-8", "replace") if isinstance(spec, str) else spec
        ctx = formats._context() if formats is not None else None
        handle = ctypes.c_void_p()
        code = lib.xfx_open(raw, len(raw), 1 if informat else 0, _locale_id(locale),
                            ctypes.byref(ctx) if ctx is not None else None, ctypes.byref(handle))
        if code != 0:
            if code == 7:
                s = parse_c(spec, informat, formats)
                raise SpecError(error_message(code, spec, s), "not_built")
            parse_c(spec, informat, formats)  # raises with the parse error's message
            raise SpecError("%s: %s" % (spec, ERRORS.get(code, "error")), ERRORS.get(code, "argument"))
        self._handle = handle.value
        self.spec = _from_c(lib.xfx_conversion_spec(self._handle).contents)
        self._max_bytes = lib.xfx_max_field_bytes(self._handle)
        self.locale = locale
        self.formats = formats

    def __reduce__(self):
        return (Formatter, self._args)

    def close(self):
        """Releases the conversion (also done when the object is collected)."""
        h, self._handle = self._handle, None
        if h:
            self._lib.xfx_close(h)

    def __del__(self):
        if getattr(self, "_handle", None):
            try:
                self.close()
            except Exception:  # interpreter shutdown: the library may be gone already
                pass

    def __repr__(self):
        return "Formatter(%r)" % (self.spec.text,)

    # -- formats --------------------------------------------------------------

    def __call__(self, values, **kwargs):
        return self.format(values, **kwargs)

    def format(self, values, as_array=False, dtype="U", errors="raise"):
        """Converts values to their text.

        ``values``: a number, ``None`` or ``Missing`` (a list, tuple, NumPy
        array or pandas Series of them), a ``datetime``/``date``/``time``/
        ``timedelta`` for a date or time format, a ``str`` for a "$" format.
        ``None`` and NaN are the ordinary missing value.

        Returns a ``str`` for one value, else a list of ``str`` without the
        field's padding blanks (``bytes`` for binary layouts such as IB4.).
        ``as_array=True`` gives a NumPy array of fixed-width fields with their
        padding: ``dtype="U"`` (str, one position a character) or ``"S"``
        (the UTF-8 bytes). ``errors="raise"`` raises :class:`ConversionError`
        for a text that cannot be converted; ``"empty"`` gives "" for it.
        """
        if self._handle is None:
            raise ValueError("the Formatter is closed")
        if self.spec.informat and not self.spec.character:
            raise TypeError("%s is a numeric informat: use input()" % self.spec.text)
        scalar = _is_scalar(values)
        if scalar:
            values = [values]
        if self.spec.character or self.spec.informat:
            data, offsets, n = _texts(values, self.spec.raw_bytes)
            args = (None, data, offsets.buffer_info()[0])
            keep = (data, offsets)
        else:
            addr, n, keep = _numbers(values, self.spec.family)
            args = (addr, None, None)
        if as_array:
            out = self._fixed(n, args, dtype, errors)
        else:
            out = self._strings(n, args, errors)
        del keep
        return out[0] if scalar and not as_array else out

    def _check(self, statuses, n, errors):
        if errors != "raise" or n == 0:
            return
        if _np is not None:
            st = _np.frombuffer(statuses, dtype=_np.uint32, count=n)
            bad = _np.flatnonzero((st >= 0x8001DA01) & (st <= 0x8001DA03))
            if bad.size == 0:
                return
            i = int(bad[0])
        else:
            bad = [i for i in range(n) if statuses[i] in _COLUMN_STATUSES]
            if not bad:
                return
            i = bad[0]
        s = statuses[i]
        text = self._lib.xfx_status_text(s).decode("utf-8", "replace")
        raise ConversionError("value %d: %s (%s)" % (i, text, self.spec.text), i, s)

    def _fixed(self, n, args, dtype, errors):
        if _np is None:
            raise ImportError("as_array=True needs NumPy")
        statuses = (ctypes.c_uint32 * max(n, 1))()
        values, data, offsets = args
        if dtype in ("U", str):
            stride = self.spec.width if not (self.spec.informat and not self.spec.width_given) else self.spec.max_width
            out = _np.empty(n, dtype="<U%d" % max(stride, 1))
            code = self._lib.xfx_convert_fixed_utf32(self._handle, n, values, data, offsets, _NAN_MISSING,
                                                      out.ctypes.data, max(stride, 1), 0, statuses)
        elif dtype in ("S", bytes):
            stride = max(self._max_bytes, 1)
            out = _np.empty(n, dtype="S%d" % stride)
            code = self._lib.xfx_convert_fixed(self._handle, n, values, data, offsets, _NAN_MISSING,
                                                out.ctypes.data, stride, b"\0", statuses)
        else:
            raise ValueError("dtype is 'U' or 'S'")
        if code != 0:
            raise ValueError("column conversion failed: %s" % ERRORS.get(code, code))
        self._check(statuses, n, errors)
        return out

    def _strings(self, n, args, errors):
        values, data, offsets = args
        raw = self.spec.raw_bytes
        # Numeric formats never write a NUL byte: the texts come back as one
        # string with a NUL after each, split in one step.
        split = not raw and (not (self.spec.character or self.spec.informat) or b"\0" not in data)
        per_value = self._max_bytes + 1
        capacity = min(max(n * per_value, per_value), max(1 << 26, per_value))
        buf = bytearray(capacity)
        cbuf = (ctypes.c_char * capacity).from_buffer(buf)
        offs = (ctypes.c_int64 * (n + 1))()
        statuses = (ctypes.c_uint32 * max(n, 1))()
        done = ctypes.c_size_t(0)
        result = []
        start = 0
        while start < n:
            v = values + start * 8 if values is not None else None
            o = offsets + start * 8 if offsets is not None else None
            code = self._lib.xfx_convert_strings(self._handle, n - start, v, data, o,
                                                 _NAN_MISSING | (_NUL_AFTER if split else 0), cbuf, capacity,
                                                 offs, ctypes.addressof(statuses) + start * 4, ctypes.byref(done))
            if code not in (0, 6):
                raise ValueError("column conversion failed: %s" % ERRORS.get(code, code))
            k = done.value
            total = offs[k]
            if split:
                result.extend(str(memoryview(buf)[:total], "utf-8", "replace").split("\0")[:-1])
            else:
                mv = memoryview(buf)
                for i in range(k):
                    piece = bytes(mv[offs[i]:offs[i + 1]])
                    result.append(piece if raw else piece.decode("utf-8", "replace"))
            start += k
            if code == 6 and k == 0:  # one value larger than the buffer
                capacity *= 2
                buf = bytearray(capacity)
                cbuf = (ctypes.c_char * capacity).from_buffer(buf)
        self._check(statuses, n, errors)
        return result

    # -- informats ------------------------------------------------------------

    def input(self, texts, as_array=False, errors="raise"):
        """Reads texts with an informat (``Formatter("@COMMA12.")`` or
        ``Formatter("COMMA12.", informat=True)``).

        Returns a ``float`` for one text, else a list of floats, with
        ``None`` for the ordinary missing value and :class:`Missing` for the
        special ones (invalid text stores the ordinary missing value).
        ``as_array=True`` gives a NumPy float64 array holding the stored
        doubles (missing values are NaN patterns: see ``Missing.of``). A
        character informat gives ``str``.
        """
        if not self.spec.informat:
            raise TypeError("%s is a format: use format(), or open it with informat=True" % self.spec.text)
        if self.spec.character:
            return self.format(texts, as_array=as_array, errors=errors)
        scalar = _is_scalar(texts)
        if scalar:
            texts = [texts]
        data, offsets, n = _texts(texts, self.spec.raw_bytes)
        statuses = (ctypes.c_uint32 * max(n, 1))()
        if _np is not None:
            out = _np.empty(n, dtype="float64")
            addr = out.ctypes.data
        else:
            out = array.array("d", bytes(8 * n))
            addr = out.buffer_info()[0] if n else None
        code = self._lib.xfx_convert_numbers(self._handle, n, data, offsets.buffer_info()[0], addr, statuses)
        if code != 0:
            raise ValueError("column conversion failed: %s" % ERRORS.get(code, code))
        self._check(statuses, n, errors)
        if as_array:
            if _np is None:
                raise ImportError("as_array=True needs NumPy")
            return out
        result = [_python_number(float(x)) for x in out]
        return result[0] if scalar else result


def _python_number(v):
    if v != v:
        m = Missing.of(v)
        return None if m is None or m.symbol == "." else m
    return v


# --- module-level conveniences ----------------------------------------------

_cache_lock = threading.Lock()
_cache = {}


def _formatter(spec, locale, formats, informat):
    key = (spec, locale, id(formats) if formats is not None else None, informat)
    with _cache_lock:
        f = _cache.get(key)
        if f is None or f.formats is not formats:
            if len(_cache) > 64:
                _cache.clear()
            f = Formatter(spec, locale=locale, formats=formats, informat=informat)
            _cache[key] = f
        return f


def format(values, spec, locale=None, formats=None, **kwargs):
    """Converts values with a format: ``xfmt.format([0, 23451], "DATE9.")``
    gives ``['01JAN1960', '16MAR2024']``. See :meth:`Formatter.format` for
    the values taken and the options (``as_array``, ``dtype``, ``errors``)."""
    return _formatter(spec, locale, formats, False).format(values, **kwargs)


def input(texts, spec, locale=None, formats=None, **kwargs):
    """Reads texts with an informat: ``xfmt.input(["1,234.50"], "COMMA12.")``
    gives ``[1234.5]``. See :meth:`Formatter.input`."""
    return _formatter(spec, locale, formats, True).input(texts, **kwargs)


# --- stored values to Python objects ----------------------------------------

def _family_of(spec):
    if isinstance(spec, Formatter):
        return spec.spec.family
    if isinstance(spec, FormatSpec):
        return spec.family
    from .written import parse_spec

    return parse_spec(spec).family


def _one(v, family):
    if v is None:
        return None
    if isinstance(v, Missing):
        return None if v.symbol == "." else v
    v = float(v)
    if v != v:
        return _python_number(v)
    if family == "date":
        return _EPOCH_DATE + datetime.timedelta(days=math.floor(v))
    if family == "datetime":
        return _EPOCH + datetime.timedelta(seconds=v)
    if family == "time":
        return (datetime.datetime.min + datetime.timedelta(seconds=v % 86400)).time()
    if family == "duration":
        return datetime.timedelta(seconds=v)
    return v


def to_python(value, spec):
    """A stored number as the Python object its format's family means:
    ``datetime.date`` (date), ``datetime.datetime`` (datetime),
    ``datetime.time`` (time of day), ``datetime.timedelta`` (duration), else
    the float; the 1960 epoch is handled. Missing values give ``None`` (or
    :class:`Missing` for special ones).

    A pandas Series (or NumPy array) is converted as a whole: datetime64 for
    dates and datetimes, timedelta64 for durations, ``datetime.time`` objects
    for times of day, with NaT for missing values.
    """
    family = _family_of(spec)
    if _np is not None and (isinstance(value, _np.ndarray) or type(value).__module__.startswith("pandas")):
        return _to_python_column(value, family)
    if _is_scalar(value) or isinstance(value, Missing):
        return _one(value, family)
    return [_one(v, family) for v in value]


def _to_python_column(value, family):
    is_pandas = type(value).__module__.startswith("pandas")
    a = value.to_numpy(dtype="float64", na_value=_np.nan) if is_pandas else _np.asarray(value, dtype="float64")
    if family == "date":
        days = _np.floor(a)
        out = _np.datetime64("1960-01-01", "D") + _np.where(_np.isnan(days), 0, days).astype("int64").astype(
            "timedelta64[D]")
        out = out.astype("datetime64[ns]")
        out[_np.isnan(a)] = _np.datetime64("NaT")
    elif family == "datetime":
        us = _np.round(_np.where(_np.isnan(a), 0, a) * 1e6).astype("int64")
        out = (_np.datetime64("1960-01-01T00:00:00", "us") + us.astype("timedelta64[us]")).astype("datetime64[ns]")
        out[_np.isnan(a)] = _np.datetime64("NaT")
    elif family == "duration":
        us = _np.round(_np.where(_np.isnan(a), 0, a) * 1e6).astype("int64")
        out = us.astype("timedelta64[us]").astype("timedelta64[ns]")
        out[_np.isnan(a)] = _np.timedelta64("NaT")
    elif family == "time":
        out = _np.array([_one(x, "time") if x == x else None for x in a], dtype=object)
    else:
        out = a
    if is_pandas:
        import pandas as pd

        return pd.Series(out, index=value.index, name=value.name)
    return out
