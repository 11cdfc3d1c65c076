"""Plots of growth with two logarithmic axes, as SVG."""
import html
import math

WIDTH, HEIGHT = 800, 520
LEFT, RIGHT, TOP, BOTTOM = 80, 36, 48, 150
COLOURS = ("#0b5cad", "#b3440a", "#2f7d32")
INK, FAINT = "#222", "#ddd"


def seconds_text(seconds):
    """"20 ms" for 0.02."""
    for unit, factor in (("s", 1), ("ms", 1e3), ("µs", 1e6)):
        if seconds * factor >= 1:
            return f"{seconds * factor:.3g} {unit}"
    return f"{seconds * 1e6:.2g} µs"


class Axis:
    """Whole decades around some values, on a line from `start` to `end`."""

    def __init__(self, values, start, end):
        self.first = math.floor(math.log10(min(values)))
        self.last = max(math.ceil(math.log10(max(values))), self.first + 1)
        self.start, self.end = start, end

    def place(self, value):
        share = (math.log10(value) - self.first) / (self.last - self.first)
        return self.start + share * (self.end - self.start)

    def decades(self):
        return [10.0 ** power for power in range(self.first, self.last + 1)]

    def between(self):
        return [step * decade for decade in self.decades()[:-1] for step in range(2, 10)]


def line(x1, y1, x2, y2, colour):
    return f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" stroke="{colour}"/>'


def text(x, y, words, anchor="middle", size=13, more=""):
    return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-size="{size}" {more}>'
            f"{html.escape(words)}</text>")


def grid(across, up, sizes, unit):
    bottom, top = HEIGHT - BOTTOM, TOP
    yield from (line(LEFT, up.place(each), WIDTH - RIGHT, up.place(each), "#f2f2f2") for each in up.between())
    for each in up.decades():
        yield line(LEFT, up.place(each), WIDTH - RIGHT, up.place(each), FAINT)
        yield text(LEFT - 8, up.place(each) + 4, seconds_text(each), "end")
    for each in sizes:
        yield line(across.place(each), bottom, across.place(each), top, FAINT)
        yield text(across.place(each), bottom + 20, f"{each:,.0f}")
    yield line(LEFT, bottom, WIDTH - RIGHT, bottom, INK)
    yield line(LEFT, bottom, LEFT, top, INK)
    yield text((LEFT + WIDTH - RIGHT) / 2, bottom + 42, unit)
    yield text(20, (bottom + top) / 2, "time", more=f'transform="rotate(-90 20 {(bottom + top) / 2:.0f})"')


def stroke(number, is_floor):
    dashes = ' stroke-dasharray="7 5"' if is_floor else ""
    return f'stroke="{COLOURS[number % len(COLOURS)]}" stroke-width="2"{dashes}'


def curve(points, across, up, number, is_floor):
    places = [(across.place(size), up.place(seconds)) for size, seconds in points]
    joined = " ".join(f"{x:.1f},{y:.1f}" for x, y in places)
    yield f'<polyline points="{joined}" fill="none" {stroke(number, is_floor)}/>'
    colour = COLOURS[number % len(COLOURS)]
    for (x, y), (size, seconds) in zip(places, points):
        inside = "white" if is_floor else colour
        yield (f'<circle cx="{x:.1f}" cy="{y:.1f}" r="4" fill="{inside}" stroke="{colour}" stroke-width="2">'
               f"<title>{size:,.0f}: {seconds_text(seconds)}</title></circle>")


def legend(names):
    for place, (words, number, is_floor) in enumerate(names):
        y = HEIGHT - BOTTOM + 72 + 20 * place
        yield f'<line x1="{LEFT}" y1="{y}" x2="{LEFT + 40}" y2="{y}" {stroke(number, is_floor)}/>'
        yield text(LEFT + 50, y + 4, words + (" (floor)" if is_floor else ""), "start")


def plot(title, unit, series):
    """The picture of [(ours, floor)], each (name, [(size, seconds)])."""
    curves = [(name, points, number, is_floor) for number, pair in enumerate(series)
              for is_floor, (name, points) in enumerate(pair)]
    points = [point for curve_of in curves for point in curve_of[1]]
    sizes = sorted({size for size, _ in points})
    # The curves begin and end a little inside the frame.
    across, up = Axis(sizes, LEFT, WIDTH - RIGHT), Axis([seconds for _, seconds in points], HEIGHT - BOTTOM, TOP)
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" width="{WIDTH}" '
             f'height="{HEIGHT}" font-family="sans-serif" fill="{INK}">',
             f'<rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>',
             text(WIDTH / 2, 28, title, size=17), *grid(across, up, sizes, unit)]
    for _, points_of, number, is_floor in curves:
        parts += curve(points_of, across, up, number, is_floor)
    parts += [*legend([(name, number, is_floor) for name, _, number, is_floor in curves]), "</svg>"]
    return "\n".join(parts) + "\n"
