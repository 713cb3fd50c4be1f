# SPDX-License-Identifier: LGPL-2.1-or-later
"""The players that are compared: how each is started with a station, changes to another one, stops and ends. Each has its
settings in a folder of its own, made anew; none looks anything up in a network."""
import json
import os
import shutil
import signal
import socket
import subprocess
import sys

from meters import TOP, Processes

sys.path.insert(0, os.path.join(TOP, "demo"))
from probing import WINE, wait_for  # noqa: E402
from watching import Watcher  # noqa: E402

QUIET = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}


class Player:
    name = program = package = ""
    has_window = True
    can_change = can_stop = True
    note = ""

    def __init__(self, folder, radio):
        self.folder, self.radio, self.process = os.path.join(folder, self.program), radio, None
        shutil.rmtree(self.folder, ignore_errors=True)
        os.makedirs(self.folder)

    @classmethod
    def missing(cls):
        """Why it cannot be measured, nothing when it can."""
        return "" if shutil.which(cls.program) else f"not installed (Debian's package {cls.package})"

    def environment(self):
        home = {name: self.folder for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME")}
        return dict(os.environ, SDL_AUDIODRIVER="pulseaudio", QT_X11_NO_MITSHM="1", **home)

    def run(self, *words, **more):
        self.process = subprocess.Popen(words, **{**QUIET, "env": self.environment(), "cwd": self.folder, **more})

    def tell(self, *words):
        subprocess.run(words, **QUIET, env=self.environment(), cwd=self.folder, timeout=30, check=False)

    def processes(self):
        return Processes(self.process.pid)

    def begin(self, url):
        raise NotImplementedError

    def change(self, url):
        raise NotImplementedError

    def stop(self):
        raise NotImplementedError

    def end(self):
        if self.process is None:
            return
        self.process.terminate()
        try:
            self.process.wait(5)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
        self.process = None

    def bytes_on_disk(self):
        """Of its own package, without the libraries that it depends on."""
        told = subprocess.run(["dpkg-query", "-W", "-f=${Installed-Size}", self.package], capture_output=True, text=True,
                              check=False).stdout
        return int(told or 0) * 1024


class Lumotune(Player):
    name, program = "Lumotune (Wine)", "lumotune"
    note = "in a Wine that runs already; its memory and time without Wine's server"

    @classmethod
    def missing(cls):
        exe = os.path.join(TOP, "build", "windows", "app", "lumotune.exe")
        return "" if os.path.exists(exe) else "not built (tools/build-windows)"

    def __init__(self, folder, radio):
        super().__init__(folder, radio)
        self.watcher = None
        subprocess.run([sys.executable, os.path.join(TOP, "demo", "layout"), self.folder, "--port", str(radio.port), "--fresh"],
                       check=True, stdout=subprocess.DEVNULL)

    def environment(self):
        return dict(os.environ, LUMOTUNE_DEMO_QUIET="1")

    def begin(self, url):
        # The station of the last time, which is the first one of the radio, plays by itself.
        assert url == self.radio.url(0)
        self.run(WINE, "lumotune.exe")

    def ask(self, line):
        if self.watcher is None:
            self.watcher = Watcher()
        return self.watcher.ask(line)

    def ready_to_change(self):
        self.ask("windows")

    def change(self, url):
        self.ask("send p:" + url)

    def stop(self):
        self.ask("command 13")

    def end(self):
        if self.watcher is not None:
            self.watcher.close()
            self.watcher = None
        if self.process is not None:
            probe = os.path.join(TOP, "build", "windows", "tests", "desktop", "probe.exe")
            subprocess.run([WINE, probe, "close"], **QUIET, check=False, timeout=30)
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                self.process.send_signal(signal.SIGKILL)
                self.process.wait()
            self.process = None
        subprocess.run([WINE, "taskkill", "/f", "/im", "orb.exe"], **QUIET, check=False, timeout=30)

    def bytes_on_disk(self):
        return os.path.getsize(os.path.join(TOP, "build", "windows", "app", "lumotune.exe"))


class Engine(Player):
    name, program = "Lumotune's engine (native)", "media_bench"
    has_window = can_change = can_stop = False
    note = "without a window"
    path = os.path.join(TOP, "build", "native-release", "tests", "bench", "media", "media_bench")

    @classmethod
    def missing(cls):
        return "" if os.path.exists(cls.path) else "not built (cmake --preset native-release)"

    def begin(self, url):
        self.run(self.path, "play", url, "600", stdin=subprocess.PIPE)
        self.process.stdin.write(b"play\n")
        self.process.stdin.flush()

    def bytes_on_disk(self):
        return os.path.getsize(self.path)


class Mpv(Player):
    name, program, package = "mpv", "mpv", "mpv"

    def begin(self, url):
        self.run("mpv", "--no-config", "--no-terminal", "--force-window=immediate", "--ao=pulse", "--vo=x11", "--idle",
                 "--input-ipc-server=" + self.folder + "/ipc", url)

    def command(self, *words):
        with socket.socket(socket.AF_UNIX) as control:
            control.connect(self.folder + "/ipc")
            control.sendall(json.dumps({"command": words}).encode() + b"\n")
            control.recv(1000)

    def change(self, url):
        self.command("loadfile", url)

    def stop(self):
        self.command("stop")


class Ffplay(Player):
    name, program, package = "ffplay", "ffplay", "ffmpeg"
    can_change = can_stop = False

    def begin(self, url):
        self.run("ffplay", "-loglevel", "quiet", "-showmode", "waves", "-x", "300", "-y", "200", url)


class FfplayBare(Ffplay):
    name = "ffplay -nodisp"
    has_window = False

    def begin(self, url):
        self.run("ffplay", "-loglevel", "quiet", "-nodisp", url)


class Vlc(Player):
    name, program, package = "VLC", "vlc", "vlc-bin"
    control = None  # the connection that takes orders, from the first one on

    def begin(self, url):
        # It refuses to run as root.
        user = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"] if os.geteuid() == 0 else []
        if user:
            os.chmod(self.folder, 0o777)
            os.chmod(os.environ["PULSE_RUNTIME_PATH"], 0o711)
        self.run(*user, "vlc", "-I", "qt", "--no-qt-privacy-ask", "--no-qt-error-dialogs", "--extraintf", "oldrc",
                 "--rc-unix=" + self.folder + "/rc", "--rc-fake-tty", "--no-metadata-network-access", "--aout=pulse", url)

    def command(self, line):
        if self.control is None:
            self.control = socket.socket(socket.AF_UNIX)
            self.control.connect(self.folder + "/rc")
        self.control.sendall(line.encode() + b"\n")

    def change(self, url):
        self.command("add " + url)

    def stop(self):
        self.command("stop")

    def end(self):
        if self.control is not None:
            self.control.close()
            self.control = None
        super().end()


class Audacious(Player):
    name, program, package = "Audacious", "audacious", "audacious"

    def begin(self, url):
        self.run("audacious", url)

    def change(self, url):
        self.tell("audacious", url)

    def stop(self):
        self.tell("audtool", "playback-stop")


class Goodvibes(Player):
    name, program, package = "Goodvibes", "goodvibes", "goodvibes"

    def begin(self, url):
        self.run("goodvibes", url)

    def change(self, url):
        self.tell("goodvibes-client", "play", url)

    def stop(self):
        self.tell("goodvibes-client", "stop")


class Strawberry(Player):
    name, program, package = "Strawberry", "strawberry", "strawberry"

    def begin(self, url):
        self.run("strawberry", "--load", "--play", url)

    def change(self, url):
        self.tell("strawberry", "--load", "--play", url)

    def stop(self):
        self.tell("strawberry", "--stop")


ALL = [Lumotune, Engine, Mpv, Ffplay, FfplayBare, Vlc, Audacious, Goodvibes, Strawberry]


class Radio:
    """The demonstration's radio, whose stations differ in their tone."""

    def __init__(self, folder):
        from stations import STATIONS
        audio = os.path.join(TOP, "build", "demo-audio")
        radio = os.path.join(TOP, "demo", "demo_radio")
        subprocess.run([sys.executable, radio, "--audio", audio, "--only-make-audio"], check=True)
        self.stations = [each for each in STATIONS if each.format == "mp3"][:2]
        port_file = os.path.join(folder, "port")
        self.process = subprocess.Popen([sys.executable, radio, "--audio", audio, "--port-file", port_file], **QUIET)
        if not wait_for(lambda: os.path.exists(port_file) and os.path.getsize(port_file)):
            raise RuntimeError("the radio does not start")
        with open(port_file, encoding="ascii") as source:
            self.port = int(source.read())

    def url(self, index):
        return f"http://127.0.0.1:{self.port}{self.stations[index].path(1)}"

    def hertz(self, index):
        return self.stations[index].hertz

    def close(self):
        self.process.terminate()
        self.process.wait()
