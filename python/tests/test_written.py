"""Written formats as records and the catalog as data."""

import pytest

import xfmt
from conftest import CONTROL_FILE


@pytest.mark.parametrize("text, name, width, decimals, informat, character, family", [
    ("DATETIME22.3", "DATETIME", 22, 3, False, False, "datetime"),
    ("$CHAR10.", "$CHAR", 10, 0, False, True, "character"),
    ("BEST.", "BEST", 12, 0, False, False, "number"),
    ("@COMMA12.", "COMMA", 12, 0, True, False, "number"),
    ("date9.", "DATE", 9, 0, False, False, "date"),
    ("TIME8.", "TIME", 8, 0, False, False, "duration"),
    ("TOD8.", "TOD", 8, 0, False, False, "time"),
    ("DOLLAR12.2", "DOLLAR", 12, 2, False, False, "currency"),
    ("PERCENT8.1", "PERCENT", 8, 1, False, False, "percent"),
    ("IB4.", "IB", 4, 0, False, False, "binary"),
    ("NLSTRMON.", "NLSTRMON", 20, 0, False, False, "national"),
])
def test_parse_spec_records(text, name, width, decimals, informat, character, family):
    s = xfmt.parse_spec(text)
    assert (s.name, s.width, s.decimals, s.informat, s.character, s.family) == \
        (name, width, decimals, informat, character, family)
    assert s.min_width <= s.width <= s.max_width
    again = xfmt.parse_spec(s.text)
    assert (again.name, again.width, again.decimals, again.informat) == (s.name, s.width, s.decimals, s.informat)


def test_parse_spec_flags_and_limits():
    s = xfmt.parse_spec("F8.2")
    assert s.width_given and s.decimals_given and s.built and s.module == "JAZWFMSC"
    assert (s.min_width, s.max_width, s.max_decimals) == (1, 32, 31)
    b = xfmt.parse_spec("BEST")
    assert not b.width_given and b.width == b.default_width
    assert xfmt.parse_spec("COMMA12.", informat=True).informat
    assert xfmt.parse_spec("NLDATE20.").national
    assert xfmt.parse_spec("IB4.").raw_bytes


@pytest.mark.parametrize("text, code, message", [
    ("F40.", "width", "width 40 is outside the limits of F (1 to 32)"),
    ("DATE9.2", "decimals", "decimals 2 are outside the limits of DATE (0 to 0)"),
    ("NOSUCH8.", "unknown_name", "format 'NOSUCH' is not known"),
    ("9X.", "syntax", "'9X.' is not a format (NAME, optional width, '.', optional decimals)"),
])
def test_parse_spec_errors(text, code, message):
    with pytest.raises(xfmt.SpecError) as e:
        xfmt.parse_spec(text)
    assert e.value.code == code
    assert str(e.value) == message
    assert isinstance(e.value, ValueError)


def test_user_format_through_loaded_formats():
    fmts = xfmt.load_formats(CONTROL_FILE)
    s = xfmt.parse_spec("AGEGRP.", formats=fmts)
    assert s.user and s.family == "number" and s.width == 8
    with pytest.raises(xfmt.SpecError):
        xfmt.parse_spec("AGEGRP.")


def test_description_and_strftime():
    s = xfmt.parse_spec("DATE9.")
    assert s.strftime == "%d%b%Y"
    assert "month" in s.description
    assert xfmt.parse_spec("E8601DT19.").strftime == "%Y-%m-%dT%H:%M:%S"
    assert xfmt.parse_spec("YYQ6.").strftime is None
    assert xfmt.parse_spec("F8.2").strftime is None


def test_catalog_examples_are_what_the_conversions_write():
    entries = xfmt.catalog()
    assert len(entries) == 547 and len(xfmt.catalog(include_separators=True)) == 551
    assert all(e.description for e in entries)
    checked = 0
    for e in entries:
        s = e.spec
        if not s.built or s.informat or s.character or s.raw_bytes or s.national or s.family == "none":
            continue
        value = float(e.example_value) if e.example_value[:1] != "." else xfmt.Missing(e.example_value)
        text = xfmt.format([value], e.example_spec, as_array=True)[0]
        assert text == e.example_output.rstrip("\0"), e.example_spec
        checked += 1
    assert checked > 150
    names = {(e.spec.name, e.spec.informat) for e in entries}
    assert ("DATE", False) in names and ("COMMA", True) in names


def test_docstring_examples():
    import doctest

    import xfmt.convert
    import xfmt.formats
    import xfmt.written

    for module in (xfmt, xfmt.written, xfmt.convert, xfmt.formats):
        failed, attempted = doctest.testmod(module)
        assert failed == 0, module.__name__
