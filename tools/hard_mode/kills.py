"""Kills a writing command at a random time; afterwards all must be old or new, and work."""
import os
import random
import signal
import subprocess
import time
from concurrent.futures import ThreadPoolExecutor

from hard_mode.machine import difference, files, settled, values

COMMANDS = (
    ("install", "Fresh", "--model", "U", "--port", "IP_127.0.0.9"),
    ("install", "Second", "--model", "T", "--port", "USB009"),
    ("remove", "Marked"),
    ("uninstall", "--model", "T"),
    ("document", "Plain", "-o", "Copies=7", "--apply"),
    ("document", "Plain", "-o", "Watermark=Enabled", "--edit", "SCRIPT", "--apply"),
    ("forms", "Plain", "--add", "Banner=210x900"),
    ("printer", "Plain", "-o", "Tray2=NOTINSTALLED", "--apply"),
)
# Registering a printer names this one; the plug-in puts its own in place when it hears of it.
FIRST_PROCESSOR = "winprint".encode("utf-16-le")


class Reference:
    """What a command leaves when nobody kills it."""

    def __init__(self, host, words):
        with host.machine() as machine:
            self.old, began = values(machine), time.monotonic()
            host.must(machine, *words)
            self.seconds = time.monotonic() - began
            time.sleep(0.5)  # for the uninstaller
            self.new, self.files = values(machine), files(machine)

    def strange_values(self, now):
        return [path for path in now.keys() | self.old.keys() | self.new.keys()
                if now.get(path) not in (self.old.get(path), self.new.get(path))
                and (path in self.old or FIRST_PROCESSOR not in now[path][1])]


def judge(host, machine, words, reference):
    looks = [("list", "--json"), ("document", "Lone", "--json")]
    faults = [f"{look[0]}: {fault}" for look in looks if (fault := host.run(machine, *look).fault())]
    now = values(machine)
    if now is None or reference.strange_values(now):
        faults += ["neither old nor new: " + (reference.strange_values(now)[0] if now else "the store")]
    # Where the killed command had come to its end, it may say that there is nothing left to do.
    again = host.run(machine, *words).fault((0, 1) if now == reference.new else (0,))
    if again:
        return faults + ["again: " + again]
    if (now := values(machine)) != reference.new:
        faults.append("values after it again: " + difference(now or {}, reference.new))
    left = settled(machine, reference.files)
    return faults + (["files after it again: " + difference(left, reference.files)]
                     if left != reference.files else [])


def run(host, options, report):
    references = [Reference(host, words) for words in COMMANDS]

    def case(number):
        words, reference = COMMANDS[number % len(COMMANDS)], references[number % len(COMMANDS)]
        share = random.Random(f"{options.seed}/kills/{number}").uniform(0, 1.1)
        with host.machine() as machine:
            process = host.start(machine, words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            time.sleep(share * reference.seconds)
            os.kill(process.pid, signal.SIGKILL)
            process.wait()
            faults = judge(host, machine, words, reference)
        report.tried(1, [f"{' '.join(words[:2])}, killed: {'; '.join(faults)}"] if faults else [],
                     f"kills --case {number}")

    with ThreadPoolExecutor(2) as pool:
        list(pool.map(case, options.chosen(range(1000 if options.full else 240))))
