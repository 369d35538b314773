#!/usr/bin/env python3
"""Makes the interface's one font file from free fonts.

    build_font.py OUTPUT

The alphabets come from one sans family: its faces are cut to their scripts, rescaled and merged with
their shaping tables. Han, Hangul and kana come from a face of the same build; its glyphs are
appended as they stand in the file, without their hints, because there are too many to take apart.
"""
import io
import struct
import sys
from pathlib import Path

from fontTools.merge import Merger, Options as MergeOptions
from fontTools.subset import Options as SubsetOptions, Subsetter
from fontTools.ttLib import TTFont
from fontTools.ttLib.scaleUpem import scale_upem
from fontTools.ttLib.sfnt import SFNTWriter

UNITS_PER_EM = 2048
FONTS = Path("/usr/share/fonts/truetype")
EAST_ASIAN = FONTS / "wqy" / "wqy-microhei.ttc"
# A face and the ranges taken from it. An earlier face keeps what a later one also has.
FACES = [
    ("NotoSans-Regular.ttf", [(0x20, 0x58F), (0x1AB0, 0x2BFF), (0xFB00, 0xFB06), (0xFE20, 0xFE2F),
                              (0xFFFC, 0xFFFD)]),
    ("NotoSansHebrew-Regular.ttf", [(0x590, 0x5FF), (0xFB1D, 0xFB4F)]),
    ("NotoSansArabicUI-Regular.ttf", [(0x600, 0x6FF), (0x750, 0x77F), (0xFB50, 0xFDFF),
                                      (0xFE70, 0xFEFC)]),
    ("NotoSansDevanagariUI-Regular.ttf", [(0x900, 0x97F), (0xA8E0, 0xA8FF), (0x25CC, 0x25CC)]),
    ("NotoSansThaiUI-Regular.ttf", [(0xE00, 0xE7F)]),
]
MORE_COMPONENTS, HAVE_SCALE, HAVE_XY_SCALE, HAVE_2X2 = 0x20, 0x08, 0x40, 0x80
ARGUMENTS_ARE_WORDS, HAVE_INSTRUCTIONS = 0x01, 0x100


def cut_face(name, ranges, taken):
    """One face with only the characters that are its own, rescaled, without hints."""
    font = TTFont(FONTS / "noto" / name, recalcTimestamp=False)
    wanted = {c for c in font.getBestCmap() if any(a <= c <= b for a, b in ranges)} - taken
    taken |= wanted
    options = SubsetOptions()
    options.hinting = False
    options.layout_features = ["*"]
    options.glyph_names = True
    options.notdef_outline = True
    options.drop_tables += ["DSIG", "gasp"]
    subsetter = Subsetter(options)
    subsetter.populate(unicodes=wanted)
    subsetter.subset(font)
    scale_upem(font, UNITS_PER_EM)
    data = io.BytesIO()
    font.save(data)
    data.seek(0)
    return data


def merge_faces():
    taken = set()
    faces = [cut_face(name, ranges, taken) for name, ranges in FACES]
    merged = Merger(options=MergeOptions(drop_tables=["DSIG", "gasp"])).merge(faces)
    metrics = TTFont(faces[0])
    # Equal sources give equal files.
    merged.recalcTimestamp = False
    merged["head"].created = merged["head"].modified = metrics["head"].modified
    for field in ("ascent", "descent", "lineGap"):
        setattr(merged["hhea"], field, getattr(metrics["hhea"], field))
    data = io.BytesIO()
    merged["post"].formatType = 3.0
    merged["name"].names = [n for n in merged["name"].names if n.nameID in (0, 1, 2, 4, 6, 13, 14)]
    for record in merged["name"].names:
        if record.nameID in (1, 4, 6):
            record.string = "ZrSans"
    merged.save(data)
    data.seek(0)
    return TTFont(data)


class RawGlyphs:
    """The glyph outlines of a font as they stand in the file."""

    def __init__(self, font):
        self.glyf = font.reader["glyf"]
        loca = font.reader["loca"]
        long_format = font["head"].indexToLocFormat == 1
        count = len(loca) // (4 if long_format else 2)
        self.loca = struct.unpack(f">{count}{'L' if long_format else 'H'}", loca)
        if not long_format:
            self.loca = [offset * 2 for offset in self.loca]

    def __getitem__(self, glyph):
        return self.glyf[self.loca[glyph]:self.loca[glyph + 1]]


def components(glyph):
    """Yields (position, flags, glyph id, end) of each component of a composite glyph."""
    at, flags = 10, MORE_COMPONENTS
    while flags & MORE_COMPONENTS:
        flags, number = struct.unpack_from(">HH", glyph, at)
        end = at + (8 if flags & ARGUMENTS_ARE_WORDS else 6)
        end += 2 if flags & HAVE_SCALE else 4 if flags & HAVE_XY_SCALE else 8 if flags & HAVE_2X2 else 0
        yield at, flags, number, end
        at = end


def is_composite(glyph):
    return len(glyph) > 0 and struct.unpack_from(">h", glyph)[0] < 0


def without_hints(glyph):
    if len(glyph) == 0 or is_composite(glyph):
        return glyph
    contours = struct.unpack_from(">h", glyph)[0]
    at = 10 + 2 * contours
    length = struct.unpack_from(">H", glyph, at)[0]
    return glyph[:at] + b"\0\0" + glyph[at + 2 + length:]


def renumbered(glyph, new_number):
    glyph = bytearray(glyph)
    end = 10
    for at, flags, number, end in list(components(glyph)):
        struct.pack_into(">HH", glyph, at, flags & ~HAVE_INSTRUCTIONS, new_number[number])
    return bytes(glyph[:end])


def choose_east_asian(font, outlines, taken):
    """The characters to add, and all glyphs they need: theirs in order of code, then components."""
    codes = {c: font.getGlyphID(g) for c, g in font.getBestCmap().items() if c not in taken}
    order = list(dict.fromkeys(codes[c] for c in sorted(codes)))
    chosen = set(order)
    for glyph in order:  # grows while it is walked
        if is_composite(outlines[glyph]):
            for _, _, number, _ in components(outlines[glyph]):
                if number not in chosen:
                    chosen.add(number)
                    order.append(number)
    return codes, order


def character_map(glyph_of):
    """A cmap table with one subtable of format 12: runs of characters with consecutive glyphs."""
    groups = []
    for code in sorted(glyph_of):
        if groups and code == groups[-1][1] + 1 and glyph_of[code] - code == groups[-1][2] - groups[-1][0]:
            groups[-1][1] = code
        else:
            groups.append([code, code, glyph_of[code]])
    head = struct.pack(">HHHHL", 0, 1, 3, 10, 12)
    body = b"".join(struct.pack(">LLL", *group) for group in groups)
    return head + struct.pack(">HHLLL", 12, 0, 16 + len(body), 0, len(groups)) + body


def horizontal_metrics(font, glyphs):
    table, names = font["hmtx"].metrics, font.getGlyphOrder()
    return [table[names[glyph]] for glyph in glyphs]


def outline_tables(glyphs):
    padded = [glyph + b"\0" * (-len(glyph) % 4) for glyph in glyphs]
    offsets = [0]
    for glyph in padded:
        offsets.append(offsets[-1] + len(glyph))
    return {"glyf": b"".join(padded), "loca": struct.pack(f">{len(offsets)}L", *offsets)}


def metric_tables(base, metrics):
    lines = bytearray(base.reader["hhea"])
    struct.pack_into(">H", lines, 34, len(metrics))
    return {"hhea": bytes(lines), "hmtx": b"".join(struct.pack(">Hh", *metric) for metric in metrics)}


def limit_tables(base, more, glyph_count):
    """The tables that bound all glyphs: their box, and how complicated they get."""
    def both(table, field, choose):
        return choose(getattr(base[table], field), getattr(more[table], field))

    head = bytearray(base.reader["head"])
    box = (both("head", f, c) for f, c in (("xMin", min), ("yMin", min), ("xMax", max), ("yMax", max)))
    struct.pack_into(">hhhh", head, 36, *box)
    struct.pack_into(">h", head, 50, 1)  # long offsets
    maximum = bytearray(base.reader["maxp"])
    points = ("maxPoints", "maxContours", "maxCompositePoints", "maxCompositeContours")
    struct.pack_into(">HHHHH", maximum, 4, glyph_count, *(both("maxp", f, max) for f in points))
    depth = ("maxComponentElements", "maxComponentDepth")
    struct.pack_into(">HH", maximum, 28, *(both("maxp", f, max) for f in depth))
    return {"head": bytes(head), "maxp": bytes(maximum)}


def write_font(output, tables):
    output.parent.mkdir(parents=True, exist_ok=True)
    with open(output, "wb") as file:
        writer = SFNTWriter(file, len(tables))
        for tag in sorted(tables):
            writer[tag] = tables[tag]
        writer.close()


def main():
    output = Path(sys.argv[1])
    base = merge_faces()
    base_outlines = RawGlyphs(base)
    glyph_of = {c: base.getGlyphID(g) for c, g in base.getBestCmap().items()}
    count = base["maxp"].numGlyphs

    more = TTFont(EAST_ASIAN, fontNumber=0, lazy=True)
    if more["head"].unitsPerEm != UNITS_PER_EM:
        sys.exit(f"{EAST_ASIAN} has {more['head'].unitsPerEm} units, not {UNITS_PER_EM}")
    outlines = RawGlyphs(more)
    codes, order = choose_east_asian(more, outlines, set(glyph_of))
    new_number = {old: count + i for i, old in enumerate(order)}
    glyph_of.update((code, new_number[old]) for code, old in codes.items())

    glyphs = [base_outlines[i] for i in range(count)]
    for old in order:
        glyph = without_hints(outlines[old])
        glyphs.append(renumbered(glyph, new_number) if is_composite(glyph) else glyph)
    tables = {tag: base.reader[tag] for tag in ("OS/2", "name", "post", "GDEF", "GPOS", "GSUB")}
    tables.update(outline_tables(glyphs))
    tables.update(metric_tables(base, horizontal_metrics(base, range(count)) +
                                horizontal_metrics(more, order)))
    tables.update(limit_tables(base, more, len(glyphs)))
    tables["cmap"] = character_map(glyph_of)
    write_font(output, tables)
    print(f"{output.name}: {len(glyphs)} glyphs for {len(glyph_of)} characters")


main()
