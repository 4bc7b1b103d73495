"""Readers of the data files: plain lines, '#' opens a comment, names with blanks stand in double quotes."""

import shlex

SUB = 16            # units per picture pixel
NANO = 10 ** 9      # degrees are held in whole billionths


class BadData(Exception):
    """A data file that cannot be meant as it stands; the text names the file and the line."""


def lines_of(path):
    """Yields (line number, words) for every line that says something."""
    with open(path, encoding="utf-8") as source:
        for number, line in enumerate(source, 1):
            words = shlex.split(line, comments=True)
            if words:
                yield number, words


def nano(text):
    """Decimal degrees as whole billionths, without passing through a float."""
    sign = -1 if text.startswith("-") else 1
    whole, _, part = text.lstrip("-").partition(".")
    return sign * (int(whole) * NANO + int((part + "0" * 9)[:9]))


def divide(a, b):
    """Nearest whole quotient."""
    return (2 * a + b) // (2 * b) if b > 0 else divide(-a, -b)


class Frame:
    """The sheet: its grid of cells and where it lies on the earth."""

    def __init__(self, path):
        value = {}
        self.squares = []               # (x1, x2, y1, y2, east, north)
        for number, words in lines_of(path):
            if words[0] == "grid-square" and len(words) == 7:
                self.squares.append(tuple(int(w) for w in words[1:]))
            elif len(words) == 2:
                value[words[0]] = words[1]
            else:
                raise BadData(f"{path}:{number}: one key and one value expected")
        self.rows = int(value["rows"])
        self.columns = int(value["columns"])
        self.cell = int(value["cell"])
        self.width = self.columns * self.cell
        self.height = self.rows * self.cell
        self.seed = int(value["seed"])
        self.zone_border = int(value["zone-border"])
        self.ullat, self.ullong = nano(value["ullat"]), nano(value["ullong"])
        self.dlaty, self.dlongx = nano(value["dlaty"]), nano(value["dlongx"])

    def place(self, lat, lon):
        """Picture place (x, y) in units of a latitude and longitude told in decimal degrees."""
        return (divide((nano(lon) - self.ullong) * SUB, self.dlongx),
                divide((nano(lat) - self.ullat) * SUB, self.dlaty))

    def cell_of(self, place):
        """(column, row) from 0 of a picture place; may lie outside the sheet."""
        return place[0] // (self.cell * SUB), place[1] // (self.cell * SUB)

    def centre_of(self, cell):
        """Picture place of a cell's centre."""
        return (cell[0] * self.cell * SUB + self.cell * SUB // 2,
                cell[1] * self.cell * SUB + self.cell * SUB // 2)

    def on_sheet(self, cell):
        return 0 <= cell[0] < self.columns and 0 <= cell[1] < self.rows


class River:
    def __init__(self, name, into, width, label):
        self.name, self.into, self.width, self.label = name, into, width, label
        self.points = []        # (place, height in decimetres or None)
        self.chain = []         # cells from the source down, each a neighbour by an edge of the one before
        self.course = []        # the line drawn, in units
        self.levels = []        # height of the water in decimetres, cell by cell of the chain


class Town:
    def __init__(self, place, size, name, side):
        self.place, self.size, self.name, self.side = place, size, name, side
        self.cell = None        # its centre
        self.cells = []         # all that is built over


class Spot:
    def __init__(self, kind, place, height, name):
        self.kind, self.place, self.height, self.name = kind, place, height, name


class Area:
    def __init__(self, kind, name, density, steep):
        self.kind, self.name, self.density, self.steep = kind, name, density, steep
        self.corners = []


class Road:
    def __init__(self, kind, name):
        self.kind, self.name = kind, name
        self.stops = []         # cells to go through
        self.path = []          # cells, neighbours by edge or corner
        self.course = []        # the line drawn, in units


def read_rivers(path, frame):
    rivers = []
    for number, words in lines_of(path):
        if words[0] == "river":
            rest = words[2:]
            into = None
            if rest[:1] == ["into"]:
                into, rest = rest[1], rest[2:]
            if rest[:1] != ["width"]:
                raise BadData(f"{path}:{number}: a width expected")
            rivers.append(River(words[1], into, int(rest[1]), "label" in rest[2:]))
        elif rivers and len(words) in (2, 3):
            height = int(words[2]) * 10 if len(words) == 3 else None
            rivers[-1].points.append((frame.place(words[0], words[1]), height))
        else:
            raise BadData(f"{path}:{number}: neither a river nor a place")
    names = {river.name for river in rivers}
    for river in rivers:
        if river.into is not None and river.into not in names:
            raise BadData(f"{path}: {river.name} flows into {river.into}, which is not there")
        if river.points[0][1] is None or (river.points[-1][1] is None and river.into is None):
            raise BadData(f"{path}: {river.name} needs a height at both ends")
    return rivers


def read_towns(path, frame):
    towns = []
    for number, words in lines_of(path):
        side = "e"
        if "|" in words:
            bar = words.index("|")
            side, words = words[bar + 1], words[:bar]
        if len(words) < 4:
            raise BadData(f"{path}:{number}: latitude, longitude, cells and name expected")
        towns.append(Town(frame.place(words[0], words[1]), int(words[2]), " ".join(words[3:]), side))
    return towns


def read_heights(path, frame):
    spots = []
    for number, words in lines_of(path):
        if words[0] not in ("land", "peak") or len(words) < 4:
            raise BadData(f"{path}:{number}: land or peak, latitude, longitude, metres expected")
        spots.append(Spot(words[0], frame.place(words[1], words[2]), int(words[3]) * 10, " ".join(words[4:])))
    return spots


def read_areas(path, frame):
    """The areas of the file and the names to be printed wide: (areas, [(text, place)])."""
    areas, labels = [], []
    for number, words in lines_of(path):
        if words[0] in ("wood", "broken", "mine"):
            if len(words) < 4 or words[2] != "density":
                raise BadData(f"{path}:{number}: a density expected")
            areas.append(Area(words[0], words[1], int(words[3]), "steep" in words[4:]))
        elif words[0] == "label":
            labels.append((words[1], frame.place(words[2], words[3])))
        elif areas and len(words) == 2:
            areas[-1].corners.append(frame.place(words[0], words[1]))
        else:
            raise BadData(f"{path}:{number}: neither an area nor a corner of one")
    return areas, labels


def read_roads(path, frame, towns):
    by_name = {town.name: town for town in towns}
    roads = []
    for number, words in lines_of(path):
        if words[0] in ("autobahn", "main") and len(words) == 2:
            roads.append(Road(words[0], words[1]))
        elif roads and len(words) == 1 and words[0] in by_name:
            roads[-1].stops.append(by_name[words[0]].cell)
        elif roads and len(words) == 1 and " " in words[0]:
            column, row = frame.cell_of(frame.place(*words[0].split()))
            # a place beyond the sheet means the cell at its edge
            roads[-1].stops.append((min(max(column, 0), frame.columns - 1), min(max(row, 0), frame.rows - 1)))
        else:
            raise BadData(f"{path}:{number}: no town or place {words}")
    return roads
