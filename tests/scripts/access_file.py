"""Writes small database files as Access does, of Jet 3 (Access 97), Jet 4 (2000) and ACE 14 (2010).

Each table has its definition on a page, a page with the map of its pages, and pages with rows. A key is an index
without pages of its own, since nothing searches in it. Long values are beside their row, on a page, or in a chain.
"""
import struct

JET3, JET4, ACE14 = 0, 1, 3

# The types of columns, and the sizes in bytes of those with a fixed size.
BOOLEAN, BYTE, SHORT, LONG, MONEY, SINGLE, DOUBLE, DATE, BINARY, TEXT, OLE, MEMO = range(1, 13)
REPLICATION_ID, NUMERIC, COMPLEX, BIG = 15, 16, 18, 19
FIXED = {BOOLEAN: 0, BYTE: 1, SHORT: 2, LONG: 4, MONEY: 8, SINGLE: 4, DOUBLE: 8, DATE: 8, REPLICATION_ID: 16, NUMERIC: 17,
         COMPLEX: 4, BIG: 8}
PACKED = {BYTE: "<B", SHORT: "<h", LONG: "<i", COMPLEX: "<i", BIG: "<q", SINGLE: "<f", DOUBLE: "<d", DATE: "<d"}

# The head of a file is encrypted by RC4 with this key.
KEY = bytes.fromhex("c7da396b")


def rc4(key, data):
    state, j = list(range(256)), 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    result, i, j = bytearray(), 0, 0
    for byte in data:
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        result.append(byte ^ state[(state[i] + state[j]) % 256])
    return bytes(result)


class Column:
    def __init__(self, name, kind, calculated=False, scale=0):
        self.name, self.kind, self.calculated, self.scale = name, kind, calculated, scale


class Deleted(tuple):
    """A deleted row, whose bytes are still in the file."""


class Moved(tuple):
    """A row that has grown and is on another page now. Its old place refers to the new one."""


IS_DELETED, IS_POINTER = 0x8000, 0x4000


class AccessFile:
    def __init__(self, version=JET4):
        self.version = version
        self.page_size = 2048 if version == JET3 else 4096
        self.pages = [b"", b""]
        self.catalog = []
        self.relations = []
        self.definitions = []
        self.forms = []
        # The catalog's own definition is on a fixed page.
        self.pages.append(b"")

    def add_table(self, name, columns, rows, keys=(), flags=0, captions=None, properties=None):
        """Adds a table. Each key is a list of numbers of columns, and the first key is the primary one. The properties
        are those of the columns, by their names."""
        page = len(self.pages)
        self.pages.append(b"")
        self._fill_table(page, columns, rows, keys)
        stored = {column: {"Caption": caption} for column, caption in (captions or {}).items()}
        for column, values in (properties or {}).items():
            stored.setdefault(column, {}).update(values)
        self.catalog.append((page, name, 1, flags, self._properties(stored)))
        return page

    def add_relation(self, name, table, columns, referred, referred_columns):
        for number, (column, other) in enumerate(zip(columns, referred_columns)):
            self.relations.append((name, table, referred, number, column, other))

    def add_query(self, name, rows, flags=0):
        """Adds a query. Its rows consist of attribute, flag, two names and an expression."""
        number = -len(self.catalog) - 1
        self.catalog.append((number, name, 5, flags, None))
        self.definitions += [(number, *row) for row in rows]

    def add_form(self, name, streams):
        """Adds a form with the streams of its folder in the storage, by their names."""
        self.catalog.append((-len(self.catalog) - 1, name, -32768, 0, None))
        self.forms.append((name, streams))

    def _add_storage(self, flags):
        """Writes the storage of forms: folders of type 1 and streams of type 2, each with its parent."""
        rows = [(1, 1, "MSysAccessStorage_ROOT", 1, None), (4, 1, "Forms", 1, None)]
        directory = bytes(4)
        for number, (name, streams) in enumerate(self.forms):
            text = name.encode("utf-16-le")
            directory += bytes([4, len(text) + 4]) + text + struct.pack("<I", number)
            folder = 10 * (number + 1)
            rows.append((folder, 4, chr(ord("0") + number), 1, None))
            rows += [(folder + place + 1, folder, stream, 2, content)
                     for place, (stream, content) in enumerate(streams.items())]
        rows.append((5, 4, "\x03DirData", 2, directory))
        self.add_table("MSysAccessStorage", [Column("Id", LONG), Column("ParentId", LONG), Column("Name", TEXT),
                                             Column("Type", LONG), Column("Lv", OLE)], rows, flags=flags)

    def save(self, path):
        system = -2147483646
        if self.forms:
            self._add_storage(system)
        self.add_table("MSysRelationships", [Column("szRelationship", TEXT), Column("szObject", TEXT),
                                             Column("szReferencedObject", TEXT), Column("icolumn", LONG),
                                             Column("szColumn", TEXT), Column("szReferencedColumn", TEXT)],
                       self.relations, flags=system)
        self.add_table("MSysQueries", [Column("ObjectId", LONG), Column("Attribute", BYTE), Column("Flag", SHORT),
                                       Column("Name1", TEXT), Column("Name2", TEXT), Column("Expression", MEMO)],
                       self.definitions, flags=system)
        objects = [(2, "MSysObjects", 1, system, None), *self.catalog]
        self._fill_table(2, [Column("Id", LONG), Column("Name", TEXT), Column("Type", SHORT), Column("Flags", LONG),
                             Column("LvProp", OLE)], objects)
        mark = b"Standard ACE DB\0" if self.version == ACE14 else b"Standard Jet DB\0"
        head = bytearray(self.page_size)
        head[:20] = struct.pack("<I", 0x100) + mark
        head[20] = self.version
        hidden = bytearray(126 if self.version == JET3 else 128)
        hidden[0x3C - 0x18:0x3E - 0x18] = struct.pack("<H", 1252)
        head[0x18:0x18 + len(hidden)] = rc4(KEY, hidden)
        self.pages[0] = bytes(head)
        path.write_bytes(b"".join(page.ljust(self.page_size, b"\0") for page in self.pages))

    def _text(self, text):
        return text.encode("cp1252") if self.version == JET3 else text.encode("utf-16-le")

    def _name(self, name):
        text = self._text(name)
        return struct.pack("<B" if self.version == JET3 else "<H", len(text)) + text

    def _properties(self, columns):
        """Returns the properties of columns, which are a short number or a text each."""
        if not columns:
            return None
        def text(value):
            encoded = self._text(value)
            return struct.pack("<H", len(encoded)) + encoded
        def chunk(kind, content):
            return struct.pack("<IH", len(content) + 6, kind) + content
        def packed(value):
            return struct.pack("<Hh", 2, value) if isinstance(value, int) else text(value)
        names = sorted({name for values in columns.values() for name in values})
        content = chunk(0x80, b"".join(text(name) for name in names))
        for column, values in columns.items():
            block = b""
            for name, value in values.items():
                entry = struct.pack("<BBH", 0, SHORT if isinstance(value, int) else TEXT, names.index(name)) + packed(value)
                block += struct.pack("<H", len(entry) + 2) + entry
            head = text(column)
            content += chunk(1, struct.pack("<I", len(head) + 4) + head + block)
        return (b"KKD\0" if self.version == JET3 else b"MR2\0") + content

    def _fill_table(self, page, columns, rows, keys=()):
        packed, pages = [], []
        for row in rows:
            content, flags = self._row(columns, row), 0
            if isinstance(row, Deleted):
                flags = IS_DELETED | IS_POINTER
            elif isinstance(row, Moved):
                pages.append(len(self.pages))
                self.pages.append(self._page_of([(content, IS_DELETED)], page))
                content, flags = struct.pack("<I", pages[-1] << 8), IS_POINTER
            packed.append((content, flags))
        pages += self._data_pages(page, packed)
        map_page = len(self.pages)
        first = min(pages, default=0)
        bits = bytearray((max(pages, default=0) - first) // 8 + 8)
        for number in pages:
            bits[(number - first) // 8] |= 1 << (number - first) % 8
        self.pages.append(self._page_of([(struct.pack("<BI", 0, first) + bits, 0)], 0))
        self._add_definition(page, self._definition(columns, keys, len(rows), map_page))

    def _add_definition(self, page, content):
        """Stores a definition on a page, and the rest of it on further pages, each after a head."""
        size = self.page_size - 8
        pieces = [content[place:place + size] for place in range(8, len(content), size)]
        numbers = [page, *range(len(self.pages), len(self.pages) + len(pieces) - 1)]
        self.pages += [b""] * (len(pieces) - 1)
        for number, following, piece in zip(numbers, [*numbers[1:], 0], pieces):
            self.pages[number] = struct.pack("<BBHI", 2, 1, 0, following) + piece

    def _data_pages(self, owner, rows):
        numbers, rest = [], rows
        while rest:
            free, count = self.page_size - 16, 0
            while count < len(rest) and count < 250 and free >= len(rest[count][0]) + 2:
                free -= len(rest[count][0]) + 2
                count += 1
            numbers.append(len(self.pages))
            self.pages.append(self._page_of(rest[:count], owner))
            rest = rest[count:]
        return numbers

    def _page_of(self, rows, owner):
        """Returns a page of rows with their flags."""
        head = struct.pack("<BBHI", 1, 1, 0, owner) + (b"" if self.version == JET3 else bytes(4))
        offsets, place, content = b"", self.page_size, b""
        for row, flags in rows:
            place -= len(row)
            offsets += struct.pack("<H", place | flags)
            content = row + content
        head += struct.pack("<H", len(rows)) + offsets
        return head.ljust(place, b"\0") + content

    def _definition(self, columns, keys, rows, map_page):
        fixed, variable, entries = 0, 0, b""
        for number, column in enumerate(columns):
            is_fixed = column.kind in FIXED
            place = fixed if is_fixed else 0
            size = FIXED.get(column.kind, 510)
            flags = (1 if is_fixed else 0) | 2
            further = 0xC0 if column.calculated else 0
            if self.version == JET3:
                entries += struct.pack("<BHHHIBBBHH", column.kind, number, variable, number, 0, 0, column.scale, flags,
                                       place, size)
            else:
                entries += struct.pack("<BIHHHBBHBBIHH", column.kind, 0, number, variable, number, 18, column.scale, 0,
                                       flags, further, 0, place, size)
            fixed += size if is_fixed else 0
            variable += 0 if is_fixed else 1
        names = b"".join(self._name(column.name) for column in columns)
        count = len(columns)
        if self.version == JET3:
            counts = struct.pack("<IIIBHHHIIII", 0, rows, 0, 0x4E, count, variable, count, len(keys), len(keys),
                                 map_page << 8, map_page << 8) + bytes(8 * len(keys))
        else:
            counts = struct.pack("<IIIIIIQBHHHIIII", 0, 0, rows, 0, 0, 0, 0, 0x4E, count, variable, count, len(keys),
                                 len(keys), map_page << 8, map_page << 8) + bytes(12 * len(keys))
        return struct.pack("<BBHI", 2, 1, 0, 0) + counts + entries + names + self._indexes(keys)

    def _indexes(self, keys):
        physical = logical = names = b""
        for number, key in enumerate(keys):
            parts = b"".join(struct.pack("<HB", column, 1) for column in key)
            parts += b"\xff\xff\0" * (10 - len(key)) + struct.pack("<IIB", 0, 0, 1)
            kind = 1 if number == 0 else 0
            if self.version == JET3:
                physical += parts
                logical += struct.pack("<II", number, number) + bytes(11) + bytes([kind])
            else:
                physical += bytes(4) + parts + bytes(9)
                logical += struct.pack("<III", 0, number, number) + bytes(11) + bytes([kind]) + bytes(4)
            names += self._name(f"key{number}")
        return physical + logical + names

    def _row(self, columns, values):
        """Returns the bytes of a row. A value may be packed already."""
        fixed, variable, present = b"", [], 0
        for number, (column, value) in enumerate(zip(columns, values)):
            if value is not None and value is not False:
                present |= 1 << number
            if column.kind == BOOLEAN:
                continue
            if column.kind in FIXED:
                fixed += self._fixed(column.kind, value)
            else:
                variable.append(self._variable(column.kind, value))
        mask = present.to_bytes((len(columns) + 7) // 8, "little")
        count = struct.pack("<B" if self.version == JET3 else "<H", len(columns))
        place, ends = len(count) + len(fixed), []
        for value in variable:
            ends.append(place)
            place += len(value)
        ends.append(place)
        offset = "<B" if self.version == JET3 else "<H"
        table = b"".join(struct.pack(offset, end) for end in reversed(ends)) if variable else b""
        table += struct.pack(offset, len(variable)) if variable else b""
        return count + fixed + b"".join(variable) + table + mask

    def _fixed(self, kind, value):
        if value is None:
            return bytes(FIXED[kind])
        if kind == MONEY:
            return struct.pack("<q", value)
        if isinstance(value, bytes):
            return value
        return struct.pack(PACKED[kind], value)

    def _variable(self, kind, value):
        if value is None:
            return b""
        content = value if isinstance(value, bytes) else self._text(value)
        if kind in (TEXT, BINARY):
            return content
        if len(content) <= 64:
            return struct.pack("<III", len(content) | 1 << 31, 0, 0) + content
        room = self.page_size - 32
        if len(content) <= room:
            self.pages.append(self._page_of([(content, 0)], 0))
            return struct.pack("<III", len(content) | 1 << 30, len(self.pages) - 1 << 8, 0)
        pieces = [content[place:place + room - 4] for place in range(0, len(content), room - 4)]
        first = len(self.pages)
        for number, piece in enumerate(pieces):
            following = 0 if number == len(pieces) - 1 else first + number + 1 << 8
            self.pages.append(self._page_of([(struct.pack("<I", following) + piece, 0)], 0))
        return struct.pack("<III", len(content), first << 8, 0)
