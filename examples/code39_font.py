"""A small Code 39 font of our own, so that the sample documents show bars wherever they are opened.

A character is five bars and four spaces (ISO/IEC 16388), wide ones three times as wide, and a gap. Fonts inside Word
documents are stored with their first 32 bytes changed by a key (ECMA-376 part 4, 2.8.1).
"""
import io

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen

NAME = "Zorix Code 39"
KEY = "{6A1F5C02-93B7-4E0D-8C44-2F7B90D1E35A}"
CHARACTERS = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%*"
PATTERNS = """
    nnnwwnwnn wnnwnnnnw nnwwnnnnw wnwwnnnnn nnnwwnnnw wnnwwnnnn nnwwwnnnn nnnwnnwnw wnnwnnwnn nnwwnnwnn wnnnnwnnw
    nnwnnwnnw wnwnnwnnn nnnnwwnnw wnnnwwnnn nnwnwwnnn nnnnnwwnw wnnnnwwnn nnwnnwwnn nnnnwwwnn wnnnnnnww nnwnnnnww
    wnwnnnnwn nnnnwnnww wnnnwnnwn nnwnwnnwn nnnnnnwww wnnnnnwwn nnwnnnwwn nnnnwnwwn wwnnnnnnw nwwnnnnnw wwwnnnnnn
    nwnnwnnnw wwnnwnnnn nwwnwnnnn nwnnnnwnw wwnnnnwnn nwwnnnwnn nwnwnwnnn nwnwnnnwn nwnnnwnwn nnnwnwnwn nwnnwnwnn
""".split()
MODULE, HEIGHT = 40, 900  # of 1000 units to the em


def draw(pattern):
    """The glyph of a character, and its width."""
    pen, left = TTGlyphPen(None), 0
    for index, kind in enumerate(pattern):
        right = left + (3 if kind == "w" else 1) * MODULE
        if index % 2 == 0:
            pen.moveTo((left, 0))
            for point in ((left, HEIGHT), (right, HEIGHT), (right, 0)):
                pen.lineTo(point)
            pen.closePath()
        left = right
    return pen.glyph(), left + MODULE


def font_bytes():
    glyphs, widths, characters = {".notdef": TTGlyphPen(None).glyph()}, {".notdef": (MODULE * 16, 0)}, {}
    for character, pattern in zip(CHARACTERS, PATTERNS, strict=True):
        name = f"u{ord(character):04X}"
        glyphs[name], width = draw(pattern)
        widths[name] = (width, 0)
        characters[ord(character)] = name
    characters[ord("_")] = characters[ord(" ")]  # the blank of bar-code texts
    builder = FontBuilder(1000, isTTF=True)
    builder.setupGlyphOrder(list(glyphs))
    builder.setupCharacterMap(characters)
    builder.setupGlyf(glyphs)
    builder.setupHorizontalMetrics(widths)
    builder.setupHorizontalHeader(ascent=HEIGHT, descent=-100)
    builder.setupNameTable({"familyName": NAME, "styleName": "Regular"})
    builder.setupOS2(sTypoAscender=HEIGHT, sTypoDescender=-100, usWinAscent=HEIGHT, usWinDescent=100,
                      fsType=0)  # may be embedded in documents that are edited
    builder.setupPost()
    builder.font["head"].created = builder.font["head"].modified = 0  # the same file each time
    builder.font.recalcTimestamp = False
    data = io.BytesIO()
    builder.save(data)
    return data.getvalue()


def stored_bytes():
    """The font as it stands in a Word document under KEY."""
    data = bytearray(font_bytes())
    key = bytes.fromhex(KEY.strip("{}").replace("-", ""))[::-1]
    for index in range(32):
        data[index] ^= key[index % 16]
    return bytes(data)
