"""The picture of a sheet: pale paper tints by height, shaded relief, contours, woods, towns, waters and roads.

Pillow draws lines, surfaces and letters; whatever decides a byte is a whole number. Surfaces and lines are drawn
four times as large and averaged, which makes their edges soft.
"""

from PIL import Image, ImageChops, ImageDraw, ImageFilter

from . import labels
from .cover import BRIDGE, IMPASSABLE, RESTRICTED, SEVERE, URBAN
from .noise import Lcg, smooth_noise
from .relief import pixel_heights
from .sources import SUB

FINE = 4                    # how much larger masks are drawn

PAPER = (                   # height in metres, colour of the open land
    (30, (223, 232, 205)),
    (75, (233, 236, 208)),
    (120, (243, 239, 213)),
    (180, (245, 234, 203)),
    (260, (239, 223, 186)),
    (360, (229, 206, 166)),
    (480, (214, 186, 147)),
    (620, (198, 168, 134)),
    (800, (186, 156, 126)),
)
WOOD, WOOD_STEEP, WOOD_EDGE = (176, 205, 150), (148, 186, 128), (118, 154, 98)
BROKEN = (196, 172, 112)
TOWN, TOWN_EDGE = (221, 168, 150), (134, 78, 70)
MINE, MINE_EDGE = (176, 164, 150), (104, 92, 82)
CONTOUR = (150, 104, 66)
WATER, WATER_EDGE, BROOK = (128, 182, 222), (48, 106, 164), (74, 138, 194)
MAIN, MAIN_EDGE = (255, 232, 132), (128, 84, 42)
AUTOBAHN, AUTOBAHN_EDGE, AUTOBAHN_MIDDLE = (236, 128, 62), (132, 44, 26), (255, 236, 206)
BRIDGE_INK = (46, 38, 36)
GRID_INK = (70, 92, 120)


class Sheet:
    """All that a picture shows."""

    def __init__(self, frame, grid, level, rivers, towns, spots, names, roads):
        self.frame, self.grid, self.level, self.rivers = frame, grid, level, rivers
        self.towns, self.spots, self.names, self.roads = towns, spots, names, roads
        self.heights = pixel_heights(frame, level)


def grey(rows):
    """A grey picture of rows of values 0..255."""
    image = Image.new("L", (len(rows[0]), len(rows)))
    image.putdata([value for row in rows for value in row])
    return image


def paint(image, mask, colour, share=256):
    """Lays a colour over the picture where the mask says so."""
    image.paste(colour, (0, 0), mask if share == 256 else mask.point([v * share // 256 for v in range(256)]))


def tint(sheet):
    """The paper, its colour by height."""
    rows = grey([[min(max((h - 300) // 28, 0), 255) for h in row] for row in sheet.heights])
    bands = []
    for channel in range(3):
        table = []
        for v in range(256):
            metres = 30 + v * 28 // 10
            (h1, c1), (h2, c2) = next(((a, b) for a, b in zip(PAPER, PAPER[1:]) if metres <= b[0]), PAPER[-2:])
            metres = min(metres, h2)
            table.append(c1[channel] + (c2[channel] - c1[channel]) * (metres - h1) // (h2 - h1))
        bands.append(rows.point(table))
    return Image.merge("RGB", bands)


def shade(sheet):
    """Light from the north-west: (darkening, lightening) masks."""
    heights = sheet.heights
    dark, light = [], []
    last = len(heights) - 1
    for y, row in enumerate(heights):
        up, down = heights[max(y - 1, 0)], heights[min(y + 1, last)]
        left, right = [row[0]] + row[:-1], row[1:] + [row[-1]]
        # positive where the land falls away from the light
        fall = [(a - b) + (c - d) for a, b, c, d in zip(left, right, up, down)]
        dark.append([min(f, 128) if f > 0 else 0 for f in fall])
        light.append([min(-f, 120) if f < 0 else 0 for f in fall])
    return grey(dark), grey(light)


def contours(sheet):
    """Masks of the contours of every 50 metres and of those of every 100."""
    heights = sheet.heights
    thin, thick = [], []
    last = len(heights) - 1
    for y, row in enumerate(heights):
        down = heights[min(y + 1, last)]
        right = row[1:] + [row[-1]]
        thin_row, thick_row = [], []
        for h, r, d in zip(row, right, down):
            steep = max(abs(r - h), abs(d - h)) + 1
            off = h % 1000
            off = min(off, 1000 - off)
            thick_row.append(max(0, 255 - off * 200 // steep))
            off = h % 500
            off = min(off, 500 - off)
            thin_row.append(max(0, 255 - off * 255 // steep))
        thin.append(thin_row)
        thick.append(thick_row)
    return grey(thin), grey(thick)


def surface(sheet, cells, unevenness, from_value=128):
    """A soft mask of a set of cells. Its edge is rounded and made uneven, yet the middle of each cell keeps its
    side: the unevenness stays below half of the way between two cells."""
    frame = sheet.frame
    mask = grey([[255 if (c, r) in cells else 0 for c in range(frame.columns)] for r in range(frame.rows)])
    size = (frame.width * FINE, frame.height * FINE)
    large = mask.resize(size, Image.BILINEAR)
    if unevenness:
        large = ImageChops.add(large, unevenness, 1, -128)
    return large.point([255 if v >= from_value else 0 for v in range(256)])


def reduced(mask):
    return mask.reduce(FINE)


def edge_of(mask, width):
    """The inner rim of a fine mask; `width` is odd."""
    return ImageChops.subtract(mask, mask.filter(ImageFilter.MinFilter(width)))


def stroke(draw, course, width):
    """A line of `width` fine pixels with round joints, on a fine mask."""
    points = [(x * FINE // SUB, y * FINE // SUB) for x, y in course]
    draw.line(points, fill=255, width=width)
    r = width // 2
    if r > 1:
        for x, y in points:
            draw.ellipse((x - r, y - r, x + r - (1 - width % 2), y + r - (1 - width % 2)), fill=255)


def line_mask(sheet, lines):
    """A soft mask of lines: [(course, width in fine pixels)]."""
    mask = Image.new("L", (sheet.frame.width * FINE, sheet.frame.height * FINE))
    draw = ImageDraw.Draw(mask)
    for course, width in lines:
        stroke(draw, course, width)
    return reduced(mask)


def cells_where(sheet, test):
    frame = sheet.frame
    return {(c, r) for r in range(frame.rows) for c in range(frame.columns) if test(c, r)}


def lay_land(sheet, image):
    """Woods, broken ground and mines."""
    frame, grid = sheet.frame, sheet.grid
    random = Lcg(frame.seed + 6)
    rough = grey([[min(max(128 + v, 48), 208) for v in row]
                  for row in smooth_noise(random, frame.width // 2, frame.height // 2, 3, 150)])
    rough = rough.resize((frame.width * FINE, frame.height * FINE), Image.BILINEAR)

    broken = surface(sheet, cells_where(sheet, lambda c, r: grid.value[r][c] == RESTRICTED and not grid.trees[r][c]),
                     rough)
    hatch = Image.new("L", broken.size)
    draw = ImageDraw.Draw(hatch)
    for k in range(-broken.size[1], broken.size[0], 14):
        draw.line((k, 0, k + broken.size[1], broken.size[1]), fill=255, width=3)
    paint(image, reduced(broken), BROKEN, 70)
    paint(image, reduced(ImageChops.multiply(broken, hatch)), (150, 118, 62), 96)

    trees = surface(sheet, cells_where(sheet, lambda c, r: grid.trees[r][c]), rough)
    paint(image, reduced(trees), WOOD, 216)
    steep = surface(sheet, cells_where(sheet, lambda c, r: grid.trees[r][c] and grid.value[r][c] == SEVERE), rough)
    paint(image, reduced(ImageChops.multiply(steep, trees)), WOOD_STEEP, 216)
    paint(image, reduced(edge_of(trees, 5)), WOOD_EDGE, 150)

    pits = surface(sheet, cells_where(sheet, lambda c, r: grid.value[r][c] == IMPASSABLE), rough)
    paint(image, reduced(pits), MINE, 235)
    teeth = Image.new("L", pits.size)
    draw = ImageDraw.Draw(teeth)
    for k in range(0, pits.size[0], 10):
        draw.line((k, 0, k, pits.size[1]), fill=255, width=3)
    paint(image, reduced(ImageChops.multiply(edge_of(pits, 17), teeth)), MINE_EDGE, 170)
    paint(image, reduced(edge_of(pits, 5)), MINE_EDGE, 235)


def lay_towns(sheet, image):
    """Built-up ground with an outline, its blocks as a faint pattern."""
    grid = sheet.grid
    built = surface(sheet, cells_where(sheet, lambda c, r: grid.value[r][c] == URBAN), None, 88)
    paint(image, reduced(built), TOWN, 236)
    blocks = Image.new("L", built.size)
    draw = ImageDraw.Draw(blocks)
    for k in range(0, built.size[0], 12):
        draw.line((k, 0, k, built.size[1]), fill=255, width=2)
        draw.line((0, k, built.size[0], k), fill=255, width=2)
    paint(image, reduced(ImageChops.multiply(built, blocks)), (192, 122, 108), 120)
    paint(image, reduced(edge_of(built, 5)), TOWN_EDGE, 230)


def lay_waters(sheet, image):
    lines = [(river.course, river.width) for river in sheet.rivers]
    paint(image, line_mask(sheet, [(course, 7) for course, width in lines if width < 6]), BROOK, 245)
    paint(image, line_mask(sheet, [(course, width + 4) for course, width in lines if width >= 6]), WATER_EDGE, 236)
    paint(image, line_mask(sheet, [(course, width - 1) for course, width in lines if width >= 6]), WATER)


def lay_roads(sheet, image):
    main = [road.course for road in sheet.roads if road.kind == "main"]
    autobahn = [road.course for road in sheet.roads if road.kind == "autobahn"]
    paint(image, line_mask(sheet, [(course, 9) for course in main]), MAIN_EDGE, 225)
    paint(image, line_mask(sheet, [(course, 5) for course in main]), MAIN)
    paint(image, line_mask(sheet, [(course, 12) for course in autobahn]), AUTOBAHN_EDGE, 240)
    paint(image, line_mask(sheet, [(course, 7) for course in autobahn]), AUTOBAHN)
    paint(image, line_mask(sheet, [(course, 2) for course in autobahn]), AUTOBAHN_MIDDLE)


def lay_bridges(sheet, image):
    """Two small wings beside the road over the water."""
    frame, grid = sheet.frame, sheet.grid
    wings = []
    seen = set()
    for road in sheet.roads:
        for before, cell, after in zip(road.path, road.path[1:], road.path[2:]):
            if grid.value[cell[1]][cell[0]] == BRIDGE and cell not in seen:
                seen.add(cell)
                x, y = frame.centre_of(cell)
                along = (after[0] - before[0]) // 2, (after[1] - before[1]) // 2
                for side in (1, -1):
                    sx, sy = -along[1] * side * 34, along[0] * side * 34
                    ends = []
                    for t, flare in ((-46, 14), (-28, 0), (28, 0), (46, 14)):
                        ends.append((x + along[0] * t + sx + (-along[1] * side * flare),
                                     y + along[1] * t + sy + along[0] * side * flare))
                    wings.append((ends, 4))
    paint(image, line_mask(sheet, wings), BRIDGE_INK, 235)


def lay_grid(sheet, image):
    """The lines of ten kilometres in each square of the grid and the border of the zones, discreet."""
    frame = sheet.frame
    px = frame.cell
    mask = Image.new("L", image.size)
    pen = ImageDraw.Draw(mask)
    for x1, x2, y1, y2, east, north in frame.squares:
        for x in range(x1, x2, px):
            if ((x - x1) // px + east) % 10 == 0:
                pen.line((x, y1, x, y2 - 1), fill=64)
        for y in range(y1 // px * px, y2, px):
            if y >= y1 and (north - y // px) % 10 == 0:
                pen.line((x1, y, x2 - 1, y), fill=64)
    for y in range(0, frame.height, 12):
        pen.line((frame.zone_border, y, frame.zone_border, y + 6), fill=110)
    pen.rectangle((0, 0, frame.width - 1, frame.height - 1), outline=200)
    paint(image, mask, GRID_INK)


def draw(path, sheet):
    image = tint(sheet)
    lay_land(sheet, image)
    dark, light = shade(sheet)
    paint(image, dark, (62, 62, 72), 180)
    paint(image, light, (255, 253, 240), 190)
    thin, thick = contours(sheet)
    paint(image, thin, CONTOUR, 72)
    paint(image, thick, CONTOUR, 60)
    lay_towns(sheet, image)
    lay_waters(sheet, image)
    lay_roads(sheet, image)
    lay_bridges(sheet, image)
    lay_grid(sheet, image)
    labels.print_names(sheet, image)
    image.save(path, "BMP")
