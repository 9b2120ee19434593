#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Makes DXF plans of any size: sheets as block inserts, and whatever else a plan may hold.

The same options give the same bytes. Large plans are written as they are made, from templates:
about 50,000 sheets a second.
"""
import argparse
import math
import random
import struct
import sys

VERSIONS = {"R12": "AC1009", "R2000": "AC1015", "R2007": "AC1021"}
FAULTS = ("doubled-frame", "no-number", "same-number", "nested")
WIDTH, HEIGHT = 594.0, 420.5  # metres on the ground: a sheet at 1:1000
WEST, SOUTH = 4468211.3725, 5318402.7583  # where the plan begins
STREETS = ("Am Anger", "Bahnhofweg", "Kirchplatz", "Seeufer")
UMLAUT_STREETS = ("Mühlstraße", "Grüner Weg", "Schloßplatz", "Am Öchsle")


class Slot:
    """A value of a template that is filled in later; a handle also has a fixed end."""

    def __init__(self, name, end=""):
        self.template = f"%({name})b{end}".encode()


class Coding:
    """How pairs of group code and value become bytes."""

    def __init__(self, options):
        self.is_old = options.version == "R12"  # neither subclass markers nor LWPOLYLINE
        self.encoding = "utf-8" if options.version == "R2007" else "cp1252"
        self.binary = options.binary
        self.line_end = b"\r\n" if options.crlf else b"\n"
        self.code_width = 0 if options.tight else 3
        self.count_width = 0 if options.tight else 6

    def template(self, pairs):
        """The pairs as bytes, for the % operator: slots are open, all else is fixed."""
        return b"".join(self._code(code) + self._value(code, value) for code, value in pairs)

    def bytes(self, pairs):
        return self.template(pairs) % {}

    def text(self, text):
        return text.encode(self.encoding)

    def number(self, number):
        number = round(number, 4)
        return struct.pack("<d", number) if self.binary else repr(number).encode()

    def _code(self, code):
        if self.binary:
            return struct.pack("<B" if self.is_old else "<H", code)
        return str(code).rjust(self.code_width).encode() + self.line_end

    def _value(self, code, value):
        is_real = 10 <= code <= 59 or 140 <= code <= 149 or 210 <= code <= 239
        is_count = 60 <= code <= 99 or 170 <= code <= 179
        if isinstance(value, Slot):
            data = value.template
        elif is_real:
            data = self.number(value).replace(b"%", b"%%")
        elif is_count and self.binary:
            data = struct.pack("<i" if 90 <= code <= 99 else "<h", value).replace(b"%", b"%%")
        elif is_count:
            data = str(value).rjust(self.count_width).encode()
        else:
            data = self.text(value).replace(b"%", b"%%")
        if not self.binary:
            return data + self.line_end
        return data if is_real or is_count else data + b"\0"


def point(x, y, first_code=10):
    return [(first_code, x), (first_code + 10, y), (first_code + 20, 0.0)]


class Plan:
    """The sections of one plan, each a stream of bytes."""

    def __init__(self, options):
        self.options = options
        self.coding = Coding(options)
        self.sheets = options.sheets + len(options.fault)
        self.columns = math.ceil(math.sqrt(2 * self.sheets))
        self.faults = dict(enumerate(options.fault, options.sheets))  # by index of the sheet
        self.streets = UMLAUT_STREETS if options.umlauts else STREETS

    def write(self, out):
        if self.options.binary:
            out.write(b"AutoCAD Binary DXF\r\n\x1a\0")
        sections = [("HEADER", self.header), ("TABLES", self.tables), ("BLOCKS", self.blocks),
                    ("ENTITIES", self.entities)]
        if self.options.entities_first:
            sections[2], sections[3] = sections[3], sections[2]
        for name, content in sections:
            out.write(self.coding.bytes([(0, "SECTION"), (2, name)]))
            for part in content():
                out.write(part)
            out.write(self.coding.bytes([(0, "ENDSEC")]))
        out.write(self.coding.bytes([(0, "EOF")]))

    # What a sheet is: its number is index + 1.

    def centre(self, index):
        """Centre and turn of a sheet: rows from south to north, winding when rotated."""
        row, column = divmod(index, self.columns)
        x, y, turn = column * WIDTH, row * HEIGHT, 0.0
        if self.options.rotated:
            phase = column * math.pi / 4  # a bend takes eight sheets; the steepest turns by 22°
            y = row * HEIGHT * 1.15 + 0.4 * WIDTH * 4 / math.pi * math.sin(phase)
            turn = math.atan(0.4 * math.cos(phase))
            x *= 0.97  # the road is longer than its way east
        return WEST + x, SOUTH + y, turn

    def corners(self, index):
        """The frame as some draughtsman would draw it: from any corner, either way round."""
        x, y, turn = self.centre(index)
        right = (math.cos(turn) * WIDTH / 2, math.sin(turn) * WIDTH / 2)
        up = (-math.sin(turn) * HEIGHT / 2, math.cos(turn) * HEIGHT / 2)
        corners = [(x + a * right[0] + b * up[0], y + a * right[1] + b * up[1])
                   for a, b in ((-1, -1), (1, -1), (1, 1), (-1, 1))]
        habit = (index + self.options.seed) * 2654435761 >> 7
        first = habit & 3
        corners = corners[first:] + corners[:first]
        return corners[::-1] if habit & 4 else corners

    def block_name(self, index):
        if self.options.shared_block and index not in self.faults:
            return "Blatt"
        prefix = "Straße" if self.options.umlauts and index % 3 == 0 else "Blatt"
        return f"{prefix}_{index + 1}"

    def handle(self, index):
        return b"%X" % (index + 0x100)  # three more digits make it the handle of one entity

    def insert_values(self, index):
        x, y, _ = self.centre(index)
        sheet_number = 1 if self.faults.get(index) == "same-number" else index + 1
        street = self.streets[index % len(self.streets)]
        return {b"h": self.handle(index), b"block": self.coding.text(self.block_name(index)),
                b"x": self.coding.number(x), b"y": self.coding.number(y),
                b"BL_NR": b"%d" % sheet_number, b"MASSSTAB": b"1:1000",
                b"TITEL": self.coding.text(street)}

    # Pairs. Handles begin with the slot "h" and end with the three digits given.

    def head(self, kind, end, layer, *markers):
        pairs = [(0, kind), (5, Slot("h", f"{end:03X}"))]
        if self.coding.is_old:
            return pairs + [(8, layer)]
        return pairs + [(100, "AcDbEntity"), (8, layer)] + [(100, marker) for marker in markers]

    def polyline(self, end, layer, corners, is_closed=True):
        is_light = self.options.frame == "LWPOLYLINE"
        kind = "AcDbPolyline" if is_light else "AcDb2dPolyline"
        pairs = self.head(self.options.frame, end, layer, kind)
        if is_light:
            pairs += [(90, len(corners)), (70, int(is_closed))]
            for x, y in corners:
                pairs += [(10, x), (20, y)]
            return pairs
        pairs += [(66, 1)] + point(0.0, 0.0) + [(70, int(is_closed))]
        for number, (x, y) in enumerate(corners, 1):
            pairs += self.head("VERTEX", end + number, layer, "AcDbVertex", "AcDb2dVertex")
            pairs += point(x, y)
        return pairs + self.head("SEQEND", end + len(corners) + 1, layer)

    def frame(self, end):
        return self.polyline(end, "RAHMEN", [(Slot(f"x{i}"), Slot(f"y{i}")) for i in range(4)])

    def insert(self, end, attributes):
        pairs = self.head("INSERT", end, "BLATT", "AcDbBlockReference")
        pairs += [(66, 1)] if attributes else []
        pairs += [(2, Slot("block"))] + point(Slot("x"), Slot("y"))
        for number, tag in enumerate(attributes, 1):
            pairs += self.head("ATTRIB", end + number, "BLATT", "AcDbText")
            pairs += point(Slot("x"), Slot("y")) + [(40, 2.5), (1, Slot(tag))]
            pairs += [] if self.coding.is_old else [(100, "AcDbAttribute")]
            pairs += [(2, tag), (70, 0)]
        return pairs + (self.head("SEQEND", end + 15, "BLATT") if attributes else [])

    def block(self, content):
        begin = self.head("BLOCK", 0, "0", "AcDbBlockBegin")
        begin += [(2, Slot("name")), (70, 0)] + point(0.0, 0.0) + [(3, Slot("name"))]
        return self.coding.template(begin + content + self.head("ENDBLK", 1, "0", "AcDbBlockEnd"))

    # Sections

    def header(self):
        version = VERSIONS[self.options.version]
        yield self.coding.bytes([(9, "$ACADVER"), (1, version), (9, "$DWGCODEPAGE"),
                                 (3, "ANSI_1252"), (9, "$INSUNITS"), (70, 6)])

    def tables(self):
        layers = ("0", "RAHMEN", "BLATT", "GEBÄUDE" if self.options.umlauts else "WEGE")
        pairs = [(0, "TABLE"), (2, "LAYER"), (70, len(layers))]
        for layer in layers:
            pairs += [(0, "LAYER"), (2, layer), (70, 0), (62, 7), (6, "CONTINUOUS")]
        yield self.coding.bytes(pairs + [(0, "ENDTAB")])

    def blocks(self):
        plain = self.block(self.frame(2))
        doubled = self.block(self.frame(2) + self.frame(0x12))
        folder = self.block(self.insert(2, ["BL_NR"]))
        own_blocks = range(self.sheets)
        if self.options.shared_block:
            own_blocks = [0] * (self.options.sheets > 0) + list(self.faults)
        for index in own_blocks:
            fault = self.faults.get(index)
            values = self.insert_values(index)
            values[b"name"] = values[b"block"]
            for i, (x, y) in enumerate(self.corners(index)):
                values[b"x%d" % i] = self.coding.number(x)
                values[b"y%d" % i] = self.coding.number(y)
            yield (doubled if fault == "doubled-frame" else plain) % values
            if fault == "nested":
                values[b"name"] = self.coding.text(f"Mappe_{index + 1}")
                values[b"h"] = self.handle(self.sheets + index)
                yield folder % values

    def entities(self):
        tags = ["BL_NR", "MASSSTAB", "TITEL"][:self.options.attributes]
        insert = self.coding.template(self.insert(0x22, tags))
        unnumbered = self.coding.template(self.insert(0x22, tags[1:]))
        noise = self.noise()
        order = list(range(self.sheets))
        random.Random(self.options.seed).shuffle(order)  # as sheets come and go over the years
        for index in order:
            fault = self.faults.get(index)
            values = self.insert_values(index)
            if fault == "nested":
                values[b"block"] = self.coding.text(f"Mappe_{index + 1}")
            yield (unnumbered if fault in ("no-number", "nested") else insert) % values
            yield noise[index % len(noise)] % values
        if self.options.backdrop:
            for index in range(self.sheets):
                yield self.coding.template(self.village(index)) % {
                    b"h": self.handle(2 * self.sheets + index)}

    # What a village looks like on a sheet: a street from west to east, houses at both sides

    def village(self, index):
        dice = random.Random(self.options.seed * 1000 + index)
        x, y, turn = self.centre(index)
        cosine, sine = math.cos(turn), math.sin(turn)
        number = iter(range(2, 0xFFF, 8))  # handles; a frame takes six

        def place(along, across):
            return x + cosine * along - sine * across, y + sine * along + cosine * across

        def rectangle(along, across, width, depth):
            return self.polyline(next(number), "GEBÄUDE" if self.options.umlauts else "WEGE",
                                 [place(along + a * width, across + b * depth)
                                  for a, b in ((0, 0), (1, 0), (1, 1), (0, 1))])

        def stroke(begin, end):
            pairs = self.head("LINE", next(number), "WEGE", "AcDbLine")
            return pairs + point(*place(*begin)) + point(*place(*end), 11)

        def words(along, across, height, value):
            pairs = self.head("TEXT", next(number), "0", "AcDbText") + point(*place(along, across))
            return pairs + [(40, height), (1, value), (50, math.degrees(turn))]

        half = WIDTH / 2
        pairs = stroke((-half, -6), (half, -6)) + stroke((-half, 6), (half, 6))
        pairs += words(-60, -3, 7, self.streets[index // self.columns % 4])
        for side in (1, -1):
            pairs += stroke((-half, side * 105), (half, side * 105))  # the ends of the gardens
            along = -half + dice.uniform(5, 20)
            while along < half - 60:
                width, depth = dice.uniform(14, 26), dice.uniform(11, 17)
                across = side * dice.uniform(16, 30) - (depth if side < 0 else 0)
                pairs += rectangle(along, across, width, depth)
                pairs += words(along + 3, across + 3, 4, str(dice.randrange(1, 90)))
                if dice.random() < 0.4:
                    pairs += rectangle(along + width + 3, side * 60, 9, 7)
                for _ in range(dice.randrange(3)):
                    tree = place(along + dice.uniform(0, 35), side * dice.uniform(50, 100))
                    pairs += self.head("CIRCLE", next(number), "0", "AcDbCircle")
                    pairs += point(*tree) + [(40, dice.uniform(2, 4.5))]
                along += width + dice.uniform(18, 32)
                pairs += stroke((along - 8, side * 6), (along - 8, side * 105))
            if index % 3 == 1:  # a way to the fields, with a place to turn
                pairs += stroke((-4, side * 105), (-4, side * 170))
                pairs += stroke((4, side * 105), (4, side * 170))
                pairs += self.head("ARC", next(number), "WEGE", "AcDbCircle")
                start = math.degrees(turn) + (-60 if side > 0 else 120)
                pairs += point(*place(0, side * 177)) + [(40, 8.0), (50, start),
                                                         (51, start + 300)]
        return pairs

    # What else is drawn

    def noise(self):
        """Templates of what stands between the sheets: lines above all, now and then a hatch."""
        kinds = (self.line, self.line, self.line, self.circle, self.text, self.path, self.line,
                 self.line, self.path, self.hatch, self.text, self.line, self.circle, self.mtext)
        dice = random.Random(self.options.seed)
        variants = []
        for variant in range(16 if self.options.noise else 1):
            pairs = []
            for number in range(self.options.noise):
                x, y = WEST + dice.uniform(0, 9000), SOUTH + dice.uniform(0, 9000)
                kind = kinds[(variant + number) % len(kinds)]
                pairs += kind(0x40 + number * 16, x, y, dice)
            variants.append(self.coding.template(pairs))
        return variants

    def line(self, end, x, y, dice):
        to_x, to_y = x + dice.uniform(-50, 50), y + dice.uniform(-50, 50)
        return self.head("LINE", end, "WEGE", "AcDbLine") + point(x, y) + point(to_x, to_y, 11)

    def circle(self, end, x, y, dice):
        pairs = self.head("CIRCLE", end, "0", "AcDbCircle") + point(x, y)
        return pairs + [(40, dice.uniform(0.5, 5))]

    def text(self, end, x, y, dice):
        words = dice.choice(self.streets)
        return self.head("TEXT", end, "0", "AcDbText") + point(x, y) + [(40, 1.8), (1, words)]

    def path(self, end, x, y, dice):
        points = [(x + dice.uniform(0, 80), y + dice.uniform(0, 80)) for _ in range(5)]
        return self.polyline(end, "WEGE", points, is_closed=False)

    def hatch(self, end, x, y, dice):
        width, height = dice.uniform(5, 20), dice.uniform(5, 20)
        corners = [(x, y), (x + width, y), (x + width, y + height), (x, y + height)]
        if self.coding.is_old:
            pairs = self.head("SOLID", end, "0")
            for number, (corner_x, corner_y) in enumerate(corners):
                pairs += point(corner_x, corner_y, 10 + number)
            return pairs
        pairs = self.head("HATCH", end, "0", "AcDbHatch") + point(0.0, 0.0)
        pairs += [(210, 0.0), (220, 0.0), (230, 1.0), (2, "SOLID"), (70, 1), (71, 0), (91, 1),
                  (92, 2), (72, 0), (73, 1), (93, 4)]
        for corner_x, corner_y in corners:
            pairs += [(10, corner_x), (20, corner_y)]
        return pairs + [(97, 0), (75, 0), (76, 1), (98, 0)]

    def mtext(self, end, x, y, dice):
        if self.coding.is_old:
            return self.text(end, x, y, dice)
        words = "\\P".join(dice.sample(self.streets, 2))
        pairs = self.head("MTEXT", end, "0", "AcDbMText") + point(x, y)
        return pairs + [(40, 2.5), (41, 60.0), (71, 1), (1, words)]


def arguments():
    parser = argparse.ArgumentParser(description="Makes a DXF plan of map sheets.")
    add = parser.add_argument
    add("output", help='the DXF file to write; "-" is standard output')
    add("--sheets", type=int, default=20, help="sheets without fault (20)")
    add("--version", choices=VERSIONS, default="R2000", help="age of the format (R2000)")
    add("--binary", action="store_true", help="binary DXF")
    add("--crlf", action="store_true", help="lines end in CR LF")
    add("--tight", action="store_true", help="no blanks before group codes and counts")
    add("--entities-first", action="store_true", help="ENTITIES before BLOCKS")
    add("--frame", choices=("POLYLINE", "LWPOLYLINE"), help="how frames are drawn (by version)")
    add("--shared-block", action="store_true", help="one block for all sheets, not one for each")
    add("--attributes", type=int, choices=(1, 2, 3), default=1,
        help="attributes of an insert: BL_NR, MASSSTAB, TITEL (1)")
    add("--noise", type=int, default=0, help="other entities for each sheet (0)")
    add("--backdrop", action="store_true", help="streets, houses and trees on the sheets")
    add("--rotated", action="store_true", help="sheets follow winding roads")
    add("--umlauts", action="store_true", help="umlauts in names and titles")
    add("--fault", choices=FAULTS, action="append", default=[],
        help="one more sheet, with this fault; may be repeated")
    add("--seed", type=int, default=1, help="another seed, another plan (1)")
    options = parser.parse_args()
    if options.version == "R12" and options.frame == "LWPOLYLINE":
        parser.error("R12 has no LWPOLYLINE")
    options.frame = options.frame or ("POLYLINE" if options.version == "R12" else "LWPOLYLINE")
    return options


def main():
    options = arguments()
    if options.output == "-":
        Plan(options).write(sys.stdout.buffer)
        return
    with open(options.output, "wb", buffering=1 << 20) as out:
        Plan(options).write(out)


if __name__ == "__main__":
    main()
