"""Chance and smooth fields in whole numbers."""


class Lcg:
    """A linear congruential generator; the high bits are the good ones."""

    def __init__(self, seed):
        self.state = (seed * 2654435761 + 12345) % (1 << 64)
        for _ in range(4):
            self.next()

    def next(self):
        """The next 16 bits."""
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % (1 << 64)
        return self.state >> 48

    def between(self, low, high):
        """A whole number, both ends included."""
        return low + self.next() * (high - low + 1) // 65536


def spline_weights(step):
    """Weights of the four nearest nodes for each of `step` places between two nodes: a cubic B-spline, which never
    swings beyond its nodes. They are whole numbers over 48 * step ** 3; places lie at the middles of their parts."""
    table = []
    n = 2 * step
    for k in range(step):
        t = 2 * k + 1                       # over n
        table.append(((n - t) ** 3,
                      3 * t ** 3 - 6 * t * t * n + 4 * n ** 3,
                      -3 * t ** 3 + 3 * t * t * n + 3 * t * n * n + n ** 3,
                      t ** 3))
    return table, 6 * n ** 3


def widen(nodes, step, width, height, shift=0):
    """A field of height x width values from nodes set `step` apart. Node [1][1] lies at the place -1/2 of value
    [0][0] less `shift` parts, so that there must be one node before the first value and two behind the last."""
    table, total = spline_weights(step)
    across = []
    for row in nodes:
        line = []
        for x in range(width):
            i, k = divmod(x + shift, step)
            a, b, c, d = table[k]
            line.append(a * row[i] + b * row[i + 1] + c * row[i + 2] + d * row[i + 3])
        across.append(line)
    field = []
    total *= total
    for y in range(height):
        i, k = divmod(y + shift, step)
        a, b, c, d = table[k]
        field.append([(a * p + b * q + c * r + d * s) // total
                      for p, q, r, s in zip(across[i], across[i + 1], across[i + 2], across[i + 3])])
    return field


def smooth_noise(random, width, height, step, span):
    """A field of smooth chance about -span..span (the spline draws it in), its hills `step` values wide."""
    across, down = width // step + 5, height // step + 5
    nodes = [[random.between(-span, span) for _ in range(across)] for _ in range(down)]
    return widen(nodes, step, width, height)


def add(*fields):
    """The sum of fields of one size."""
    return [[sum(values) for values in zip(*rows)] for rows in zip(*fields)]
