# SPDX-License-Identifier: LGPL-2.1-or-later
"""What the tests of the demonstration share: a folder of their own and the reading of its files."""
import os
import shutil
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from probing import TOP  # noqa: E402  pylint: disable=unused-import

COUNT = 320  # stations, when nobody says otherwise
PROBE = "/lumotune.brelt/lt_list.php?size=1&idh=zkouska"
LIST = "/lumotune.brelt/lt_list.php?idh=zkouska"


class Folder:
    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="lumotune-")

    def tear_down(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def read(self, *names):
        with open(self.path(*names), "rb") as source:
            return source.read()


def text_lines(data):
    text = data.decode("cp1250")
    assert text.endswith("\r\n") and text.count("\n") == text.count("\r\n")
    return text[:-2].split("\r\n")
