"""Names on a sheet: towns beside their cells, rivers along their course, wide names of the land."""

from PIL import Image, ImageDraw, ImageFont

from .sources import SUB, BadData

FONTS = "/usr/share/fonts/truetype/dejavu/"
HALO = (252, 249, 236)
INK, RIVER_INK, LAND_INK, PEAK_INK = (36, 30, 30), (30, 84, 146), (112, 82, 44), (106, 70, 36)

# cells at least, face, size in pixels, width of the halo
TOWN_FACES = ((30, "DejaVuSans-Bold.ttf", 15, 2), (12, "DejaVuSans-Bold.ttf", 12, 2), (5, "DejaVuSans.ttf", 11, 2),
              (2, "DejaVuSans.ttf", 10, 2), (0, "DejaVuSans.ttf", 9, 2))

DIRECTIONS = ("e", "w", "n", "s", "ne", "se", "nw", "sw")


def face(name, size):
    try:
        return ImageFont.truetype(FONTS + name, size, layout_engine=ImageFont.Layout.BASIC)
    except OSError:
        raise BadData(f"no font {FONTS + name}; the Debian package fonts-dejavu-core has it") from None


class Layout:
    """Places that are taken, so that names do not lie on one another."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.boxes = []

    def overlap(self, box):
        """Pixels of the box that are taken or off the sheet."""
        left, top, right, bottom = box
        total = 0
        if left < 2 or top < 2 or right > self.width - 2 or bottom > self.height - 2:
            total += 2000
        for a, b, c, d in self.boxes:
            w, h = min(right, c) - max(left, a), min(bottom, d) - max(top, b)
            if w > 0 and h > 0:
                total += w * h
        return total

    def take(self, box):
        self.boxes.append(box)


def text_size(font, text):
    left, top, right, bottom = font.getbbox(text)
    return left, top, right - left, bottom - top


def place_beside(layout, around, size, first):
    """The upper left corner for a name of a size beside a box, in the direction asked for if it is free there."""
    left, top, right, bottom = around
    w, h = size
    middle_x, middle_y = (left + right - w) // 2, (top + bottom - h) // 2
    spots = {"e": (right + 2, middle_y), "w": (left - 2 - w, middle_y), "n": (middle_x, top - 2 - h),
             "s": (middle_x, bottom + 2), "ne": (right, top - h), "se": (right, bottom), "nw": (left - w, top - h),
             "sw": (left - w, bottom)}
    best = None
    for rank, direction in enumerate((first,) + tuple(d for d in DIRECTIONS if d != first)):
        x, y = spots[direction]
        cost = layout.overlap((x - 1, y - 1, x + w + 1, y + h + 1)) * 10 + (0 if rank == 0 else 60 + rank * 5)
        if best is None or cost < best[0]:
            best = (cost, x, y)
    return best[1:]


def print_towns(sheet, image, layout):
    draw = ImageDraw.Draw(image)
    px = sheet.frame.cell
    for town in sheet.towns:                                    # nothing may hide a town itself
        layout.take((town.cell[0] * px, town.cell[1] * px, town.cell[0] * px + px, town.cell[1] * px + px))
    for town in sorted(sheet.towns, key=lambda t: -t.size):
        _, name, size, halo = next(f for f in TOWN_FACES if town.size >= f[0])
        font = face(name, size)
        left, top, w, h = text_size(font, town.name)
        columns, rows = [c for c, _ in town.cells], [r for _, r in town.cells]
        around = (min(columns) * px, min(rows) * px, max(columns) * px + px, max(rows) * px + px)
        if town.size >= 12:                                     # a city's name may lie over its edge
            inset = min((around[2] - around[0]) // 4, 12)
            around = (around[0] + inset, around[1] + inset, around[2] - inset, around[3] - inset)
        x, y = place_beside(layout, around, (w, h), town.side)
        layout.take((x - 1, y - 1, x + w + 1, y + h + 1))
        draw.text((x - left, y - top), town.name, font=font, fill=INK, stroke_width=halo, stroke_fill=HALO)


# (cosine, sine) by five whole-numbered triangles, from level to steep
SLANTS = ((1, 0, 1), (24, 7, 25), (12, 5, 13), (4, 3, 5), (20, 21, 29), (3, 4, 5), (5, 12, 13), (7, 24, 25), (0, 1, 1))


def slanted(text, font, colour, slant):
    """The name as a picture turned by a slant (cosine, sine, over), sine down to the right."""
    cosine, sine, over = slant
    left, top, w, h = text_size(font, text)
    w, h = w + 8, h + 8
    flat = Image.new("RGBA", (w, h), HALO + (0,))
    ImageDraw.Draw(flat).text((4 - left, 4 - top), text, font=font, fill=colour + (255,), stroke_width=2,
                              stroke_fill=HALO + (215,))
    side = w + h
    # where in the flat picture does each place of the turned one lie
    a, b = cosine / over, sine / over
    middle = side / 2
    return flat.transform((side, side), Image.AFFINE,
                          (a, b, w / 2 - a * middle - b * middle, -b, a, h / 2 + b * middle - a * middle),
                          resample=Image.BICUBIC), (w, h)


def print_rivers(sheet, image, layout):
    """Each name along a stretch of its river, where it hides least; long rivers bear it several times."""
    frame = sheet.frame
    for river in sheet.rivers:
        if not river.label:
            continue
        font = face("DejaVuSerif.ttf", 12 if river.width >= 10 else 10)
        _, _, w, h = text_size(font, river.name)
        course = [(x // SUB, y // SUB) for x, y in river.course]
        on = [p for p in course if 0 <= p[0] < frame.width and 0 <= p[1] < frame.height]
        copies = 1 + len(river.chain) // 130
        for copy in range(copies):
            low, high = len(on) * copy // copies, len(on) * (copy + 1) // copies
            best = None
            for k in range(low + 4, high - 4, 4):
                reach = next((n for n in range(k, high) if max(abs(on[n][0] - on[k][0]), abs(on[n][1] - on[k][1])) >= w * 3 // 4), None)
                if reach is None:
                    break
                (x1, y1), (x2, y2) = on[k], on[reach]
                if x2 < x1:
                    x1, y1, x2, y2 = x2, y2, x1, y1
                dx, dy = x2 - x1, y2 - y1
                slant = min(range(len(SLANTS)), key=lambda n: abs(SLANTS[n][1] * dx - SLANTS[n][0] * abs(dy)) * 100
                            // SLANTS[n][2])
                cosine, sine, over = SLANTS[slant]
                sine = sine if dy >= 0 else -sine
                # how far the water strays from the straight line
                stray = max(abs((px - x1) * dy - (py - y1) * dx) // max(abs(dx), abs(dy), 1) for px, py in on[k:reach])
                for side in (-1, 1):
                    off = h // 2 + 5 + stray
                    x = (x1 + x2) // 2 - side * -sine * off // over
                    y = (y1 + y2) // 2 + side * cosine * off // over
                    half_w = (w * cosine + h * abs(sine)) // over // 2
                    half_h = (w * abs(sine) + h * cosine) // over // 2
                    # a slanted name takes the boxes along its middle
                    boxes = []
                    for n in range(-2, 3):
                        bx, by = x + n * w * cosine // over // 5, y + n * w * sine // over // 5
                        boxes.append((bx - w // 8 - 2, by - h // 2 - 2, bx + w // 8 + 2, by + h // 2 + 2))
                    cost = sum(layout.overlap(box) for box in boxes) * 8 + stray * 30
                    if x - half_w < 3 or y - half_h < 3 or x + half_w > frame.width - 3 or y + half_h > frame.height - 3:
                        cost += 100000
                    if best is None or cost < best[0]:
                        best = (cost, x, y, (cosine, sine, over), boxes)
            if best is None or best[0] > 6000:
                continue
            _, x, y, slant, boxes = best
            for box in boxes:
                layout.take(box)
            turned, _ = slanted(river.name, font, RIVER_INK, slant)
            image.paste(turned, (x - turned.width // 2, y - turned.height // 2), turned)


def print_land(sheet, image, layout):
    draw = ImageDraw.Draw(image)
    font = face("DejaVuSerif.ttf", 12)
    for text, place in sheet.names:
        left, top, w, h = text_size(font, text)
        x, y = place[0] // SUB - w // 2, place[1] // SUB - h // 2
        x = min(max(x, 4), sheet.frame.width - w - 4)
        layout.take((x, y, x + w, y + h))
        draw.text((x - left, y - top), text, font=font, fill=LAND_INK, stroke_width=1, stroke_fill=HALO)


def print_peaks(sheet, image, layout):
    """A triangle, the height and the name of each peak, where there is room."""
    draw = ImageDraw.Draw(image)
    font = face("DejaVuSans.ttf", 8)
    for spot in sheet.spots:
        if spot.kind != "peak":
            continue
        x, y = spot.place[0] // SUB, spot.place[1] // SUB
        text = f"{spot.name} {spot.height // 10}".strip()
        left, top, w, h = text_size(font, text)
        tx, ty = place_beside(layout, (x - 3, y - 3, x + 3, y + 3), (w, h), "e")
        box = (tx - 1, ty - 1, tx + w + 1, ty + h + 1)
        mark = (x - 4, y - 4, x + 4, y + 3)
        if layout.overlap(box) + layout.overlap(mark) > 0:
            continue
        layout.take(box)
        layout.take(mark)
        draw.polygon(((x, y - 3), (x - 3, y + 2), (x + 3, y + 2)), fill=PEAK_INK)
        draw.text((tx - left, ty - top), text, font=font, fill=PEAK_INK, stroke_width=1, stroke_fill=HALO)


def print_names(sheet, image):
    layout = Layout(sheet.frame.width, sheet.frame.height)
    print_land(sheet, image, layout)
    print_towns(sheet, image, layout)
    print_rivers(sheet, image, layout)
    print_peaks(sheet, image, layout)
