"""Formatting and reading values and columns."""

import concurrent.futures
import datetime
import math
import os
import pickle
import struct
import subprocess
import sys

import numpy as np
import pandas as pd
import pytest

import xfmt
from conftest import CONTROL_FILE, PACKAGE_ROOT


def test_lists_missing_values_and_scalars():
    assert xfmt.format([0, 23451, None, math.nan, xfmt.Missing("A"), xfmt.Missing("_")], "DATE9.") == \
        ["01JAN1960", "16MAR2024", ".", ".", "A", "_"]
    assert xfmt.format(3.14159, "F8.2") == "3.14"
    assert xfmt.format([1234.5, -3], "DOLLAR12.2") == ["$1,234.50", "-$3.00"]
    assert xfmt.format(1234.5, "EURO10.2") == "\u20ac1,234.50"
    assert xfmt.format(1e9, "F4.") == "****"  # the field of stars is what the format shows


def test_dates_and_times_from_python_objects():
    assert xfmt.format(datetime.date(2024, 3, 16), "DATE9.") == "16MAR2024"
    assert xfmt.format(datetime.datetime(2023, 7, 4, 12, 34, 56), "DATETIME20.") == "04JUL2023:12:34:56"
    assert xfmt.format(datetime.time(12, 34, 56), "TOD8.") == "12:34:56"
    assert xfmt.format(datetime.timedelta(hours=30), "TIME8.") == "30:00:00"
    assert xfmt.format(datetime.date(2024, 3, 16), "E8601DT19.") == "2024-03-16T00:00:00"


def test_character_formats_take_utf8_text():
    assert xfmt.format(["hello", "caf\u00e9", "\u20ac5", None], "$CHAR6.") == ["hello", "caf\u00e9", "\u20ac5", ""]
    with pytest.raises(xfmt.ConversionError) as e:
        xfmt.format(["ok", "\u0142odz"], "$CHAR6.")
    assert e.value.index == 1
    assert xfmt.format(["ok", "\u0142odz"], "$CHAR6.", errors="empty") == ["ok", ""]
    assert xfmt.format([1234], "IB4.") == [struct.pack("=i", 1234)]
    assert xfmt.format([1234], "S370FIB4.") == [b"\x00\x00\x04\xd2"]


def test_bidirectional_formats_take_and_give_utf8():
    logical, visual = "AB \u05d0\u05d1\u05d2 CD", "AB \u05d2\u05d1\u05d0 CD"
    assert xfmt.format([logical], "$LOGVS12.") == [visual]
    assert xfmt.format([visual], "$VSLOG12.") == [logical]
    assert xfmt.format([logical], "$LOGVSR12.") == ["CD \u05d2\u05d1\u05d0 AB"]
    assert xfmt.format([logical], "$LOGVS12.", as_array=True, dtype="S")[0] == visual.encode("utf-8")


def test_numpy_and_pandas_columns():
    days = np.array([0.0, 23451.0, np.nan, 23451.5])
    assert xfmt.format(days, "DATE9.") == ["01JAN1960", "16MAR2024", ".", "16MAR2024"]
    fixed = xfmt.format(days, "DATE11.", as_array=True)
    assert fixed.dtype == np.dtype("<U11") and fixed[1] == "16-MAR-2024"
    raw = xfmt.format(np.array([1.5, -2.25]), "F8.2", as_array=True, dtype="S")
    assert list(raw) == [b"    1.50", b"   -2.25"]
    assert list(xfmt.format(np.array([1.5]), "F8.2", as_array=True)) == ["    1.50"]
    ints = pd.Series([1, 2, None], dtype="Int64")
    assert xfmt.format(ints, "Z3.") == ["001", "002", "."]
    stamps = pd.Series(pd.to_datetime(["2024-03-16", None, "1960-01-01 00:00:01"]))
    assert xfmt.format(stamps, "DATE9.") == ["16MAR2024", ".", "01JAN1960"]
    assert xfmt.format(stamps, "DATETIME18.") == ["16MAR2024:00:00:00", ".", "01JAN1960:00:00:01"]
    big = np.arange(100000, dtype="float64")
    assert xfmt.format(big, "F8.2")[-1] == "99999.00"
    assert list(xfmt.format(big[:5], "F8.2", as_array=True)) == [" " * 4 + "%.2f" % v for v in range(5)]


def test_informats():
    assert xfmt.input(["1,234.50", "(12)", ".A", "abc", ""], "COMMA12.") == \
        [1234.5, -12.0, xfmt.Missing("A"), None, None]
    assert xfmt.input("04JUL2023", "DATE9.") == 23195.0
    arr = xfmt.input(["1", ".B"], "F", as_array=True)
    assert arr[0] == 1.0 and xfmt.Missing.of(float(arr[1])) == xfmt.Missing("B")
    assert xfmt.input(["  hi  "], "$CHAR6.") == ["hi"]
    with pytest.raises(TypeError):
        xfmt.Formatter("@F8.").format([1.0])


def test_to_python_by_family():
    assert xfmt.to_python(23451, "DATE9.") == datetime.date(2024, 3, 16)
    assert xfmt.to_python(-1, "DATE9.") == datetime.date(1959, 12, 31)
    assert xfmt.to_python(2004093296.5, "DATETIME22.1") == datetime.datetime(2023, 7, 4, 12, 34, 56, 500000)
    assert xfmt.to_python(45296, "TOD8.") == datetime.time(12, 34, 56)
    assert xfmt.to_python(90000, "TIME8.") == datetime.timedelta(hours=25)
    assert xfmt.to_python(1.5, "F8.2") == 1.5
    assert xfmt.to_python(None, "DATE9.") is None
    assert xfmt.to_python(float(xfmt.Missing("C")), "DATE9.") == xfmt.Missing("C")
    s = xfmt.to_python(pd.Series([23451.0, np.nan]), "DATE9.")
    assert s.dtype.kind == "M" and s[0] == pd.Timestamp("2024-03-16") and pd.isna(s[1])
    d = xfmt.to_python(pd.Series([2004093296.0]), "DATETIME.")
    assert d[0] == pd.Timestamp("2023-07-04 12:34:56")
    t = xfmt.to_python(np.array([90.0]), "TIME8.")
    assert t[0] == np.timedelta64(90, "s")


def test_formatter_pickles_and_resolves_again():
    fmts = xfmt.load_formats(open(CONTROL_FILE, encoding="utf-8").read())
    f = xfmt.Formatter("AGEGRP.", formats=fmts)
    g = pickle.loads(pickle.dumps(f))
    assert g is not f and g.spec == f.spec
    assert g.format([15, xfmt.Missing("A"), 99]) == f.format([15, xfmt.Missing("A"), 99]) == \
        ["teen & y", "refused", "adult"]
    assert fmts.names[0] == "AGEGRP"
    de = pickle.loads(pickle.dumps(xfmt.Formatter("NLDATE20.", locale="de_DE")))
    assert de.format(23084) == "15. M\u00e4rz 2023"


def test_formatter_is_thread_safe():
    f = xfmt.Formatter("DATE9.")
    columns = [np.arange(i, i + 5000, dtype="float64") for i in range(16)]
    want = [xfmt.Formatter("DATE9.").format(c) for c in columns]
    with concurrent.futures.ThreadPoolExecutor(8) as pool:
        got = list(pool.map(f.format, columns))
    assert got == want


def test_unknown_conversions_and_locales():
    with pytest.raises(xfmt.SpecError) as e:
        xfmt.Formatter("NOSUCH.")
    assert e.value.code == "unknown_name"
    with pytest.raises(ValueError):
        xfmt.Formatter("NLDATE20.", locale="xx_NOWHERE")
    with pytest.raises(TypeError):
        xfmt.format(["a"], "F8.2")


def run_python(code, **env):
    full = dict(os.environ, PYTHONPATH=PACKAGE_ROOT, **env)
    return subprocess.run([sys.executable, "-c", code], env=full, capture_output=True, text=True, timeout=60)


def test_without_numpy_lists_still_work():
    r = run_python("import sys; sys.modules['numpy'] = None; import xfmt; "
                   "print(xfmt.format([0, None], 'DATE9.'), xfmt.input(['1,5'], 'COMMAX8.'))")
    assert r.returncode == 0, r.stderr
    assert r.stdout.strip() == "['01JAN1960', '.'] [1.5]"


def test_library_discovery_says_what_it_tried(tmp_path):
    r = run_python("import xfmt._lib as l; l._candidates = lambda: [('XFMT_LIBRARY', '/nowhere/libxfmt.so'), "
                   "('system loader', 'libxfmt-none.so')]\ntry:\n l.library()\nexcept OSError as e:\n print(e)")
    assert r.returncode == 0, r.stderr
    line = r.stdout.strip()
    assert line.startswith("xfmt: libxfmt.so not found; tried XFMT_LIBRARY /nowhere/libxfmt.so")
    assert "libxfmt-none.so" in line and "\n" not in line
    order = run_python("import xfmt._lib as l; print([w for w, p in l._candidates()])", XFMT_LIBRARY="/x.so")
    names = eval(order.stdout)
    assert names[0] == "XFMT_LIBRARY" and names[-1] == "system loader" and "build tree" in names
