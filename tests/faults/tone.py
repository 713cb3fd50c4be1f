# SPDX-License-Identifier: LGPL-2.1-or-later
"""The sound that a fake radio sends when it is well, at the pace of a real station."""
import time

METAINT = 4000
# How long each file lasts, in seconds, where it is not the usual.
SECONDS = {"600.ogg": 20, "700.opus": 20}
USUAL_SECONDS = 10


class Cut(Exception):
    """The connection is over."""


class Tone:
    """A file again and again, `burst` seconds of it ahead of its time. With `titles`, a function from the number of a
    metadata block to its text, one block each `metaint` bytes, announced or not."""

    def __init__(self, radio, name, burst=2.0, titles=None, metaint=METAINT):
        self.data = radio.sound(name)
        self.rate = len(self.data) / SECONDS.get(name, USUAL_SECONDS)
        self.burst, self.titles, self.metaint = burst, titles, metaint
        self.start = time.monotonic()
        self.sent = 0  # bytes of sound
        self.blocks = 0

    def piece(self, count):
        """The next bytes, which count as sent."""
        at = self.sent % len(self.data)
        piece = self.data[at:at + count]
        self.sent += len(piece)
        return piece

    def step(self, connection):
        """Sends what is due by now."""
        due = int((time.monotonic() - self.start + self.burst) * self.rate)
        while self.sent < due:
            count = due - self.sent
            if self.titles:
                count = min(count, self.metaint - self.sent % self.metaint)
            connection.send(self.piece(count))
            if self.titles and self.sent % self.metaint == 0:
                self.block(connection, self.titles(self.blocks))
                self.blocks += 1

    def skip(self, seconds):
        """That much is never sent: what follows a silence is live."""
        self.start += seconds

    @staticmethod
    def block(connection, text):
        length = (len(text) + 15) // 16
        connection.send(bytes([length]) + text.ljust(length * 16, b"\0"))
