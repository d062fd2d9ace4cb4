"""Reader of the C library's locale source files (/usr/share/i18n/locales/*).

read_category(locale, "LC_TIME") returns {keyword: [values]}, following
"copy" directives; strings come back as Python text with <Uxxxx> and escape
characters resolved, numbers as int.
"""
import os
import re

LOCALE_DIR = "/usr/share/i18n/locales"

_cache = {}


def _strip_comment(line, comment, escape):
    """Cuts a trailing comment: the comment character outside a string."""
    quoted, i = False, 0
    while i < len(line):
        c = line[i]
        if c == escape:
            i += 2
            continue
        if c == '"':
            quoted = not quoted
        elif c == comment and not quoted:
            return line[:i].rstrip()
        i += 1
    return line


def _logical_lines(path):
    comment, escape = "%", "\\"
    with open(path, encoding="utf-8") as f:
        raw = f.read().split("\n")
    lines, buf = [], ""
    for line in raw:
        m = re.match(r"^\s*(comment_char|escape_char)\s+(\S)\s*$", line)
        if m:
            if m.group(1) == "comment_char":
                comment = m.group(2)
            else:
                escape = m.group(2)
            continue
        if not buf and line.lstrip().startswith(comment):
            continue
        stripped = line.rstrip()
        cont = stripped.endswith(escape) and not stripped.endswith(escape + escape)
        body = _strip_comment(stripped[:-1] if cont else stripped, comment, escape)
        if cont:
            buf += body
            continue
        lines.append(buf + body)
        buf = ""
    if buf:
        lines.append(buf)
    return lines, escape


def _parse_values(text, escape):
    """Values separated by ';': "strings" (with <Uxxxx> and escapes) or numbers."""
    values, i, n = [], 0, len(text)
    while i < n:
        c = text[i]
        if c in " \t;":
            i += 1
        elif c == '"':
            i += 1
            out = []
            while i < n and text[i] != '"':
                if text[i] == escape and i + 1 < n:
                    out.append(text[i + 1])
                    i += 2
                elif text[i] == "<":
                    m = re.match(r"<U([0-9A-Fa-f]{4,8})>", text[i:])
                    if m:
                        out.append(chr(int(m.group(1), 16)))
                        i += len(m.group(0))
                    else:
                        out.append("<")
                        i += 1
                else:
                    out.append(text[i])
                    i += 1
            values.append("".join(out))
            i += 1
        elif c == "<":
            m = re.match(r"<U([0-9A-Fa-f]{4,8})>", text[i:])
            values.append(chr(int(m.group(1), 16)) if m else text[i:].split()[0])
            i += len(m.group(0)) if m else n
        else:
            m = re.match(r"-?\d+", text[i:])
            if m:
                values.append(int(m.group(0)))
                i += len(m.group(0))
            else:
                tok = re.match(r"\S+", text[i:]).group(0)
                values.append(tok)
                i += len(tok)
    return values


def _categories(locale):
    if locale in _cache:
        return _cache[locale]
    lines, escape = _logical_lines(os.path.join(LOCALE_DIR, locale))
    cats, cur = {}, None
    for line in lines:
        s = line.strip()
        if not s:
            continue
        if cur is None:
            if re.match(r"^LC_[A-Z]+$", s):
                cur = s
                cats[cur] = {}
            continue
        if s == "END " + cur:
            cur = None
            continue
        parts = s.split(None, 1)
        key = parts[0]
        rest = parts[1] if len(parts) > 1 else ""
        cats[cur][key] = _parse_values(rest, escape)
    _cache[locale] = cats
    return cats


def read_category(locale, category):
    cat = _categories(locale).get(category, {})
    if "copy" in cat:
        base = dict(read_category(cat["copy"][0], category))
        base.update({k: v for k, v in cat.items() if k != "copy"})
        return base
    return cat
