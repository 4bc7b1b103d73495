"""The lie of the land: heights in decimetres at the cells' centres, and from them at every pixel."""

from math import isqrt

from .noise import Lcg, add, smooth_noise, widen
from .sources import SUB


def general_level(frame, spots):
    """The level of the country by the "land" heights: every spot weighs by the inverse cube of its distance. It is
    reckoned at every second cell and laid smooth between."""
    step = 2
    unit = frame.cell * SUB
    land = [(s.place[0] * 8 // unit, s.place[1] * 8 // unit, s.height) for s in spots if s.kind == "land"]

    def at(column, row):
        x, y = column * 8 + 4, row * 8 + 4                          # eighths of a cell
        sum_w = sum_h = 0
        for sx, sy, height in land:
            d2 = (sx - x) ** 2 + (sy - y) ** 2 + 64
            if d2 < 40000:                                          # 25 cells
                w = (1 << 40) // (d2 * isqrt(d2))
                sum_w += w
                sum_h += w * height
        return sum_h // sum_w

    nodes = [[at(min(max((c - 1) * step, 0), frame.columns - 1), min(max((r - 1) * step, 0), frame.rows - 1))
              for c in range(frame.columns // step + 4)] for r in range(frame.rows // step + 4)]
    return widen(nodes, step, frame.columns, frame.rows)


def raise_peaks(frame, spots, level):
    """Heights that stand out are put on top of the level, falling off over three cells."""
    unit = frame.cell * SUB
    lift = [[0] * frame.columns for _ in range(frame.rows)]
    for spot in spots:
        if spot.kind != "peak":
            continue
        column, row = spot.place[0] // unit, spot.place[1] // unit
        c0, r0 = min(max(column, 0), frame.columns - 1), min(max(row, 0), frame.rows - 1)
        over = spot.height - level[r0][c0]
        reach = 3 * unit
        for r in range(row - 3, row + 4):
            for c in range(column - 3, column + 4):
                if frame.on_sheet((c, r)):
                    x, y = frame.centre_of((c, r))
                    d2 = (x - spot.place[0]) ** 2 + (y - spot.place[1]) ** 2
                    if d2 < reach * reach:
                        share = (reach * reach - d2) * 256 // (reach * reach)
                        lift[r][c] = max(lift[r][c], over * share * share // 65536, key=abs)
    return add(level, lift)


def roughen(frame, level):
    """Ridges and dales of chance: little in the plains, more the higher the country lies."""
    random = Lcg(frame.seed + 1)
    wide = smooth_noise(random, frame.columns, frame.rows, 7, 1000)
    mid = smooth_noise(random, frame.columns, frame.rows, 4, 1000)
    fine = smooth_noise(random, frame.columns, frame.rows, 2, 1000)
    rough = []
    for r in range(frame.rows):
        line = []
        for c in range(frame.columns):
            height = level[r][c]
            # dales are narrow and the heights between them broad
            dale = min(abs(wide[r][c]) * 3, 600) + min(abs(mid[r][c]) * 2, 400) - 560
            amount = min(max((height - 500) // 8, 16), 340)         # decimetres
            line.append(height + (dale * 2 + fine[r][c]) * amount // 1000)
        rough.append(line)
    return rough


def carve(frame, level, water):
    """Lets every river run at its own height, with a valley that is wider in the plains than in the hills."""
    far = 1 << 20
    distance = [[far] * frame.columns for _ in range(frame.rows)]
    nearest = [[0] * frame.columns for _ in range(frame.rows)]
    for (c, r), (_, height) in water.items():
        distance[r][c] = 0
        nearest[r][c] = height

    def relax(c, r, steps):
        for dc, dr, cost in steps:
            if 0 <= c + dc < frame.columns and 0 <= r + dr < frame.rows and \
                    distance[r + dr][c + dc] + cost < distance[r][c]:
                distance[r][c] = distance[r + dr][c + dc] + cost
                nearest[r][c] = nearest[r + dr][c + dc]

    for _ in range(2):                                              # 5 along an edge, 7 over a corner
        for r in range(frame.rows):
            for c in range(frame.columns):
                relax(c, r, ((-1, 0, 5), (0, -1, 5), (-1, -1, 7), (1, -1, 7)))
        for r in reversed(range(frame.rows)):
            for c in reversed(range(frame.columns)):
                relax(c, r, ((1, 0, 5), (0, 1, 5), (1, 1, 7), (-1, 1, 7)))

    # side valleys: the slopes come near to the river here and stand back there
    random = Lcg(frame.seed + 7)
    bays = add(smooth_noise(random, frame.columns, frame.rows, 4, 12), smooth_noise(random, frame.columns, frame.rows, 2, 10))
    carved = []
    for r in range(frame.rows):
        line = []
        for c in range(frame.columns):
            d = distance[r][c]
            bed = nearest[r][c]
            over = level[r][c] - bed
            half = max(min(max(24 - over // 90, 12), 24) + bays[r][c], 7)   # half width of the valley in fifths of a cell
            floor = min(d, 25) * 3                                  # no land lies below the water it drains to
            if d == 0:
                line.append(bed)
            elif d >= half:
                line.append(max(level[r][c], bed + floor))
            else:
                t = d * 256 // half
                share = (3 * 256 * t * t - 2 * t * t * t) // 65536   # smooth step, over 256
                line.append(max(bed + over * share // 256, bed + floor))
        carved.append(line)
    return carved


def soften(frame, level, water):
    """One round of averaging with the neighbours; the rivers keep their heights."""
    out = []
    last_r, last_c = frame.rows - 1, frame.columns - 1
    for r in range(frame.rows):
        up, here, down = level[max(r - 1, 0)], level[r], level[min(r + 1, last_r)]
        line = []
        for c in range(frame.columns):
            w, e = max(c - 1, 0), min(c + 1, last_c)
            line.append(here[c] if (c, r) in water else
                        (here[c] * 4 + (up[c] + down[c] + here[w] + here[e]) * 2
                         + up[w] + up[e] + down[w] + down[e]) // 16)
        out.append(line)
    return out


def heights(frame, spots, water):
    """Heights of the cells, [row][column], in decimetres."""
    level = raise_peaks(frame, spots, general_level(frame, spots))
    return soften(frame, carve(frame, roughen(frame, level), water), water)


def pixel_heights(frame, level):
    """Heights of the pixels, [y][x], in decimetres: the cells' laid smooth, with a little unevenness of its own."""
    def padded(line):
        return [line[0]] * 2 + line + [line[-1]] * 2

    rows = [padded(line) for line in level]
    rows = [rows[0]] * 2 + rows + [rows[-1]] * 2
    smooth = widen(rows, frame.cell, frame.width, frame.height, shift=frame.cell // 2)
    random = Lcg(frame.seed + 2)
    runnels = smooth_noise(random, frame.width, frame.height, 13, 256)
    grain = smooth_noise(random, frame.width, frame.height, 6, 256)
    return [[h + (abs(s) * 3 + g) * min(max(h - 500, 120), 2400) // 9000 for h, s, g in zip(hs, ss, gs)]
            for hs, ss, gs in zip(smooth, runnels, grain)]


def slope(level, column, row):
    """Steepest fall to a neighbour, decimetres in a kilometre."""
    here = level[row][column]
    steepest = 0
    for dc, dr in ((1, 0), (-1, 0), (0, 1), (0, -1)):
        c, r = column + dc, row + dr
        if 0 <= r < len(level) and 0 <= c < len(level[0]):
            steepest = max(steepest, abs(level[r][c] - here))
    return steepest


def standing_out(frame, level, reach):
    """How far each cell stands above the mean of the country within `reach` cells, in decimetres."""
    # sums over rectangles from the upper left corner
    sums = [[0] * (frame.columns + 1)]
    for row in level:
        line, total = [0], 0
        for c, height in enumerate(row):
            total += height
            line.append(sums[-1][c + 1] + total)
        sums.append(line)
    out = []
    for r in range(frame.rows):
        top, bottom = max(r - reach, 0), min(r + reach + 1, frame.rows)
        line = []
        for c in range(frame.columns):
            left, right = max(c - reach, 0), min(c + reach + 1, frame.columns)
            total = sums[bottom][right] - sums[top][right] - sums[bottom][left] + sums[top][left]
            line.append(level[r][c] - total // ((bottom - top) * (right - left)))
        out.append(line)
    return out
