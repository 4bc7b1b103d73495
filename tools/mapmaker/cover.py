"""What stands on the land: towns, woods, broken ground, mines, and which cells are high ground."""

from .noise import Lcg, add, smooth_noise
from .relief import slope, standing_out
from .sources import BadData

# values of a cell
OPEN, RESTRICTED, SEVERE, URBAN, RIVER, IMPASSABLE, BRIDGE = 0, 1, 2, 4, 5, 6, 7

TERRAIN_NAMES = {OPEN: "", RESTRICTED: "Restricted", SEVERE: "Severely Restricted", URBAN: "Urban", RIVER: "River",
                 IMPASSABLE: "Impassable", BRIDGE: "Bridge"}


class Grid:
    """The cells, [row][column]: value, trees, high ground."""

    def __init__(self, frame):
        self.value = [[OPEN] * frame.columns for _ in range(frame.rows)]
        self.trees = [[False] * frame.columns for _ in range(frame.rows)]
        self.high = [[False] * frame.columns for _ in range(frame.rows)]


def lay_water(grid, water):
    for column, row in water:
        grid.value[row][column] = RIVER


def build_towns(grid, frame, towns):
    """A town takes the free cells nearest to its centre; chance makes its edge uneven. Its centre must be dry."""
    random = Lcg(frame.seed + 3)
    uneven = smooth_noise(random, frame.columns, frame.rows, 2, 400)
    owner = {}
    for town in towns:
        town.cell = frame.cell_of(town.place)
        if not frame.on_sheet(town.cell):
            raise BadData(f"{town.name} lies outside the sheet")
        column, row = town.cell
        if grid.value[row][column] == RIVER:
            raise BadData(f"{town.name} lies in the water, at column {column + 1}, row {row + 1}")
        if town.cell in owner:
            raise BadData(f"{town.name} lies in {owner[town.cell]}")
        near = []
        for r in range(max(row - 7, 0), min(row + 8, frame.rows)):
            for c in range(max(column - 7, 0), min(column + 8, frame.columns)):
                if grid.value[r][c] == OPEN:
                    d2 = (c - column) ** 2 + (r - row) ** 2
                    near.append((d2 * (1000 + uneven[r][c] * 2), c, r))
        near.sort()
        town.cells = [(c, r) for _, c, r in near[:town.size]]
        for c, r in town.cells:
            grid.value[r][c] = URBAN
            owner[c, r] = town.name


def inside(corners, x, y):
    """Whether a place lies in a polygon."""
    within = False
    for (x1, y1), (x2, y2) in zip(corners, corners[1:] + corners[:1]):
        if (y1 > y) != (y2 > y):
            # the side crosses the row to the right of the place
            left = (x - x1) * (y2 - y1) < (x2 - x1) * (y - y1)
            if left == (y2 > y1):
                within = not within
    return within


def grow_areas(grid, frame, level, areas):
    """Woods, broken ground and mines: of each area the part that its density says, in patches of chance."""
    random = Lcg(frame.seed + 4)
    patches = add(smooth_noise(random, frame.columns, frame.rows, 5, 1000),
                  smooth_noise(random, frame.columns, frame.rows, 2, 600))
    for area in areas:
        xs, ys = [x for x, _ in area.corners], [y for _, y in area.corners]
        (c1, r1), (c2, r2) = frame.cell_of((min(xs), min(ys))), frame.cell_of((max(xs), max(ys)))
        cells = []
        for r in range(max(r1, 0), min(r2 + 1, frame.rows)):
            for c in range(max(c1, 0), min(c2 + 1, frame.columns)):
                if grid.value[r][c] not in (URBAN, RIVER) and inside(area.corners, *frame.centre_of((c, r))):
                    # fields lie on the flat, trees on the slopes
                    cells.append((patches[r][c] - slope(level, c, r) * 2, c, r))
        cells.sort()
        for _, c, r in cells[:len(cells) * area.density // 100]:
            if area.kind == "mine":
                grid.value[r][c] = IMPASSABLE
                grid.trees[r][c] = False
            elif grid.value[r][c] in (OPEN, RESTRICTED):
                grid.value[r][c] = RESTRICTED
                if area.kind == "wood":
                    grid.trees[r][c] = True
                    if area.steep and slope(level, c, r) >= 330:
                        grid.value[r][c] = SEVERE


def scatter_copses(grid, frame, level):
    """Small woods everywhere on rising ground, and steep open slopes that slow a vehicle down."""
    random = Lcg(frame.seed + 5)
    patches = add(smooth_noise(random, frame.columns, frame.rows, 3, 1000),
                  smooth_noise(random, frame.columns, frame.rows, 2, 900))
    for r in range(frame.rows):
        for c in range(frame.columns):
            if grid.value[r][c] != OPEN:
                continue
            fall = slope(level, c, r)
            if patches[r][c] > 900 - min(fall, 400):
                grid.value[r][c] = RESTRICTED
                grid.trees[r][c] = True
            elif fall > 560:
                grid.value[r][c] = RESTRICTED


def mark_high_ground(grid, frame, level, over):
    """High ground: what stands at least `over` decimetres above the mean of the country seven kilometres around."""
    stand = standing_out(frame, level, 7)
    for r in range(frame.rows):
        for c in range(frame.columns):
            grid.high[r][c] = stand[r][c] >= over and grid.value[r][c] != RIVER
    # a single cell is no hill
    for r in range(frame.rows):
        for c in range(frame.columns):
            if grid.high[r][c] and not any(
                    0 <= r + dr < frame.rows and 0 <= c + dc < frame.columns and grid.high[r + dr][c + dc]
                    for dr, dc in ((1, 0), (-1, 0), (0, 1), (0, -1))):
                grid.high[r][c] = False


def write_terrain(path, grid, frame):
    """The terrain file: one record of 21 bytes a cell, down the first column, then down the second."""
    data = bytearray()
    for c in range(frame.columns):
        for r in range(frame.rows):
            value = grid.value[r][c]
            data += value.to_bytes(2, "little")
            data += TERRAIN_NAMES[value][:15].ljust(15).encode("ascii")
            data += int(grid.high[r][c]).to_bytes(2, "little")
            data += bytes(2)
    with open(path, "wb") as out:
        out.write(data)
