# SPDX-License-Identifier: LGPL-2.1-or-later
"""The self-test's package: somebody unpacks it, starts it and gets one report that tells nothing about him."""
import os
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from packed import unpack  # noqa: E402
from probing import TOP, WINE  # noqa: E402
from test_crash import no_debugger  # noqa: E402

GROUP = os.path.join(TOP, "build", "desktop", "selftest")
LONGEST = 900  # seconds


class TestSelftest:
    def __init__(self):
        self.folder = os.path.join(GROUP, "zkouška s mezerou")
        unpack("selftest", self.folder)
        no_debugger()

    def tear_down(self):
        pass

    def files(self):
        return sorted(os.path.relpath(os.path.join(folder, name), self.folder)
                      for folder, _, names in os.walk(self.folder) for name in names)

    def run(self, *words, answer=b"\n"):
        with open(os.path.join(GROUP, "output.txt"), "w+b") as out:
            done = subprocess.run([WINE, *words], cwd=self.folder, input=answer, stdout=out, stderr=subprocess.DEVNULL, timeout=LONGEST,
                                  check=False)
            out.seek(0)
            return done.returncode, out.read().decode("utf-8", "replace")

    def test_everything_passes_and_one_report_is_left(self):
        before = self.files()
        code, output = self.run("cmd", "/c", "spustit-zkousku.cmd", "ano")
        with open(os.path.join(self.folder, "zprava.txt"), encoding="utf-8-sig", newline="") as source:
            report = source.read()
        assert code == 0, (output[-200:], report)
        assert report.endswith("výsledek: v pořádku\r\n"), report
        # A stack that overflows leaves no text under Wine; nothing else may be left out here.
        for part, skipped in (("smlouva", 0), ("zvuk", 0), ("pád", 1), ("prohlídka", 0)):
            line = next(line for line in report.splitlines() if line.startswith(f"část {part}: prošlo "))
            assert f", neprošlo 0, vynecháno {skipped}, " in line, report
        assert "Wine " in report
        assert self.files() == sorted([*before, "zprava.txt"]), "it leaves nothing else"
        for private in (os.environ["USER"] if "USER" in os.environ else "root", "zkouška", ":\\", "/"):
            assert private not in report, (private, report)

    def test_it_says_first_what_it_does_and_a_missing_radio(self):
        shutil.rmtree(os.path.join(self.folder, "radio"))
        code, output = self.run("zkouska.exe")
        assert code == 1 and output.index("Enter zkoušku spustí") < output.index("Rádio pro zkoušku se nepodařilo spustit"), output
        assert not os.path.exists(os.path.join(self.folder, "docasne"))


if __name__ == "__main__":
    harness.run(TestSelftest)
