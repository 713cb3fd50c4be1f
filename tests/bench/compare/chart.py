# SPDX-License-Identifier: LGPL-2.1-or-later
"""Plain charts as SVG texts: bars beside their names, and lines over time."""
from html import escape

INK, QUIET, ACCENT = "#22303c", "#9fb0bf", "#c8501e"
WIDTH = 720
HEAD = ('<svg xmlns="http://www.w3.org/2000/svg" width="{0}" height="{1}" viewBox="0 0 {0} {1}" font-family="sans-serif" '
        'font-size="13"><rect width="100%" height="100%" fill="#ffffff"/>')


def text(x, y, words, anchor="start", color=INK, size=13):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="{color}" font-size="{size}">{escape(words)}</text>'


def bars(title, unit, rows):
    """A chart of [(name, value, is it ours)], the smallest value first."""
    rows = sorted(rows, key=lambda row: row[1])
    most = max(value for _, value, _ in rows) or 1.0
    height = 46 + 24 * len(rows)
    out = [HEAD.format(WIDTH, height), text(12, 24, f"{title} ({unit})", size=15)]
    for at, (name, value, ours) in enumerate(rows):
        y = 40 + 24 * at
        length = 400 * value / most
        out += [text(212, y + 13, name, "end"),
                f'<rect x="220" y="{y}" width="{max(1.0, length):.1f}" height="17" fill="{ACCENT if ours else QUIET}"/>',
                text(228 + length, y + 13, f"{value:,.1f}" if value < 1000 else f"{value:,.0f}")]
    return "\n".join(out) + "\n</svg>\n"


def lines(title, x_name, series):
    """One strip for each {name: [(x, value)]}, all over the same x, each from 0 to its largest value."""
    strip, left, right = 70, 150, 20
    height = 50 + strip * len(series)
    xs = [x for points in series.values() for x, _ in points]
    first, last = min(xs), max(max(xs), min(xs) + 1e-9)
    out = [HEAD.format(WIDTH, height), text(12, 24, title, size=15)]
    for at, (name, points) in enumerate(series.items()):
        top = 40 + strip * at
        most = max(value for _, value in points) or 1.0
        out += [text(left - 10, top + 30, name, "end"), text(left - 10, top + 46, f"up to {most:,.0f}", "end", QUIET, 11),
                f'<line x1="{left}" y1="{top + strip - 12}" x2="{WIDTH - right}" y2="{top + strip - 12}" stroke="{QUIET}"/>']
        path = " ".join(f"{left + (WIDTH - left - right) * (x - first) / (last - first):.1f},"
                        f"{top + strip - 12 - (strip - 20) * value / most:.1f}" for x, value in points)
        out.append(f'<polyline points="{path}" fill="none" stroke="{ACCENT}" stroke-width="1.3"/>')
    out.append(text(WIDTH - right, height - 4, x_name, "end", QUIET, 11))
    return "\n".join(out) + "\n</svg>\n"
