# SPDX-License-Identifier: LGPL-2.1-or-later
"""A system of Debian's next release in the user's cache folder, with Wine and a desktop for its programs.

What runs in it has process numbers, mounts and a network of its own, which end with it: also when the script that started it is
killed.
"""
import hashlib
import os
import shutil
import subprocess
import sys
import tempfile
import time

TOP = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
HOME_SUITE, SUITE = "bookworm", "trixie"
PACKAGES = """wine wine64 libgnutls30t64 xvfb xauth openbox trayer xdotool x11-utils x11-xserver-utils imagemagick pulseaudio
    pulseaudio-utils locales fonts-dejavu-core fonts-liberation python3 ffmpeg procps binutils""".split()
NEEDED = {"debootstrap": "debootstrap", "unshare": "util-linux", "setpriv": "util-linux", "ip": "iproute2",
          "i686-w64-mingw32-strip": "binutils-mingw-w64-i686"}

# In the namespaces of its own, before the root is changed: what needs the tools of this system. With lo alone Wine tells
# programs that the machine is not connected; a cable whose two ends are both in here leads nowhere.
ENTER = """set -e
root=$1 network=$2; shift 2
mount -t proc proc "$root/proc"
mount --rbind /dev "$root/dev"
mount -t tmpfs tmpfs "$root/dev/shm"
mount -t tmpfs tmpfs "$root/tmp"
if [ "$network" = own ]; then
  ip link set lo up
  ip link add cable type veth peer name end
  ip address add 192.0.2.1/24 dev cable
  ip link set cable up
  ip link set end up
  ip route add default via 192.0.2.2
fi
exec chroot "$root" "$@"
"""

# Wine runs programs of 32 bits without a Linux of 32 bits, given its own libraries for them, which Debian ships in the packages
# of that architecture only. They are unpacked, not installed.
WINE_32_SCRIPT = """set -e
cd /root
dpkg --add-architecture i386
apt-get -q update
apt-get -q -o APT::Sandbox::User=root download libwine:i386
dpkg --remove-architecture i386
mkdir -p unpacked "$1"
dpkg-deb -x libwine_*_i386.deb unpacked
mv unpacked/usr/lib/i386-linux-gnu/wine/i386-windows "$1/"
cp -n /usr/lib/x86_64-linux-gnu/wine/i386-windows/* "$1/i386-windows/"
ln -s /usr/lib/x86_64-linux-gnu/wine/x86_64-unix "$1/x86_64-unix"
rm -rf unpacked libwine_*_i386.deb
"""


def say(text):
    print(f"second-wine: {text}", flush=True)


class System:
    WINE_32 = "/opt/wine32"

    def __init__(self):
        self.cache = os.path.join(os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache"), "lumotune")
        self.root = os.path.join(self.cache, "second-wine")
        # What it is made of; another makes it anew.
        self.key = hashlib.sha256("\n".join([SUITE, *PACKAGES, WINE_32_SCRIPT]).encode()).hexdigest()

    def path(self, inside):
        return self.root + inside

    def versions(self):
        with open(self.path("/versions"), encoding="utf-8") as source:
            return source.read().strip()

    # A folder whose mounts are not gone is not removed: what is mounted there would be emptied.
    @staticmethod
    def delete(folder):
        with open("/proc/self/mounts", encoding="utf-8") as mounts:
            if any(line.split()[1].startswith(folder + "/") for line in mounts):
                sys.exit(f"second-wine: something is mounted in {folder}")
        shutil.rmtree(folder, ignore_errors=True)

    def remove(self):
        self.delete(self.root)
        for name in os.listdir(self.cache):
            if name.startswith("second-wine.making."):
                self.delete(os.path.join(self.cache, name))
        say("removed")

    def make(self):
        try:
            with open(self.path("/key"), encoding="ascii") as source:
                if source.read() == self.key:
                    return
        except OSError:
            pass
        self.remove()
        self.install_needed()
        final, self.root = self.root, tempfile.mkdtemp(prefix="second-wine.making.", dir=self.cache)
        os.chmod(self.root, 0o755)
        log = os.path.join(self.cache, "second-wine.log")
        try:
            with open(log, "w", encoding="utf-8") as out:
                self.fill(out)
            os.rename(self.root, final)
        except subprocess.CalledProcessError as error:
            with open(log, encoding="utf-8", errors="replace") as source:
                print("".join(source.readlines()[-30:]), file=sys.stderr)
            sys.exit(f"second-wine: failed, see {log}: {' '.join(error.cmd)[-200:]}")
        finally:
            self.delete(self.root)
            self.root = final

    @staticmethod
    def install_needed():
        missing = sorted({package for program, package in NEEDED.items() if not shutil.which(program)})
        if missing:
            say(f"installing {', '.join(missing)}")
            subprocess.run(["apt-get", "-q", "update"], check=True, stdout=subprocess.DEVNULL)
            subprocess.run(["apt-get", "-q", "install", "-y", "--no-install-recommends", *missing], check=True,
                           stdout=subprocess.DEVNULL, env={**os.environ, "DEBIAN_FRONTEND": "noninteractive"})

    @staticmethod
    def server():
        """The address of this system's own server and the file of its keys."""
        lines = subprocess.run([os.path.join(TOP, "tools", "apt-sources"), HOME_SUITE, SUITE], check=True, capture_output=True,
                               text=True).stdout.splitlines()
        words = next(line.split() for line in lines if line.split()[-2] == SUITE)
        keys = next((word.strip("[]").partition("=")[2] for word in words if word.startswith("[signed-by=")), None)
        return words[-3], keys

    def fill(self, log):
        address, keys = self.server()
        self.step(1, f"the base of Debian's {SUITE}")
        include = ["--include=ca-certificates"] if address.startswith("https:") else []
        self.told(log, ["debootstrap", "--variant=minbase", *([f"--keyring={keys}"] if keys else []), *include, SUITE,
                        self.root, address])
        self.step(2, "Wine, a desktop, a sound server (about 320 MB to load)")
        self.configure()
        self.told(log, self.inside(["apt-get", "-q", "update"]))
        self.told(log, self.inside(["apt-get", "-q", "install", "-y", "--no-install-recommends", *PACKAGES]))
        self.step(3, "the Czech language")
        with open(self.path("/etc/locale.gen"), "a", encoding="ascii") as out:
            out.write("cs_CZ.UTF-8 UTF-8\n")
        self.told(log, self.inside(["locale-gen"]))
        self.step(4, "Wine's libraries for 32 bits (about 105 MB to load)")
        self.told(log, self.inside(["bash", "-c", WINE_32_SCRIPT, "bash", self.WINE_32]))
        self.strip(log)
        self.step(5, "what is not needed goes")
        self.told(log, self.inside(["bash", "-c", "apt-get clean; rm -rf /var/lib/apt/lists/* /usr/share/doc/* /usr/share/man/*; "
                                    "dpkg-query -W -f='Wine ${Version}\\n' wine > /versions"]))
        with open(self.path("/key"), "w", encoding="ascii") as out:
            out.write(self.key)

    @staticmethod
    def step(number, text):
        say(f"[{number}/5] {text}")

    def configure(self):
        """Servers, names and proxies as this system has them; no service starts by being installed."""
        policy = self.path("/usr/sbin/policy-rc.d")
        with open(policy, "w", encoding="ascii") as out:
            out.write("#!/bin/sh\nexit 101\n")
        os.chmod(policy, 0o755)
        for name in ("/etc/resolv.conf", "/etc/hosts"):
            shutil.copyfile(name, self.path(name))
        dump = subprocess.run(["apt-config", "dump"], check=True, capture_output=True, text=True).stdout
        with open(self.path("/etc/apt/apt.conf.d/80proxy"), "w", encoding="utf-8") as out:
            out.writelines(line + "\n" for line in dump.splitlines() if line.startswith("Acquire::") and "::Proxy" in line)

    def strip(self, log):
        """Symbols are three quarters of these libraries. Wine tells its own by a mark, which stays."""
        folder = self.path(self.WINE_32) + "/i386-windows"
        for name in sorted(os.listdir(folder)):
            path = os.path.join(folder, name)
            if subprocess.run(["i686-w64-mingw32-strip", "-o", path + ".small", path], check=False, stdout=log,
                              stderr=log).returncode == 0:
                with open(path + ".small", "rb") as small:
                    marked = b"Wine builtin DLL" in small.read(256)
                if marked:
                    os.replace(path + ".small", path)
                    continue
            if os.path.exists(path + ".small"):
                os.remove(path + ".small")

    @staticmethod
    def told(log, command):
        """Runs it and says every quarter of a minute that it still does."""
        environment = {**os.environ, "DEBIAN_FRONTEND": "noninteractive", "LC_ALL": "C"}
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=log, stderr=log, env=environment)
        begun = time.monotonic()
        try:
            while True:
                try:
                    if process.wait(15):
                        raise subprocess.CalledProcessError(process.returncode, command)
                    return
                except subprocess.TimeoutExpired:
                    say(f"      ... {time.monotonic() - begun:.0f} s")
        finally:
            if process.poll() is None:
                process.kill()
                process.wait()

    def inside(self, command, network="shared"):
        """The command that runs it in there. The kernel ends all of it when the process that started it ends."""
        own = ["--net"] if network == "own" else []
        return ["setpriv", "--pdeathsig", "KILL", "unshare", "--mount", "--pid", "--fork", "--kill-child", *own, "bash", "-c",
                ENTER, "bash", self.root, network, *command]

    def run(self, command, folder, words, seconds):
        """Without a network beyond this machine; its exit status, None when it did not end in time."""
        environment = {"PATH": "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin", "HOME": "/root", "USER": "root",
                       "LANG": "cs_CZ.UTF-8", "LC_ALL": "cs_CZ.UTF-8", **words}
        # The first process of a system has to wait for those that lost their parents, which a shell does.
        shell = ["env", "--chdir=" + folder, "bash", "-c", '"$@"; exit $?', "bash"]
        process = subprocess.Popen(self.inside([*shell, *command], "own"), stdin=subprocess.DEVNULL, env=environment)
        try:
            return process.wait(seconds)
        except subprocess.TimeoutExpired:
            say(f"not ended after {seconds} s")
            return None
        finally:
            if process.poll() is None:
                process.kill()
                process.wait()
