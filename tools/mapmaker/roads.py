"""Roads: the easiest course from place to place, with a bridge wherever a river is crossed."""

from heapq import heappop, heappush

from .cover import BRIDGE, IMPASSABLE, OPEN, RESTRICTED, RIVER, SEVERE, URBAN
from .sources import BadData

STRAIGHT = ((1, 0), (-1, 0), (0, 1), (0, -1))
CORNER = ((1, 1), (1, -1), (-1, 1), (-1, -1))

# what a kilometre over the cell costs a road builder
GROUND = {OPEN: 20, RESTRICTED: 27, SEVERE: 60, URBAN: 18}
NEW_BRIDGE, OLD_BRIDGE = 90, 20


def bridge_sites(rivers, grid, frame):
    """{river cell: direction of the road}: where a river runs straight and both banks are dry land."""
    def dry(cell):
        return frame.on_sheet(cell) and grid.value[cell[1]][cell[0]] not in (RIVER, IMPASSABLE)

    sites = {}
    for river in rivers:
        chain = river.chain + ([river.mouth] if river.mouth else [])
        for before, cell, after in zip(chain, chain[1:], chain[2:]):
            flow = (after[0] - before[0], after[1] - before[1])
            if flow in ((2, 0), (-2, 0)):
                across = (0, 1)
            elif flow in ((0, 2), (0, -2)):
                across = (1, 0)
            else:
                continue
            if all(dry((cell[0] + s * across[0], cell[1] + s * across[1])) for s in (1, -1)):
                sites[cell] = across
    # where a tributary comes in, the bank is water: the site above has then already failed on that side
    return sites


def easiest(start, goal, grid, frame, level, sites, used):
    """The cheapest course over the cells, rivers crossed only straight over a site."""
    def aim(cell):
        dc, dr = abs(cell[0] - goal[0]), abs(cell[1] - goal[1])
        return 11 * max(dc, dr) + 4 * min(dc, dr)

    best = {start: 0}
    came = {}
    queue = [(aim(start), start)]
    done = set()
    while queue:
        _, cell = heappop(queue)
        if cell in done:
            continue
        if cell == goal:
            break
        done.add(cell)
        here = level[cell[1]][cell[0]]
        for step, ten in [(s, 10) for s in STRAIGHT] + [(s, 14) for s in CORNER]:
            to = (cell[0] + step[0], cell[1] + step[1])
            if not frame.on_sheet(to):
                continue
            value = grid.value[to[1]][to[0]]
            over = None
            extra = 0
            if value in (RIVER, BRIDGE):
                if sites.get(to) not in (step, (-step[0], -step[1])):
                    continue
                over = to
                to = (to[0] + step[0], to[1] + step[1])
                extra = OLD_BRIDGE if value == BRIDGE else NEW_BRIDGE
                value = grid.value[to[1]][to[0]]
            if value not in GROUND:
                continue
            cost = GROUND[value] * ten // 10 + abs(level[to[1]][to[0]] - here) // 25 + extra
            if (cell, to) in used:
                cost = cost * 6 // 10
            if best[cell] + cost < best.get(to, 1 << 40):
                best[to] = best[cell] + cost
                came[to] = (cell, over)
                heappush(queue, (best[to] + aim(to), to))
    if goal not in best:
        raise BadData(f"no way from {start} to {goal}")
    path = [goal]
    while path[-1] != start:
        cell, over = came[path[-1]]
        if over is not None:
            path.append(over)
        path.append(cell)
    return path[::-1]


def dry_land(cell, grid, frame):
    """The cell itself or the nearest where a road can pass."""
    reach = 4
    near = [((c - cell[0]) ** 2 + (r - cell[1]) ** 2, c, r)
            for r in range(cell[1] - reach, cell[1] + reach + 1) for c in range(cell[0] - reach, cell[0] + reach + 1)
            if frame.on_sheet((c, r)) and grid.value[r][c] in GROUND]
    return min(near)[1:]


def build_roads(roads, rivers, grid, frame, level):
    """Fills in path and course of each road, makes the bridges, and opens the woods along the way."""
    sites = bridge_sites(rivers, grid, frame)
    used = set()
    for road in roads:
        stops = [dry_land(stop, grid, frame) for stop in road.stops]
        path = [stops[0]]
        for start, goal in zip(stops, stops[1:]):
            path += easiest(start, goal, grid, frame, level, sites, used)[1:]
        for a, b in zip(path, path[1:]):
            used.update(((a, b), (b, a)))
        for c, r in path:
            if grid.value[r][c] == RIVER:
                grid.value[r][c] = BRIDGE
        road.path = path
    for road in roads:
        for c, r in road.path:
            if road.kind == "autobahn" and grid.value[r][c] in (RESTRICTED, SEVERE):
                grid.value[r][c] = OPEN
                grid.trees[r][c] = False
            elif grid.value[r][c] == SEVERE:
                grid.value[r][c] = RESTRICTED
        road.course = smooth_course(road.path, grid, frame)


def clear_line(a, b, grid, near):
    """Whether the straight line between two cells keeps off the water and within `near` cells of its path."""
    steps = 4 * max(abs(b[0] - a[0]), abs(b[1] - a[1]), 1)
    for k in range(steps + 1):
        c = (2 * (a[0] * (steps - k) + b[0] * k) + steps) // (2 * steps)
        r = (2 * (a[1] * (steps - k) + b[1] * k) + steps) // (2 * steps)
        if (c, r) not in near or grid.value[r][c] in (RIVER, BRIDGE, IMPASSABLE):
            return False
    return True


def smooth_course(path, grid, frame):
    """The line drawn: the path's needless corners pulled straight, bridges kept square to the water."""
    keep = {0, len(path) - 1}
    for k, (c, r) in enumerate(path):
        if grid.value[r][c] == BRIDGE:
            keep.update((max(k - 1, 0), k, min(k + 1, len(path) - 1)))
    anchors = [0]
    while anchors[-1] < len(path) - 1:
        i = anchors[-1]
        limit = min([k for k in keep if k > i])
        best = i + 1
        for j in range(i + 2, min(limit, i + 14) + 1):
            near = set()
            for c, r in path[i:j + 1]:
                near.update(((c, r), (c + 1, r), (c - 1, r), (c, r + 1), (c, r - 1)))
            if clear_line(path[i], path[j], grid, near):
                best = j
        anchors.append(best)
    line = [frame.centre_of(path[k]) for k in anchors]
    # roads at the sheet's edge run on beyond it
    edge = frame.cell * 16
    for end in (0, -1):
        c, r = path[end]
        if c in (0, frame.columns - 1) or r in (0, frame.rows - 1):
            x, y = line[end]
            out = (x - edge, y) if c == 0 else (x + edge, y) if c == frame.columns - 1 else \
                (x, y - edge) if r == 0 else (x, y + edge)
            line = [out] + line if end == 0 else line + [out]
    for _ in range(3):                                              # corners cut
        cut = [line[0]]
        for a, b in zip(line, line[1:]):
            cut.append(((3 * a[0] + b[0]) // 4, (3 * a[1] + b[1]) // 4))
            cut.append(((a[0] + 3 * b[0]) // 4, (a[1] + 3 * b[1]) // 4))
        line = cut + [line[-1]]
    return line
