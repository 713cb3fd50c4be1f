# SPDX-License-Identifier: LGPL-2.1-or-later
"""The watcher, which stays beside the running program; watcher.cpp tells what it can be asked."""
import os
import subprocess

from probing import BUILD, WINE


class Watcher:
    """tests/desktop/watcher.cpp, beside the program."""

    def __init__(self):
        path = os.path.join(BUILD, "tests", "desktop", "watcher.exe")
        self.process = subprocess.Popen([WINE, path], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                        encoding="utf-8")

    def ask(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        return self.process.stdout.readline().rstrip("\r\n")

    def costs(self):
        values = [int(value) for value in self.ask("costs").split("\t")]
        return [values[0] // 1024, *values[1:]]

    def close(self):
        self.process.stdin.close()
        self.process.wait(20)
