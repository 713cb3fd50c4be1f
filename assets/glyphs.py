# SPDX-License-Identifier: LGPL-2.1-or-later
"""The signs on the buttons. Each is called with a pen whose colour and line are set, and the middle of the button."""
import math


def play(pen, x, y, size):
    pen.move_to(x - size * 0.35, y - size * 0.55)
    pen.line_to(x + size * 0.6, y)
    pen.line_to(x - size * 0.35, y + size * 0.55)
    pen.close_path()
    pen.fill_preserve()
    pen.stroke()


def stop(pen, x, y, size):
    pen.rectangle(x - size * 0.42, y - size * 0.42, size * 0.84, size * 0.84)
    pen.fill_preserve()
    pen.stroke()


def tune(pen, x, y, size):
    """An antenna and its waves."""
    pen.arc(x, y - size * 0.25, size * 0.16, 0, 7)
    pen.fill()
    for side in (-1, 1):
        pen.move_to(x, y - size * 0.1)
        pen.line_to(x + side * size * 0.42, y + size * 0.85)
        for radius in (0.55, 0.95):
            middle = 0 if side > 0 else 180
            pen.new_sub_path()
            pen.arc(x, y - size * 0.25, size * radius, math.radians(middle - 42), math.radians(middle + 42))
    pen.move_to(x - size * 0.25, y + size * 0.5)
    pen.line_to(x + size * 0.25, y + size * 0.5)
    pen.stroke()


def record(pen, x, y, size):
    """Only the dot: whoever calls it draws the ring around in another colour."""
    pen.arc(x, y, size * 0.42, 0, 7)
    pen.fill()


def ring(pen, x, y, size):
    pen.arc(x, y, size * 0.78, 0, 7)
    pen.stroke()


def people(pen, x, y, size):
    for dx, part in ((-0.35, 1.0), (0.55, 0.78)):
        pen.arc(x + dx * size, y - size * 0.32 * part, size * 0.30 * part, 0, 7)
        pen.fill()
        pen.move_to(x + (dx - 0.55 * part) * size, y + size * 0.72)
        pen.arc(x + dx * size, y + size * 0.72, size * 0.55 * part, math.pi, 0)
        pen.close_path()
        pen.fill()


def menu(pen, x, y, size):
    for dy in (-0.5, 0, 0.5):
        pen.move_to(x - size * 0.75, y + dy * size)
        pen.line_to(x + size * 0.75, y + dy * size)
    pen.stroke()


def minimise(pen, x, y, size):
    pen.move_to(x - size * 0.6, y + size * 0.45)
    pen.line_to(x + size * 0.6, y + size * 0.45)
    pen.stroke()


def close(pen, x, y, size):
    for side in (-1, 1):
        pen.move_to(x - size * 0.5, y - side * size * 0.5)
        pen.line_to(x + size * 0.5, y + side * size * 0.5)
    pen.stroke()


def pin(pen, x, y, size, on):
    pen.move_to(x - size * 0.3, y - size * 0.75)
    pen.line_to(x + size * 0.3, y - size * 0.75)
    pen.line_to(x + size * 0.3, y - size * 0.1)
    pen.line_to(x + size * 0.55, y + size * 0.2)
    pen.line_to(x - size * 0.55, y + size * 0.2)
    pen.line_to(x - size * 0.3, y - size * 0.1)
    pen.close_path()
    if on:
        pen.fill_preserve()
    pen.stroke()
    pen.move_to(x, y + size * 0.2)
    pen.line_to(x, y + size * 0.8)
    pen.stroke()


def orb(pen, x, y, size):
    pen.arc(x, y, size * 0.62, 0, 7)
    pen.stroke()
    pen.arc(x + size * 0.62 * math.cos(-0.8), y + size * 0.62 * math.sin(-0.8), size * 0.26, 0, 7)
    pen.fill()


def speaker(pen, x, y, size):
    pen.move_to(x - size * 0.6, y - size * 0.3)
    pen.line_to(x - size * 0.2, y - size * 0.3)
    pen.line_to(x + size * 0.25, y - size * 0.7)
    pen.line_to(x + size * 0.25, y + size * 0.7)
    pen.line_to(x - size * 0.2, y + size * 0.3)
    pen.line_to(x - size * 0.6, y + size * 0.3)
    pen.close_path()
    pen.fill()


def crossed(pen, x, y, size):
    pen.move_to(x - size * 0.75, y + size * 0.75)
    pen.line_to(x + size * 0.5, y - size * 0.75)
    pen.stroke()
