"""Rivers: from a line of places to a chain of cells that nothing can slip through, and the line drawn in it."""

from .noise import Lcg
from .sources import SUB, BadData


def winding(points, random, rounds, amount):
    """Halves every step of a line `rounds` times by the four-point scheme, which runs through the given points, and
    pushes each new point aside by chance, at most `amount` / 256 of the step."""
    for _ in range(rounds):
        ends = [points[0]] + points + [points[-1]]
        finer = []
        for i in range(1, len(ends) - 2):
            a, b, c, d = ends[i - 1], ends[i], ends[i + 1], ends[i + 2]
            push = random.between(-amount, amount)
            finer.append(b)
            finer.append(((9 * (b[0] + c[0]) - a[0] - d[0]) // 16 + (c[1] - b[1]) * push // 256,
                          (9 * (b[1] + c[1]) - a[1] - d[1]) // 16 - (c[0] - b[0]) * push // 256))
        points = finer + [ends[-1]]
    return points


def cells_along(points, frame):
    """The cells that a line touches, in order, each the neighbour by an edge of the one before, with the place where
    the line passed from the one to the other."""
    edge = frame.cell * SUB
    cells = [frame.cell_of(points[0])]
    crossings = {}

    def step_to(cell, place):
        if cell != cells[-1]:
            crossings.setdefault(frozenset((cells[-1], cell)), place)
            cells.append(cell)

    def walk(a, b):
        ca, cb = frame.cell_of(a), frame.cell_of(b)
        apart = abs(ca[0] - cb[0]) + abs(ca[1] - cb[1])
        if apart == 0:
            return
        if apart == 1:
            # the place on the common edge, cut by proportion
            if ca[0] != cb[0]:
                x = max(ca[0], cb[0]) * edge
                y = a[1] + (b[1] - a[1]) * (x - a[0]) // (b[0] - a[0])
            else:
                y = max(ca[1], cb[1]) * edge
                x = a[0] + (b[0] - a[0]) * (y - a[1]) // (b[1] - a[1])
            step_to(cb, (x, y))
        elif max(abs(a[0] - b[0]), abs(a[1] - b[1])) < 2:
            corner = (max(ca[0], cb[0]) * edge, max(ca[1], cb[1]) * edge)
            step_to((cb[0], ca[1]), corner)
            step_to(cb, corner)
        else:
            middle = ((a[0] + b[0]) // 2, (a[1] + b[1]) // 2)
            walk(a, middle)
            walk(middle, b)

    for a, b in zip(points, points[1:]):
        walk(a, b)
    return cells, crossings


def adjacent(a, b):
    """Whether two cells are the same or share an edge."""
    return abs(a[0] - b[0]) + abs(a[1] - b[1]) <= 1


def thinned(cells):
    """The chain without its loops and doubled bends: from each cell on to the last one that touches it."""
    chain = [cells[0]]
    i = 0
    while i < len(cells) - 1:
        j = max(k for k in range(i + 1, len(cells)) if adjacent(cells[i], cells[k]))
        if cells[j] != chain[-1]:
            chain.append(cells[j])
        i = j
    return chain


def lay_river(river, frame, taken):
    """Fills in chain, course and levels of a river. `taken` maps each cell of the rivers already laid to its level;
    the river's own cells are added to it."""
    random = Lcg(frame.seed + sum(river.name.encode()))
    known = [(place, height) for place, height in river.points]
    rounds = 3
    line = winding([place for place, _ in known], random, rounds, 58)
    cells, crossings = cells_along(line, frame)
    # where the given heights stand along the touched cells
    marks = []
    at = 0
    for n, (place, height) in enumerate(known):
        cell = frame.cell_of(place)
        at = next((k for k in range(at, len(cells)) if cells[k] == cell), at)
        if height is not None:
            marks.append((cell, height))
    inside = [k for k, cell in enumerate(cells) if frame.on_sheet(cell)]
    cells = cells[inside[0]:inside[-1] + 1]
    if any(not frame.on_sheet(cell) for cell in cells):
        raise BadData(f"{river.name} leaves the sheet and comes back")
    chain = thinned(cells)
    mouth = None
    if river.into is not None:
        for k, cell in enumerate(chain):
            near = [other for other in ((cell[0] + 1, cell[1]), (cell[0], cell[1] + 1),
                                        (cell[0] - 1, cell[1]), (cell[0], cell[1] - 1)) if other in taken]
            if near or cell in taken:
                mouth = near[0] if cell not in taken else cell
                chain = chain[:k + 1] if cell not in taken else chain[:k]
                break
        else:
            raise BadData(f"{river.name} does not reach {river.into}")
        if mouth not in taken or taken[mouth][0] != river.into:
            raise BadData(f"{river.name} runs against {taken[mouth][0]} before it reaches {river.into}")
    else:
        if 0 < chain[-1][0] < frame.columns - 1 and 0 < chain[-1][1] < frame.rows - 1:
            raise BadData(f"{river.name} ends inside the sheet")
    river.chain, river.mouth = chain, mouth
    river.course = drawn_course(river, crossings, frame)
    river.levels = water_levels(river, marks, taken[mouth][1] if mouth else None)
    for cell, level in zip(chain, river.levels):
        taken[cell] = (river.name, level)


def drawn_course(river, crossings, frame):
    """The line of the water: through every edge between two cells of the chain, well away from the corners, so that
    no other cell is touched."""
    edge = frame.cell * SUB
    margin = edge * 3 // 10
    cells = river.chain + ([river.mouth] if river.mouth else [])
    course = [frame.centre_of(cells[0])]
    for a, b in zip(cells, cells[1:]):
        x, y = crossings.get(frozenset((a, b)), (None, None))
        left, top = max(a[0], b[0]) * edge, max(a[1], b[1]) * edge
        if a[0] != b[0]:
            low = a[1] * edge
            y = low + edge // 2 if y is None else min(max(y, low + margin), low + edge - margin)
            course.append((left, y))
        else:
            low = a[0] * edge
            x = low + edge // 2 if x is None else min(max(x, low + margin), low + edge - margin)
            course.append((x, top))
    course.append(frame.centre_of(cells[-1]))
    # a river that crosses the sheet's edge is drawn on beyond it
    for end, cell in ((0, cells[0]), (-1, cells[-1])):
        x, y = course[end]
        reach = [(-edge, y)] if cell[0] == 0 else [(frame.width * SUB + edge, y)] if cell[0] == frame.columns - 1 \
            else [(x, -edge)] if cell[1] == 0 else [(x, frame.height * SUB + edge)] if cell[1] == frame.rows - 1 else []
        course = (reach + course) if end == 0 else (course + reach)
    return winding(course, Lcg(0), 2, 0)


def water_levels(river, marks, mouth_level):
    """Heights along the chain: the given ones where their places fall, between them by distance, never rising."""
    chain = river.chain
    stands = []
    at = 0
    for cell, height in marks:
        k = min(range(at, len(chain)), key=lambda n: (abs(chain[n][0] - cell[0]) + abs(chain[n][1] - cell[1]), n))
        if not stands or k > stands[-1][0]:
            stands.append((k, height))
            at = k
    if mouth_level is not None:
        stands = [(k, max(height, mouth_level + 1)) for k, height in stands if k < len(chain) - 1]
        stands.append((len(chain) - 1, mouth_level + 1))
    elif stands[-1][0] < len(chain) - 1:
        stands.append((len(chain) - 1, marks[-1][1]))
    if stands[0][0] > 0:
        stands.insert(0, (0, max(marks[0][1], stands[0][1])))
    levels = []
    for k in range(len(chain)):
        (k1, h1), (k2, h2) = next(((a, b) for a, b in zip(stands, stands[1:]) if a[0] <= k <= b[0]),
                                  (stands[-1], stands[-1]))
        levels.append(h1 if k1 == k2 else h1 + (h2 - h1) * (k - k1) // (k2 - k1))
    for k in range(1, len(levels)):
        if levels[k] > levels[k - 1]:
            raise BadData(f"{river.name} flows uphill at its cell {k}")
    return levels


def lay_rivers(rivers, frame):
    """Lays all rivers, each after the one it flows into. Returns {cell: (river, level)}."""
    taken = {}
    waiting = list(rivers)
    while waiting:
        ready = [river for river in waiting if river.into is None or any(name == river.into for name, _ in taken.values())]
        if not ready:
            raise BadData("rivers that flow in a ring: " + ", ".join(river.name for river in waiting))
        for river in ready:
            lay_river(river, frame, taken)
            waiting.remove(river)
    return taken
