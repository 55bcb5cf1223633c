#!/usr/bin/env python3
"""Makes the Debian package, installs it in a root of its own, and uses the installed programs there
through the keyboard, as a user who can't write the program's folder; then purges the package.

    installed_package.py BUILD_FOLDER
"""

import contextlib
import gzip
import os
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

BUILD = Path(sys.argv[1]).resolve()
IS_ROOT = os.geteuid() == 0
NOBODY = 65534
PATIENCE = 30  # seconds, for a machine under load
# Where whoever runs this is not root, the root of a namespace owns what is installed.
AS_ROOT = [] if IS_ROOT else ["unshare", "--map-root-user"]
AS_USER = ["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups"] if IS_ROOT else []


def run(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, encoding="utf-8",
                          stdout=subprocess.PIPE, **options).stdout


def wait_for(condition, what):
    """The first value of the condition that counts as true."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if value := condition():
            return value
        time.sleep(0.02)
    sys.exit(f"waited in vain for {what}")


def check(holds, what):
    if not holds:
        sys.exit(f"not so: {what}")


class Root:
    """A root with a package system of its own."""

    def __init__(self, folder):
        self.folder = folder
        for name in ("info", "updates", "triggers"):
            (folder / "var/lib/dpkg" / name).mkdir(parents=True)
        (folder / "var/lib/dpkg/status").touch()
        self.bin = folder / "usr/bin"
        self.program = folder / "usr/lib/quillon"

    def dpkg(self, *arguments):
        run(*AS_ROOT, "dpkg", f"--root={self.folder}", "--force-depends",
            "--force-script-chrootless", f"--log={self.folder}/../dpkg.log", *arguments,
            stderr=subprocess.DEVNULL,
            env={**os.environ, "PATH": "/usr/local/sbin:/usr/sbin:/sbin:" + os.environ["PATH"]})

    def files(self):
        """All but those of the package system."""
        return [path for path in self.folder.rglob("*")
                if path.is_symlink() or not path.is_dir()
                if not path.is_relative_to(self.folder / "var/lib/dpkg")]


@contextlib.contextmanager
def display():
    """A display without a window manager; yields its name. It doesn't start anew when the last program
    leaves, or the next one might find it closed."""
    reading, writing = os.pipe()
    with subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24",
                           "-nolisten", "tcp", "-ac", "-noreset"],
                          pass_fds=[writing], stderr=subprocess.DEVNULL) as server:
        os.close(writing)
        try:
            with os.fdopen(reading) as pipe:
                yield ":" + pipe.readline().strip()
        finally:
            server.terminate()


class Quillon:
    """The installed program, run by its user from start to Exit."""

    def __init__(self, root, screen, home, limits=()):
        self.environment = {"HOME": str(home), "PATH": f"{root.bin}:{os.environ['PATH']}",
                            "DISPLAY": screen, "LANG": "C.UTF-8", "QT_QPA_PLATFORM": "xcb",
                            "XDG_RUNTIME_DIR": str(home)}
        # Signals stay as Python has them: without SIGXFSZ, a limit looks like a full disk.
        self.process = subprocess.Popen([*AS_USER, *limits, "quillon"], cwd="/",
                                        env=self.environment, restore_signals=False)
        if limits:  # a box tells what went wrong
            self.use(self.window("^Quillon$"), "Return")
        self.main = self.window("^Quillon$", narrowest=800)  # neither the splash nor the box

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout

    def find(self, title, narrowest):
        check(self.process.poll() is None, "the program runs")
        for window in self.xdotool("search", "--onlyvisible", "--name", title).split():
            geometry = self.xdotool("getwindowgeometry", "--shell", window)
            width = re.search(r"WIDTH=(\d+)", geometry)
            if width and int(width[1]) >= narrowest:
                return window
        return None

    def window(self, title, narrowest=0):
        return wait_for(lambda: self.find(title, narrowest), f"the window {title}")

    def use(self, window, *keys):
        """Presses keys in a window; what begins with "=" is typed."""
        self.xdotool("windowfocus", "--sync", window)
        for key in keys:
            if key.startswith("="):
                self.xdotool("type", key[1:])
            else:
                self.xdotool("key", key)

    def answer(self, title, *keys):
        """Uses a dialog that opens, to its end."""
        dialog = self.window(title)
        self.use(dialog, *keys)
        wait_for(lambda: not self.find(title, 0), f"the end of {title}")

    def save(self, title, path):
        self.use(self.main, "ctrl+s")
        self.answer(title, f"={path}", "Return")
        wait_for(path.is_file, path)
        return self.cli("rtf2text", path)

    def cli(self, *arguments, **options):
        return run(*AS_USER, "quillon-cli", *arguments, env=self.environment, **options)

    def leave(self):
        self.use(self.main, "ctrl+q")
        check(self.process.wait(PATIENCE) == 0, "the program ends well")


def do_the_main_job(user, home, own):
    """Writes, undoes, transcribes, saves."""
    user.use(user.main, "=lamps", "BackSpace", "ctrl+z", "End", "= burned")
    wait_for((own / "rom0001.tmp").is_file, "the undo history in the user's folder")
    check(user.save("^Save Source", home / "source.rtf").strip() == "lamps burned", "undo works")
    user.use(user.main, "ctrl+t")
    user.answer("^Modes$", "=Eng", "alt+t")
    user.use(user.main, "ctrl+Tab")
    expected = user.cli("transcribe", "--mode", "English", input="lamps burned").strip()
    check(len(expected) > 5, "quillon-cli transcribes")
    check(user.save("^Save Target", home / "target.rtf").strip() == expected, "both transcribe alike")


def delete_and_restore(user, own):
    user.use(user.main, "alt+t", "m")
    user.use(user.window("^Modes$"), "=Bel", "alt+d")
    user.answer("^Delete mode$", "alt+y")
    user.answer("^Modes$", "Escape")
    check(not (own / "Modes/Beleriand.mod").exists(), "the mode is deleted")
    check("Beleriand" not in user.cli("mode", "list"), "quillon-cli has the same modes")

    user.use(user.main, "alt+t", "m")
    user.use(user.window("^Modes$"), "=Que", "alt+r")
    user.answer("^Restore mode$", "alt+y")
    user.answer("^Mode restored$", "Return")
    user.answer("^Modes$", "Escape")
    check((own / "Quenya.mod").read_bytes() == (own / "Quenya.bak").read_bytes(), "it is restored")


def use_installed(root, home):
    own = home / ".local/share/quillon/program"
    installed_modes = {path.name for path in (root.program / "Modes").iterdir()}
    with display() as screen:
        user = Quillon(root, screen, home)
        do_the_main_job(user, home, own)
        user.use(user.main, "F1")
        user.window("^Quillon Help$")
        delete_and_restore(user, own)
        user.leave()
        check(not list(own.glob("*.tmp")), "the undo history is gone")

        Quillon(root, screen, home).leave()
        modes = {path.name for path in (own / "Modes").iterdir()}
        check(modes == installed_modes - {"Beleriand.mod"}, "what was deleted stays away")
        for name in ("Beleriand.bak", "Source.tpl", "Target.tpl", "Quillon.hlp"):
            check((own / name).is_file(), f"{name} is seeded")

        user = Quillon(root, screen, Path("/proc/none"))  # nowhere to write at all
        check("Beleriand" in user.cli("mode", "list"), "the installed modes are used")
        user.leave()


def use_on_full_disk(root, home):
    """A start that can't copy the larger modes, and the next one."""
    seeded = home / ".local/share/quillon/program/Seeded.txt"
    with display() as screen:
        Quillon(root, screen, home, ["prlimit", "--fsize=8192"]).leave()
        check(not seeded.exists(), "the folder doesn't count as seeded")
        Quillon(root, screen, home).leave()
        check(seeded.exists(), "it does when there is room")


def check_version(root, package):
    version = run("dpkg-deb", "--field", package, "Version").partition("-")[0]
    check(run(root.bin / "quillon-cli", "--version").split()[1] == version, "one version")
    with gzip.open(root.folder / "usr/share/doc/quillon/changelog.gz", "rt") as changelog:
        check(f"\n## {version} " in changelog.read(), "the changelog knows the version")


def main():
    with tempfile.TemporaryDirectory() as temporary:
        folder = Path(temporary)
        folder.chmod(0o755)
        run("cpack", "--config", BUILD / "CPackConfig.cmake", "-B", folder / "package")
        [package] = (folder / "package").glob("*.deb")
        root = Root(folder / "root")
        root.dpkg("--install", package)
        check_version(root, package)

        for use in (use_installed, use_on_full_disk):
            home = folder / use.__name__
            home.mkdir(0o700)
            if IS_ROOT:
                os.chown(home, NOBODY, NOBODY)
            root.program.chmod(0o555)
            use(root, home)

        root.program.chmod(0o755)
        (root.program / "Quenya.mod").touch()  # an administrator has restored a mode
        root.dpkg("--purge", "quillon")
        check(not root.files(), f"purging leaves nothing behind, but {root.files()}")


main()
