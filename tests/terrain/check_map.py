#!/usr/bin/python3
"""Holds a built map sheet against its sources: check_map.py SOURCE_DIR HOME_DIR, run by ctest."""

import os
import struct
import subprocess
import sys
import tempfile
import unittest

SOURCE, HOME = sys.argv[1:3]
DATA = os.path.join(SOURCE, "data", "maps", "Germany1")
PICTURE = os.path.join(HOME, "Maps", "Germany1.bmp")
TERRAIN = os.path.join(HOME, "Terrain", "Germany1.ter")
ROWS = COLUMNS = 168
CELL = 6
NAMES = {0: "", 1: "Restricted", 2: "Severely Restricted", 4: "Urban", 5: "River", 6: "Impassable", 7: "Bridge"}
RIVER, BRIDGE = 5, 7

# The frame of the sheet, as the table of the standard maps has it.
ULLAT, ULLONG, DLATY, DLONGX = 52.1497, 10.98058, -0.001497006, 0.002427184


def read(path):
    with open(path, "rb") as source:
        return source.read()


def cell_at(lat, lon):
    # places are kept to a sixteenth of a pixel
    return (round((lon - ULLONG) / DLONGX * 16) // 96, round((lat - ULLAT) / DLATY * 16) // 96)


class Board:
    """The cells of the terrain file, by (column, row) from 0; numbers run down the first column first."""

    def __init__(self):
        self.record = {}
        data = read(TERRAIN)
        for number in range(len(data) // 21):
            value, name, high, contaminated = struct.unpack_from("<h15shh", data, number * 21)
            self.record[number // ROWS, number % ROWS] = (value, name, high, contaminated)

    def value(self, cell):
        return self.record[cell][0] if cell in self.record else None

    def wet(self, cell):
        return self.value(cell) in (RIVER, BRIDGE)


class Picture:
    """A bitmap of 24 bits, bottom row first."""

    def __init__(self):
        self.data = read(PICTURE)
        self.start, = struct.unpack_from("<I", self.data, 10)
        self.width, self.height, _, self.bits = struct.unpack_from("<iihh", self.data, 18)
        self.stride = (self.width * 3 + 3) // 4 * 4

    def rgb(self, x, y):
        at = self.start + (self.height - 1 - y) * self.stride + 3 * x
        return self.data[at + 2], self.data[at + 1], self.data[at]


BOARD, SHEET = Board(), Picture()


def towns():
    with open(os.path.join(DATA, "towns.txt"), encoding="utf-8") as source:
        for line in source:
            if line[:1].isdigit():
                words = line.split("|")[0].split(None, 3)
                yield words[3].strip(), cell_at(float(words[0]), float(words[1]))


def reach(start, passes):
    """All cells that a unit can come to by steps over edges and corners."""
    seen, edge = {start}, [start]
    while edge:
        column, row = edge.pop()
        for step in ((c, r) for c in (-1, 0, 1) for r in (-1, 0, 1) if c or r):
            cell = (column + step[0], row + step[1])
            if cell not in seen and cell in BOARD.record and passes(cell):
                seen.add(cell)
                edge.append(cell)
    return seen


class Terrain(unittest.TestCase):
    def test_there_is_one_record_of_21_bytes_for_each_cell(self):
        self.assertEqual(os.path.getsize(TERRAIN), 592704)              # 168 x 168 x 21

    def test_every_cell_is_a_known_base_value_with_its_name_and_clean(self):
        for cell, (value, name, high, contaminated) in BOARD.record.items():
            self.assertIn(value, NAMES, cell)
            self.assertEqual(name, NAMES[value].encode()[:15].ljust(15), cell)
            self.assertIn(high, (0, 1), cell)
            self.assertEqual(contaminated, 0, cell)

    def test_a_fifth_of_the_country_at_most_is_high_and_no_water_is(self):
        high = [cell for cell, record in BOARD.record.items() if record[2]]
        self.assertGreater(len(high), 168 * 168 // 20)
        self.assertLess(len(high), 168 * 168 // 5)
        self.assertFalse([cell for cell in high if BOARD.wet(cell)])

    def test_the_centre_of_every_town_is_built_over(self):
        found = list(towns())
        self.assertGreater(len(found), 120)
        for name, cell in found:
            self.assertEqual(BOARD.value(cell), 4, name)

    def test_a_bridge_lies_straight_between_two_dry_banks(self):
        bridges = [cell for cell in BOARD.record if BOARD.value(cell) == BRIDGE]
        self.assertGreater(len(bridges), 60)
        self.assertLess(len(bridges), 250)                               # the table of bridges has 300 rows
        for column, row in bridges:
            beside = [(column, row - 1), (column, row + 1)], [(column - 1, row), (column + 1, row)]
            wet = [all(BOARD.wet(cell) for cell in pair) for pair in beside]
            dry = [all(BOARD.value(cell) not in (RIVER, BRIDGE, 6, None) for cell in pair) for pair in beside]
            self.assertTrue((wet[0] and dry[1]) or (wet[1] and dry[0]), (column + 1, row + 1))

    def test_no_unit_slips_over_the_saale_but_by_a_bridge(self):
        leipzig, weimar = cell_at(51.340, 12.378), cell_at(50.980, 11.324)
        dry = reach(leipzig, lambda cell: not BOARD.wet(cell) and BOARD.value(cell) != 6)
        self.assertNotIn(weimar, dry)
        bridged = reach(leipzig, lambda cell: BOARD.value(cell) not in (RIVER, 6))
        self.assertIn(weimar, bridged)

    def test_every_water_runs_on_to_the_edge_of_the_sheet(self):
        left = {cell for cell in BOARD.record if BOARD.wet(cell)}
        while left:
            start = left.pop()
            edge, out = [start], False
            while edge:
                column, row = edge.pop()
                out = out or column in (0, COLUMNS - 1) or row in (0, ROWS - 1)
                for cell in ((column + 1, row), (column - 1, row), (column, row + 1), (column, row - 1)):
                    if cell in left:
                        left.remove(cell)
                        edge.append(cell)
            self.assertTrue(out, start)


class Drawing(unittest.TestCase):
    def test_the_picture_is_as_large_as_the_grid(self):
        self.assertEqual((SHEET.width, SHEET.height, SHEET.bits), (1008, 1008, 24))

    @staticmethod
    def blue(cell):
        """Whether water shows anywhere in the cell: blue well above red, as no wood, paper or letter has it."""
        pixels = [SHEET.rgb(cell[0] * CELL + x, cell[1] * CELL + y) for x in range(CELL) for y in range(CELL)]
        return any(b > r + 45 and b > g + 15 for r, g, b in pixels)

    def test_water_is_drawn_where_the_cells_are_rivers_and_nowhere_else(self):
        rivers = [cell for cell in BOARD.record if BOARD.value(cell) == RIVER]
        land = [cell for cell in BOARD.record if not BOARD.wet(cell)]
        # names lie over some of the water, and their own blue over some of the land
        self.assertGreater(sum(map(self.blue, rivers)), len(rivers) * 93 // 100)
        self.assertLess(sum(map(self.blue, land)), len(land) * 3 // 100)

    def test_woods_are_green_in_the_middle_of_their_cells_and_open_land_is_not(self):
        woods = [cell for cell in BOARD.record if BOARD.value(cell) == 2]
        open_land = [cell for cell in BOARD.record if BOARD.value(cell) == 0]

        def green(cell):
            pixels = [SHEET.rgb(cell[0] * CELL + x, cell[1] * CELL + y) for x in (1, 2, 3, 4) for y in (1, 2, 3, 4)]
            return sorted(g - r for r, g, _ in pixels)[8] >= 12
        # wide names and their pale halo lie over some of the hills
        self.assertGreater(sum(map(green, woods)), len(woods) * 75 // 100)
        self.assertLess(sum(map(green, open_land)), len(open_land) // 100)


class Making(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.picture = os.path.join(cls.folder.name, "again.bmp")
        cls.terrain = os.path.join(cls.folder.name, "again.ter")
        # another folder, another order of hashing, another language, another time
        surroundings = dict(os.environ, PYTHONHASHSEED="77", LC_ALL="C", TZ="Asia/Tokyo", PYTHONDONTWRITEBYTECODE="1")
        subprocess.run([sys.executable, os.path.join(SOURCE, "tools", "build_map.py"), DATA, cls.picture, cls.terrain],
                       check=True, cwd=cls.folder.name, env=surroundings)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def test_a_second_build_gives_the_same_bytes(self):
        self.assertEqual(read(self.terrain), read(TERRAIN))
        self.assertTrue(read(self.picture) == read(PICTURE))

    def test_no_river_flows_uphill_and_none_from_below_into_another(self):
        sys.dont_write_bytecode = True
        sys.path.insert(0, os.path.join(SOURCE, "tools"))
        from mapmaker import sources, water
        frame = sources.Frame(os.path.join(DATA, "frame.txt"))
        rivers = sources.read_rivers(os.path.join(DATA, "rivers.txt"), frame)
        levels = water.lay_rivers(rivers, frame)
        self.assertEqual(set(levels), {cell for cell in BOARD.record if BOARD.wet(cell)})
        for river in rivers:
            self.assertEqual(river.levels, sorted(river.levels, reverse=True), river.name)
            for one, next_one in zip(river.chain, river.chain[1:]):
                self.assertEqual(abs(one[0] - next_one[0]) + abs(one[1] - next_one[1]), 1, river.name)
            if river.mouth:
                self.assertGreater(river.levels[-1], levels[river.mouth][1], river.name)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
