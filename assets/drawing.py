# SPDX-License-Identifier: LGPL-2.1-or-later
"""What the skins are drawn with: colours, surfaces, shapes, the program's mark and its lettering."""
import math

import cairo
from PIL import Image

TWIPS = 15  # a pixel at 96 dots an inch


def rgb(colour):
    return tuple(int(colour[i:i + 2], 16) / 255 for i in (1, 3, 5))


def skin_colour(colour):
    red, green, blue = (int(colour[i:i + 2], 16) for i in (1, 3, 5))
    return blue << 16 | green << 8 | red


def luminance(colour):
    parts = [c / 12.92 if c <= 0.03928 else ((c + 0.055) / 1.055) ** 2.4 for c in rgb(colour)]
    return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2]


def contrast(a, b):
    high, low = sorted((luminance(a), luminance(b)), reverse=True)
    return (high + 0.05) / (low + 0.05)


def surface(width, height, ground, scale=1):
    """A pen that draws in pixels at 96 dots an inch on a picture `scale` times as large."""
    image = cairo.ImageSurface(cairo.FORMAT_RGB24, width * scale, height * scale)
    pen = cairo.Context(image)
    pen.scale(scale, scale)
    pen.set_source_rgb(*rgb(ground))
    pen.paint()
    pen.set_line_cap(cairo.LINE_CAP_ROUND)
    pen.set_line_join(cairo.LINE_JOIN_ROUND)
    return image, pen


def colour(pen, name):
    pen.set_source_rgb(*rgb(name))


def rounded(pen, x, y, width, height, radius):
    pen.new_sub_path()
    pen.arc(x + width - radius, y + radius, radius, -math.pi / 2, 0)
    pen.arc(x + width - radius, y + height - radius, radius, 0, math.pi / 2)
    pen.arc(x + radius, y + height - radius, radius, math.pi / 2, math.pi)
    pen.arc(x + radius, y + radius, radius, math.pi, 3 * math.pi / 2)
    pen.close_path()


def to_image(drawn):
    width, height = drawn.get_width(), drawn.get_height()
    return Image.frombuffer("RGB", (width, height), bytes(drawn.get_data()), "raw", "BGRX", drawn.get_stride(), 1)


def save_gif(path, drawn, ground=None):
    """Pixels of the ground colour become transparent where one is given."""
    image = to_image(drawn).copy()
    paletted = image.quantize(colors=254, method=Image.Quantize.MEDIANCUT,
                              dither=Image.Dither.NONE)
    options = {}
    if ground:
        clear = tuple(int(ground[i:i + 2], 16) for i in (1, 3, 5))
        index = 255
        pixels, source = paletted.load(), image.load()
        for y in range(image.height):
            for x in range(image.width):
                if source[x, y] == clear:
                    pixels[x, y] = index
        palette = paletted.getpalette() + [0] * 768
        palette = palette[:765] + list(clear)
        paletted.putpalette(palette)
        options["transparency"] = index
    paletted.save(path, "GIF", optimize=False, **options)


def dial(pen, x, y, size, ring, dot):
    """The mark of the program: a tuning dial whose needle has found a station."""
    pen.set_line_width(size * 0.09)
    colour(pen, ring)
    pen.arc(x, y, size * 0.42, math.radians(130), math.radians(410))
    pen.stroke()
    pen.set_line_width(size * 0.07)
    pen.arc(x, y, size * 0.23, math.radians(160), math.radians(380))
    pen.stroke()
    colour(pen, dot)
    pen.arc(x, y, size * 0.09, 0, 2 * math.pi)
    pen.fill()
    pen.set_line_width(size * 0.08)
    pen.move_to(x, y)
    pen.line_to(x + size * 0.25, y - size * 0.29)
    pen.stroke()


def ellipse(pen, x, y, width, height, start=0, end=360):
    pen.save()
    pen.translate(x + width / 2, y + height / 2)
    pen.scale(width / 2, height / 2)
    pen.new_sub_path()
    pen.arc(0, 0, 1, math.radians(start), math.radians(end))
    pen.restore()


def arch(pen, x, y, width, height, foot):
    """A stem, an arch and a stem, from `y` down to `foot`."""
    pen.move_to(x, foot)
    pen.line_to(x, y)
    pen.move_to(x, y + height)
    pen.curve_to(x, y - height * 0.15, x + width, y - height * 0.15, x + width, y + height)
    pen.line_to(x + width, foot)


def letter(pen, which, x, base, cap):
    """The path of a letter; tells how wide it is. `base`: the middle of its lowest line, `cap`: its height from there."""
    small = base - 0.70 * cap  # the middle of the highest line of a small letter
    top = base - cap
    if which == "L":
        pen.move_to(x, top)
        pen.line_to(x, base)
        pen.line_to(x + 0.52 * cap, base)
        return 0.50 * cap
    if which == "O":
        ellipse(pen, x - 0.04 * cap, top, 0.96 * cap, cap)
        return 0.90 * cap
    if which == "u":
        low = base - 0.34 * cap
        pen.move_to(x, small)
        pen.line_to(x, low)
        pen.curve_to(x, base + 0.05 * cap, x + 0.52 * cap, base + 0.05 * cap, x + 0.52 * cap, low)
        pen.move_to(x + 0.52 * cap, small)
        pen.line_to(x + 0.52 * cap, base)
        return 0.52 * cap
    if which == "n":
        arch(pen, x, small, 0.52 * cap, 0.34 * cap, base)
        return 0.52 * cap
    if which == "m":
        arch(pen, x, small, 0.46 * cap, 0.32 * cap, base)
        arch(pen, x + 0.46 * cap, small, 0.46 * cap, 0.32 * cap, base)
        return 0.92 * cap
    if which == "o":
        ellipse(pen, x - 0.03 * cap, small, 0.68 * cap, base - small)
        return 0.62 * cap
    if which == "e":
        middle = (small + base) / 2
        pen.move_to(x - 0.02 * cap, middle)
        pen.line_to(x + 0.58 * cap, middle)
        pen.new_sub_path()
        ellipse(pen, x - 0.03 * cap, small, 0.62 * cap, base - small, 40, 360)
        return 0.56 * cap
    if which == "t":
        pen.move_to(x + 0.10 * cap, top + 0.06 * cap)
        pen.line_to(x + 0.10 * cap, base - 0.20 * cap)
        pen.curve_to(x + 0.10 * cap, base, x + 0.20 * cap, base, x + 0.34 * cap, base)
        pen.move_to(x - 0.08 * cap, small)
        pen.line_to(x + 0.32 * cap, small)
        return 0.30 * cap
    if which == "r":
        pen.move_to(x, base)
        pen.line_to(x, small)
        pen.move_to(x, small + 0.30 * cap)
        pen.curve_to(x, small + 0.05 * cap, x + 0.14 * cap, small, x + 0.32 * cap, small)
        return 0.30 * cap
    if which == "b":
        pen.move_to(x, top)
        pen.line_to(x, base)
        ellipse(pen, x, small, 0.64 * cap, base - small)
        return 0.62 * cap
    raise ValueError(which)


def lettering(pen, x, base, cap, text):
    """Writes in lines of even strength with the proportions of the system's message font. `cap`: a capital's height."""
    line = 0.165 * cap
    pen.save()
    pen.set_line_width(line)
    for which in text:
        x += letter(pen, which, x + line / 2, base - line / 2, cap - line) + 0.36 * cap
        pen.stroke()
    pen.restore()
