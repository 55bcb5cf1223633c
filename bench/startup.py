#!/usr/bin/env python3
"""Time from process start to the painted window, and memory at rest, of several programs in turn on
one virtual display.

    bench/startup.py [--runs N] PROGRAM...

A program is painted when a fifth of the screen's sample points have changed; memory is the
proportional set size (PSS) two seconds later. Needs Xvfb. Each program is a command line; it runs in a
home folder of its own, once to warm up and then N times, the programs taking turns.
"""
import argparse
import mmap
import os
import shlex
import signal
import statistics
import subprocess
import tempfile
import time

WIDTH, HEIGHT, BYTES_PER_PIXEL = 1280, 1024, 4
STEP = 16               # pixels between sample points
PAINTED_SHARE = 0.2     # of the sample points
TIMEOUT = 30.0          # seconds
REST = 2.0              # seconds until memory is read


class Display:
    """A virtual display whose picture can be read straight from memory."""

    def __init__(self):
        self.folder = tempfile.mkdtemp()
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir",
             self.folder, "-nolisten", "tcp"], pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            self.name = ":" + pipe.readline().strip()
        with open(os.path.join(self.folder, "Xvfb_screen0"), "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        self.start = len(self.memory) - WIDTH * HEIGHT * BYTES_PER_PIXEL

    def sample(self):
        row = WIDTH * BYTES_PER_PIXEL
        starts = (self.start + y * row + x * BYTES_PER_PIXEL
                  for y in range(0, HEIGHT, STEP) for x in range(0, WIDTH, STEP))
        return [self.memory[start:start + 3] for start in starts]

    def close(self):
        self.server.terminate()
        self.server.wait()


def memory_of(group):
    """PSS in MiB of all processes of a process group."""
    total = 0
    for entry in filter(str.isdigit, os.listdir("/proc")):
        try:
            if os.getpgid(int(entry)) != group:
                continue
            with open(f"/proc/{entry}/smaps_rollup") as file:
                total += next(int(line.split()[1]) for line in file if line.startswith("Pss:"))
        except (OSError, StopIteration):
            continue
    return total / 1024


def measure(display, command, home):
    environment = dict(os.environ, DISPLAY=display.name, HOME=home, XDG_CONFIG_HOME=home + "/config",
                       XDG_RUNTIME_DIR=home, QT_QPA_PLATFORM="xcb")
    blank = display.sample()
    started = time.monotonic()
    program = subprocess.Popen(shlex.split(command), env=environment, start_new_session=True,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        while True:
            changed = sum(a != b for a, b in zip(blank, display.sample()))
            elapsed = time.monotonic() - started
            if changed >= PAINTED_SHARE * len(blank):
                break
            if elapsed > TIMEOUT or program.poll() is not None:
                raise SystemExit(f"{command}: shows no window")
        time.sleep(REST)
        return elapsed * 1000, memory_of(program.pid)
    finally:
        os.killpg(program.pid, signal.SIGKILL)
        program.wait()
        time.sleep(0.5)


def main():
    arguments = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    arguments.add_argument("--runs", type=int, default=7)
    arguments.add_argument("programs", nargs="+")
    options = arguments.parse_args()
    display = Display()
    results = {program: [] for program in options.programs}
    homes = {program: tempfile.mkdtemp() for program in options.programs}
    try:
        for run in range(options.runs + 1):
            for program in options.programs:
                figures = measure(display, program, homes[program])
                if run > 0:
                    results[program].append(figures)
    finally:
        display.close()
    print(f"{'program':40} {'painted ms (median, min)':>26} {'memory MiB (median)':>20}")
    for program, figures in results.items():
        times, memory = zip(*figures)
        print(f"{program[-40:]:40} {statistics.median(times):15.0f} {min(times):10.0f}"
              f" {statistics.median(memory):20.1f}")


if __name__ == "__main__":
    main()
