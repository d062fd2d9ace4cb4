#!/usr/bin/env python3
"""Generate src/text/bidi_tables.cpp: the bidirectional properties of every code point.

Sources (the Unicode Character Database as Debian's unicode-data package
installs it under /usr/share/unicode/):
  extracted/DerivedBidiClass.txt  Bidi_Class of every code point, with the
                                  @missing defaults for unassigned ones
                                  (R and AL blocks, ET for currency, BN for
                                  noncharacters and default ignorables)
  BidiBrackets.txt                Bidi_Paired_Bracket and its type (o / c)
  BidiMirroring.txt               Bidi_Mirroring_Glyph
  UnicodeData.txt                 singleton canonical decompositions, so
                                  that brackets pair by canonical equivalence
                                  (U+2329 with U+3009 ...)

Layout: one byte per code point (bits 0-4 the class in the order of CLASSES,
which is the order of xfmt::text::bidi_class; bit 5 set when the code point
has a mirroring glyph; bits 6-7 the bracket type: 1 opening, 2 closing),
held as a two-stage table: bidi_stage1[cp >> SHIFT] picks a block of
2^SHIFT bytes in bidi_stage2. Blocks are shared, so the 1.1 million code
points take a few tens of kilobytes. The mirroring glyphs and the bracket
keys are short sorted tables searched by bisection.

Usage:
  gen_bidi_tables.py            write the file
  gen_bidi_tables.py --check    exit 1 when the committed file differs
  gen_bidi_tables.py --stdout   print the generated text
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
OUT = os.path.join(ROOT, "src", "text", "bidi_tables.cpp")
COMMAND = "python3 tools/gen/gen_bidi_tables.py"
UCD = os.environ.get("XFMT_UCD", "/usr/share/unicode")

# Same order as enum class bidi_class in src/text/bidi.hpp.
CLASSES = ["L", "R", "AL", "EN", "ES", "ET", "AN", "CS", "NSM", "BN", "B", "S", "WS", "ON",
           "LRE", "LRO", "RLE", "RLO", "PDF", "LRI", "RLI", "FSI", "PDI"]
LONG = {
    "Left_To_Right": "L", "Right_To_Left": "R", "Arabic_Letter": "AL", "European_Number": "EN",
    "European_Separator": "ES", "European_Terminator": "ET", "Arabic_Number": "AN",
    "Common_Separator": "CS", "Nonspacing_Mark": "NSM", "Boundary_Neutral": "BN",
    "Paragraph_Separator": "B", "Segment_Separator": "S", "White_Space": "WS",
    "Other_Neutral": "ON", "Left_To_Right_Embedding": "LRE", "Left_To_Right_Override": "LRO",
    "Right_To_Left_Embedding": "RLE", "Right_To_Left_Override": "RLO",
    "Pop_Directional_Format": "PDF", "Left_To_Right_Isolate": "LRI",
    "Right_To_Left_Isolate": "RLI", "First_Strong_Isolate": "FSI",
    "Pop_Directional_Isolate": "PDI",
}
SHIFT = 7
LIMIT = 0x110000


def ucd_path(*parts):
    p = os.path.join(UCD, *parts)
    if not os.path.exists(p):
        raise SystemExit("missing %s (Debian package unicode-data)" % p)
    return p


def data_lines(path):
    with open(path, encoding="utf-8") as f:
        for line in f:
            yield line


def parse_range(text):
    text = text.strip()
    if ".." in text:
        a, b = text.split("..")
        return int(a, 16), int(b, 16)
    return int(text, 16), int(text, 16)


def read_classes():
    cls = bytearray(LIMIT)  # 0 = L
    path = ucd_path("extracted", "DerivedBidiClass.txt")
    missing = []
    explicit = []
    version = None
    for line in data_lines(path):
        if version is None:
            m = re.match(r"#\s*DerivedBidiClass-([0-9.]+)\.txt", line)
            if m:
                version = m.group(1)
        m = re.match(r"#\s*@missing:\s*([0-9A-F.]+)\s*;\s*(\w+)", line)
        if m:
            missing.append((parse_range(m.group(1)), LONG[m.group(2)]))
            continue
        body = line.split("#", 1)[0].strip()
        if not body:
            continue
        rng, value = [x.strip() for x in body.split(";")]
        explicit.append((parse_range(rng), value))
    # Defaults first (the file gives the general one before the particular
    # ones), then every listed code point.
    for (a, b), value in missing + explicit:
        v = CLASSES.index(value)
        for cp in range(a, b + 1):
            cls[cp] = v
    return cls, version


def read_decompositions():
    single = {}
    for line in data_lines(ucd_path("UnicodeData.txt")):
        f = line.split(";")
        if len(f) > 5 and f[5] and not f[5].startswith("<") and " " not in f[5]:
            single[int(f[0], 16)] = int(f[5], 16)
    return single


def read_brackets():
    out = []
    for line in data_lines(ucd_path("BidiBrackets.txt")):
        body = line.split("#", 1)[0].strip()
        if not body:
            continue
        cp, pair, kind = [x.strip() for x in body.split(";")]
        out.append((int(cp, 16), int(pair, 16), kind))
    return out


def read_mirrors():
    out = []
    for line in data_lines(ucd_path("BidiMirroring.txt")):
        body = line.split("#", 1)[0].strip()
        if not body:
            continue
        cp, glyph = [x.strip() for x in body.split(";")]
        out.append((int(cp, 16), int(glyph, 16)))
    return sorted(out)


def build():
    cls, version = read_classes()
    props = bytearray(cls)
    mirrors = read_mirrors()
    for cp, _ in mirrors:
        props[cp] |= 0x20
    canon = read_decompositions()
    brackets = []
    for cp, pair, kind in read_brackets():
        props[cp] |= 0x40 if kind == "o" else 0x80
        # An opening bracket looks for the canonical form of its pair, a
        # closing one offers its own canonical form: equal keys pair.
        key = canon.get(pair, pair) if kind == "o" else canon.get(cp, cp)
        brackets.append((cp, key))
    brackets.sort()
    # Two stages, identical blocks shared.
    size = 1 << SHIFT
    blocks = {}
    stage1 = []
    stage2 = []
    for start in range(0, LIMIT, size):
        block = bytes(props[start:start + size])
        if block not in blocks:
            blocks[block] = len(blocks)
            stage2.append(block)
        stage1.append(blocks[block])
    return version, stage1, stage2, mirrors, brackets


def render():
    version, stage1, stage2, mirrors, brackets = build()
    size = 1 << SHIFT
    lines = [
        "// Generated by tools/gen/gen_bidi_tables.py from the Unicode Character Database %s "
        "(/usr/share/unicode); regenerate with: %s" % (version, COMMAND),
        "// Bidirectional properties: one byte per code point (bits 0-4 the class as",
        "// xfmt::text::bidi_class numbers it, bit 5 a mirroring glyph exists, bits 6-7",
        "// the bracket type 1 opening / 2 closing) in two stages of %d-byte blocks;" % size,
        "// the mirroring glyphs and the bracket keys sorted by code point.",
        '#include "text/bidi_tables.hpp"',
        "",
        "namespace xfmt::text {",
        "",
        'const char bidi_unicode_version[] = "%s";' % version,
        "",
        "const uint16_t bidi_stage1[%d] = {" % len(stage1),
    ]
    for i in range(0, len(stage1), 16):
        lines.append("    " + ", ".join(str(v) for v in stage1[i:i + 16]) + ",")
    lines.append("};")
    lines.append("")
    lines.append("const uint8_t bidi_stage2[%d] = {" % (len(stage2) * size))
    for n, block in enumerate(stage2):
        lines.append("    // block %d" % n)
        for i in range(0, size, 32):
            lines.append("    " + ",".join(str(v) for v in block[i:i + 32]) + ",")
    lines.append("};")
    lines.append("")
    lines.append("const uint32_t bidi_mirror_count = %d;" % len(mirrors))
    lines.append("const uint32_t bidi_mirror_from[%d] = {" % len(mirrors))
    for i in range(0, len(mirrors), 8):
        lines.append("    " + ", ".join("0x%04X" % cp for cp, _ in mirrors[i:i + 8]) + ",")
    lines.append("};")
    lines.append("const uint32_t bidi_mirror_to[%d] = {" % len(mirrors))
    for i in range(0, len(mirrors), 8):
        lines.append("    " + ", ".join("0x%04X" % g for _, g in mirrors[i:i + 8]) + ",")
    lines.append("};")
    lines.append("")
    lines.append("const uint32_t bidi_bracket_count = %d;" % len(brackets))
    lines.append("const uint32_t bidi_bracket_cp[%d] = {" % len(brackets))
    for i in range(0, len(brackets), 8):
        lines.append("    " + ", ".join("0x%04X" % cp for cp, _ in brackets[i:i + 8]) + ",")
    lines.append("};")
    lines.append("const uint32_t bidi_bracket_key[%d] = {" % len(brackets))
    for i in range(0, len(brackets), 8):
        lines.append("    " + ", ".join("0x%04X" % k for _, k in brackets[i:i + 8]) + ",")
    lines.append("};")
    lines.append("")
    lines.append("}  // namespace xfmt::text")
    lines.append("")
    return "\n".join(lines), len(stage1), len(stage2) * size, len(mirrors), len(brackets)


def main():
    text, n1, n2, nm, nb = render()
    if "--stdout" in sys.argv:
        sys.stdout.write(text)
        return 0
    if "--check" in sys.argv:
        with open(OUT, encoding="ascii") as f:
            same = f.read() == text
        if not same:
            sys.stderr.write("%s differs from the generator's output\n" % OUT)
        return 0 if same else 1
    with open(OUT, "w", encoding="ascii") as f:
        f.write(text)
    sys.stderr.write("stage1 %d, stage2 %d bytes, %d mirrors, %d brackets\n" % (n1, n2, nm, nb))
    return 0


if __name__ == "__main__":
    sys.exit(main())
