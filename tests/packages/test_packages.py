# SPDX-License-Identifier: LGPL-2.1-or-later
"""The installer and the portable zip under Wine, every file looked at: see tools/package --check."""
import glob
import os
import shutil
import signal
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import packed  # noqa: E402
from packed import KEY, UNINSTALLER, contents, digests, registered, same, setup, tree, uninstall, wait_for, wine  # noqa: E402
from packed_case import HERTZ, Packages, Unpacked, begin, opened, with_folders, write  # noqa: E402
import harness  # noqa: E402
from desk import picture  # noqa: E402
from probing import BUILD, PROBE, TOP  # noqa: E402

PROGRAM_FILES = ("lumotune.exe", "skincheck.exe", "prirucka.html")
OWN_SKIN = "Orb_Data/skins/Moje.skin"
# Of the system; an installer needs some of them. Not version, uxtheme and shlwapi, which Wine's own libraries load by name.
PLANTED_NAMES = ("userenv", "setupapi", "propsys", "dwmapi", "cryptbase", "oleacc", "clbcatq", "ntmarta", "shfolder", "riched20",
                 "msimg32", "apphelp", "secur32", "winmm")
# Of the demonstration: what the program and the client's stand-ins write, and the address of a radio whose usual port is taken.
LISTENERS = ("lumotune/Orb_Data/orb_server.tt", "lumotune/Orb_Data/options.ini", "lumotune/list.tt", "lumotune/radios.tt",
             "lumotune/kategories.tt")


class TestInstaller(Packages):
    def test_it_brings_its_files_touches_no_other_and_the_program_plays(self):
        before = self.install()
        same({**before, **self.program_files()}, tree(self.folder))
        assert registered("InstallLocation") == self.windows_folder()
        assert registered("UninstallString") == f'"{self.windows_folder()}\\{UNINSTALLER}"'
        assert registered("DisplayVersion") in os.path.basename(packed.package("setup.exe"))
        with open(packed.shortcut(), "rb") as source:
            assert "lumotune.exe".encode("utf-16-le") in source.read()
        self.plays()

    def test_it_finds_the_client_that_runs(self):
        before = self.lay_out()
        self.start_client()
        running = tree(self.folder)
        assert setup() == 0
        assert registered("InstallLocation") == self.windows_folder()
        same({**running, **self.program_files()}, tree(self.folder))
        assert set(before) <= set(running)

    def test_without_a_client_it_installs_nothing(self):
        assert setup() == 2
        here = r"\\?\unix" + os.path.dirname(self.folder).replace("/", "\\") + r"\device"
        write(os.path.join(os.path.dirname(self.folder), "device", "lumotune.exe"), b"")
        for place in (r"\\127.0.0.1\share", here, "relative", r"Z:\missing"):
            wine("reg", "add", KEY, "/v", "InstallLocation", "/d", place, "/f")
            assert setup() == 2, place
        assert setup(r"\\127.0.0.1\share\x") in (2, 3)
        assert setup(r"Z:\proc\x") == 3
        assert packed.shortcut() is None

    def test_libraries_beside_it_are_not_taken(self):
        """As in a folder of downloads, where anything may lie."""
        self.lay_out()
        folder = os.path.join(os.path.dirname(self.folder), "Stažené")
        shutil.rmtree(folder, ignore_errors=True)
        os.makedirs(folder)
        copy = shutil.copy(packed.package("setup.exe"), folder)
        for name in PLANTED_NAMES:
            shutil.copy(os.path.join(BUILD, "tests", "desktop", "planted.dll"), os.path.join(folder, name + ".dll"))
        before = os.environ["WINEDLLOVERRIDES"]
        os.environ["WINEDLLOVERRIDES"] = ";".join([before, *(f"{name}=n,b" for name in PLANTED_NAMES)])
        try:
            words = f"/D={self.windows_folder()}".split(" ")
            assert wine(copy, "/S", *words, cwd=folder, timeout=120).returncode == 0
        finally:
            os.environ["WINEDLLOVERRIDES"] = before
        assert not glob.glob(glob.escape(folder) + "/*.taken"), os.listdir(folder)
        assert os.path.exists(self.desk.path("lumotune.exe"))

    def test_a_picture_of_the_clients_own_stays(self):
        self.lay_out()
        write(self.desk.path("Orb_Data", "pictures", "logo.gif"), b"the client's")
        assert setup(self.windows_folder()) == 0
        after = tree(self.folder)
        assert after["Orb_Data/pictures/logo.gif"] == digests({"x": b"the client's"})["x"]
        assert after["Orb_Data/pictures/info.gif"] == self.program_files()["Orb_Data/pictures/info.gif"]
        assert uninstall(self.folder)
        assert os.listdir(self.desk.path("Orb_Data", "pictures")) == ["logo.gif"]

    def test_its_windows(self):
        """The folder is shown and asked for; here it is the right one."""
        before = self.lay_out()
        self.start_client()
        process = begin(None, packed.package("setup.exe"))
        self.says("složky klienta Orb")
        self.says(self.windows_folder())
        picture(os.path.join(TOP, "build", "packages-check", "installer.png"))
        assert self.desk.press("&Instalovat")
        self.says("Otevřít příručku")
        picture(os.path.join(TOP, "build", "packages-check", "installer-end.png"))
        assert self.desk.press("&Dokončit")
        self.until(lambda: process.poll() == 0, 60)
        self.until(lambda: self.desk.form() is not None and self.desk.form().visible)
        self.hear(HERTZ)
        assert set(before) | set(self.program_files()) <= set(tree(self.folder))

    def test_on_other_systems_it_speaks_english_and_can_be_given_up(self):
        """And no second one runs meanwhile."""
        before = self.lay_out()
        czech = os.environ["LC_ALL"]
        os.environ["LC_ALL"] = "C.UTF-8"
        try:
            process = begin(None, packed.package("setup.exe"))
        finally:
            os.environ["LC_ALL"] = czech
        self.says("belongs in the folder")
        assert setup(self.windows_folder()) == 5
        assert self.desk.press("Cancel")
        self.says("quit Lumotune Setup")
        assert self.desk.press("&Yes"), self.desk.boxes()
        self.until(lambda: process.poll() is not None, 60)
        assert process.returncode == 1
        same(before, tree(self.folder))
        assert registered("InstallLocation") is None


class TestUpgrade(Packages):
    def older(self):
        """An older version's files, and a skin of the listener's."""
        self.install()
        for name in ("prirucka.html", "Orb_Data/skins/Pult/play.gif", "lumotune-licence/bom.txt"):
            write(self.desk.path(*name.split("/")), b"of an older version")
        write(self.desk.path(*OWN_SKIN.split("/")), b"; my own skin\r\n")
        return tree(self.folder)

    def test_it_asks_the_running_copy_to_end_and_keeps_the_listeners_files(self):
        before = self.older()
        self.plays()
        assert setup() == 0
        assert self.desk.ended()
        after = tree(self.folder)
        wanted = {**before, **self.program_files()}
        wanted.update({name: after[name] for name in after if name.startswith("Orb_Data/") and name.endswith((".ini", ".log"))})
        wanted.update({name: after[name] for name in after if name.endswith((".tt", ".log", ".txt")) and "/" not in name})
        same(wanted, after)
        for name in ("list.tt", OWN_SKIN):
            assert after[name] == before[name], name
        assert "#021:LTskin:Lumo" in self.desk.options()
        self.plays()

    def test_a_file_in_use_leaves_the_old_version_whole(self):
        before = self.older()
        path = self.desk.path("prirucka.html")
        holder = begin(self.folder, "cmd", "/c", "ping -n 1000 127.0.0.1 < prirucka.html")
        try:
            self.until(lambda: opened(path))
            assert setup() == 4
            same(before, tree(self.folder))
        finally:
            wine("taskkill", "/f", "/im", "ping.exe")
            wine("taskkill", "/f", "/im", "cmd.exe")
            holder.wait()

    def test_a_copy_that_hangs_leaves_the_old_version_whole(self):
        before = self.older()
        self.plays()
        self.desk.process.send_signal(signal.SIGSTOP)
        try:
            assert setup() == 4
            changed = {name for name, digest in tree(self.folder).items() if before.get(name) != digest}
            assert not changed & set(self.program_files()), changed
            assert not changed & {each + "/" for each in packed.ASIDE}
        finally:
            self.desk.process.send_signal(signal.SIGCONT)


class TestUninstaller(Packages):
    def test_it_leaves_what_it_did_not_bring(self):
        before = self.install()
        own = {OWN_SKIN: b"; my own skin\r\n", "Orb_Data/skins/Moje/play.gif": b"mine", "Orb_Data/skins/Pult/mine.gif": b"mine",
               "skladby.txt": b"x"}
        for name, content in own.items():
            write(self.desk.path(*name.split("/")), content)
        self.plays()
        assert uninstall(self.folder)
        assert self.desk.ended()
        after = tree(self.folder)
        kept = with_folders({**before, **digests(own)})
        assert set(kept) - set(after) == set(), packed.differences(kept, after)
        left = {name for name in set(after) - set(kept) if name not in ("Orb_Data/error.log",) and not name.endswith(".log")}
        assert not left, left
        assert after["list.tt"] == before["list.tt"] and after[OWN_SKIN] == digests(own)[OWN_SKIN]
        assert packed.shortcut() is None

    def test_a_copy_that_was_installed_later_elsewhere_keeps_its_entries(self):
        self.install()
        other = self.windows_folder() + " 2"
        wine("reg", "add", KEY, "/v", "InstallLocation", "/d", other, "/f")
        wine(os.path.join(self.folder, UNINSTALLER), "/S", timeout=120)
        self.until(lambda: not os.path.exists(self.desk.path(UNINSTALLER)))
        assert not [name for name in PROGRAM_FILES if os.path.exists(self.desk.path(name))]
        assert registered("InstallLocation") == other and packed.shortcut() is not None


class TestDemo(Packages):
    def test_its_start_file_plays(self):
        """All that somebody does is a double click; closing the player's window ends the rest."""
        shutil.rmtree(self.folder, ignore_errors=True)
        packed.unpack("demo.zip", self.folder)
        before = tree(self.folder)
        started = begin(self.folder, "spustit.exe")
        self.desk = Unpacked(os.path.join(self.folder, "lumotune"), started)
        try:
            self.until(lambda: self.desk.form() is not None and self.desk.form().visible, 60)
            self.hear(HERTZ)
            picture(os.path.join(TOP, "build", "packages-check", "demo.png"))
        finally:
            wine(PROBE, "close")
            ended = wait_for(lambda: started.poll() is not None, 60)
            left = wine("taskkill", "/f", "/im", "demo_radio.exe").returncode == 0
            wine("taskkill", "/f", "/im", "orb.exe")
        assert ended, "the start program is still there"
        assert not left, "the radio is still there"
        after = tree(self.folder)
        changed = [name for name in before if after.get(name) != before[name] and not name.startswith(LISTENERS)]
        assert not changed, changed


class TestPortable(Packages):
    def test_it_plays_from_a_folder_with_blanks_and_diacritics(self):
        before = self.lay_out()
        packed.unpack("portable.zip", self.folder)
        same({**before, **with_folders(digests(contents("portable.zip")))}, tree(self.folder))
        self.plays()
        assert registered("InstallLocation") is None

    def test_its_skins_are_in_order(self):
        self.lay_out()
        packed.unpack("portable.zip", self.folder)
        for name in ("Lumo", "Proužek", "Pult", "Papír"):
            answer = wine("skincheck.exe", name, cwd=self.folder)
            assert answer.returncode == 0 and "v pořádku" in answer.stdout.decode(), (name, answer.stdout)


if __name__ == "__main__":
    assert os.path.exists(PROBE), "the probe is not built"
    harness.run(TestInstaller, TestUpgrade, TestUninstaller, TestPortable, TestDemo)
