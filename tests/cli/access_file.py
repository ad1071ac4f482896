"""Writes a small Access file (.mdb, the format of 2000 to 2003) with one table, for tests: no other tool here makes one.

Pages of 4096 bytes: 0 the header, 1 the maps of pages that tables own, 2 the definition of the catalog, 3 its records,
4 the definition of the table, 5 its records.
"""
import datetime
import struct

PAGE = 4096
BOOLEAN, LONG, MONEY, DOUBLE, DATE, TEXT, OLE, MEMO = 1, 4, 5, 7, 8, 10, 11, 12
FIXED = {LONG: 4, MONEY: 8, DOUBLE: 8, DATE: 8, BOOLEAN: 0}
CATALOG = [("Id", LONG), ("Type", LONG), ("Flags", LONG), ("Name", TEXT), ("LvProp", OLE)]


def scrambled(plain, key=b"\xC7\xDA\x39\x6B"):
    """The stream cipher RC4 over the beginning of the header, under a key that is the same in every file."""
    state = list(range(256))
    j = 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    i = j = 0
    result = bytearray()
    for byte in plain:
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        result.append(byte ^ state[(state[i] + state[j]) % 256])
    return bytes(result)


def header():
    page = bytearray(PAGE)
    page[0:20] = b"\x00\x01\x00\x00Standard Jet DB\x00"
    page[0x14] = 1
    page[0x18:0x18 + 128] = scrambled(bytes(128))
    return bytes(page)


def data_page(rows, owner):
    """Rows lie from the end of the page backwards; their places stand at its beginning."""
    page = bytearray(PAGE)
    place = PAGE
    places = b""
    for row in rows:
        place -= len(row)
        page[place:place + len(row)] = row
        places += struct.pack("<H", place)
    free = place - 14 - len(places)
    start = struct.pack("<BBHIIH", 1, 1, free, owner, 0, len(rows)) + places
    page[:len(start)] = start
    return bytes(page)


def page_map(*pages):
    bits = bytearray(64)
    for page in pages:
        bits[page // 8] |= 1 << page % 8
    return b"\x00" + struct.pack("<I", 0) + bytes(bits)


def encoded(value, kind):
    if kind == LONG:
        return struct.pack("<i", value)
    if kind == MONEY:
        return struct.pack("<q", round(value * 10000))
    if kind == DOUBLE:
        return struct.pack("<d", value)
    if kind == DATE:
        return struct.pack("<d", (value - datetime.datetime(1899, 12, 30)) / datetime.timedelta(days=1))
    text = value.encode("utf-16-le")
    return text if kind == TEXT else struct.pack("<III", len(text) | 0x80000000, 0, 0) + text


def record(columns, values):
    """Fixed columns, the others, where these begin from the last to the first, and which values are there (for yes/no:
    which are yes)."""
    there = bytearray((len(columns) + 7) // 8)
    fixed = b""
    variable = []
    for number, ((_, kind), value) in enumerate(zip(columns, values)):
        if value is not None and (kind != BOOLEAN or value):
            there[number // 8] |= 1 << number % 8
        if kind == BOOLEAN:
            continue
        if kind in FIXED:
            fixed += bytes(FIXED[kind]) if value is None else encoded(value, kind)
        else:
            variable.append(b"" if value is None else encoded(value, kind))
    row = struct.pack("<H", len(columns)) + fixed
    begins = []
    for value in variable:
        begins.append(len(row))
        row += value
    row += struct.pack("<H", len(row)) + b"".join(struct.pack("<H", begin) for begin in reversed(begins))
    return row + struct.pack("<H", len(variable)) + bytes(there)


def definition(columns, rows, kind, maps):
    variable = [number for number, (_, each) in enumerate(columns) if each not in FIXED]
    body = struct.pack("<IIIB", 0, rows, 0, 1) + bytes(3 + 4 + 8)
    body += struct.pack("<BHHHIIII", kind, len(columns), len(variable), len(columns), 0, 0, (1 << 8) | maps, (1 << 8) | maps + 1)
    offset = 0
    for number, (_, each) in enumerate(columns):
        place = variable.index(number) if number in variable else 0
        size = FIXED.get(each, 0 if each in (MEMO, OLE) else 510)
        flags = 2 | (each in FIXED)
        body += struct.pack("<BIHHHHHBBIHH", each, 0, number, place, number, 0x409 if each in (TEXT, MEMO) else 0, 0, flags, 0, 0,
                            offset if each in FIXED else 0, size)
        offset += FIXED.get(each, 0)
    for name, _ in columns:
        encoded_name = name.encode("utf-16-le")
        body += struct.pack("<H", len(encoded_name)) + encoded_name
    body += b"\xFF\xFF"
    page = struct.pack("<BBHI", 2, 1, PAGE - 16 - len(body), 0) + struct.pack("<I", len(body)) + body
    return page + bytes(PAGE - len(page))


def write(path, table, columns, rows):
    """@param columns  pairs of a name and a type; @param rows  a list of values for each record"""
    catalog = [record(CATALOG, [2, 1, -0x80000000, "MSysObjects", None]), record(CATALOG, [4, 1, 0, table, None])]
    pages = [
        header(),
        data_page([page_map(3), page_map(), page_map(5), page_map()], 0),
        definition(CATALOG, len(catalog), 0x53, 0),
        data_page(catalog, 2),
        definition(columns, len(rows), 0x4E, 2),
        data_page([record(columns, row) for row in rows], 4),
    ]
    with open(path, "wb") as file:
        file.write(b"".join(pages))
