"""Each command on a machine that is full, held, read-only, unreadable or damaged."""
import contextlib
import os
import random
import shutil
import sqlite3
import subprocess
import time
from concurrent.futures import ThreadPoolExecutor

from hard_mode.machine import difference, files, values

READS = (("list",), ("document", "Marked", "-l"), ("printer", "Marked", "-l"), ("forms", "Plain"),
         ("profile", "Plain"))
# Stores the first list where it can, and shows the page in any case.
FIRST_LIST = ("document", "Bare", "-l")
WRITES = (
    ("document", "Plain", "-o", "Copies=7", "--apply"),
    ("document", "Plain", "-o", "Watermark=Enabled", "--edit", "SCRIPT", "--apply"),
    ("printer", "Plain", "-o", "Tray2=NOTINSTALLED", "--apply"),
    ("forms", "Plain", "--add", "Banner=210x900"),
    ("install", "Fresh", "--model", "U", "--port", "USB009"),
    ("remove", "Marked"),
    ("uninstall", "--model", "T"),
)
COMMANDS = (*READS, FIRST_LIST, *WRITES)
STORE, SYSTEM, DRIVERS = "registry.sqlite", "Windows/System32", "Windows/System32/spool/drivers/x64/3"
MODULE, SETTINGS = f"{DRIVERS}/QVRT__UI.DLL", ("Windows/QVRT__WM.INI", "Windows/QVRT_UNI.INI")
NOBODY = "65534"


class Damage:
    """What is done to a machine (`harm`), what a command is run by (`wrap`; both are given the
    machine and a seeded draw) or at the side of (`held`); whether reading works all the same
    (`reads`), whether the store itself is `whole`, and how many draws a quick run takes."""

    def __init__(self, name, harm=None, wrap=None, held=None, reads=False, whole=True, draws=1):
        self.name, self.harm, self.wrap, self.held = name, harm, wrap, held
        self.reads, self.whole, self.draws = reads, whole, draws


# The mounts are the command's own; what it leaves on the disk is brought back before they go.
FULL_DISK = '''machine=$1 copy=$1.copy left=$2; shift 2
cp -a "$machine" "$copy" && mount -t tmpfs -o size=4m none "$machine" && cp -a "$copy/." "$machine" &&
head -c "${left}K" /dev/zero >"$machine/room" && { cat /dev/zero >"$machine/filler"; rm "$machine/room"; } 2>&-
"$@"; code=$?; sleep 0.3; rm "$machine/filler"; rm -r "$copy"; cp -a "$machine" "$copy"
umount "$machine" && rm -r "$machine" && mv "$copy" "$machine"; exit $code'''
READ_ONLY = 'mount --bind "$1" "$1" && mount -o remount,ro,bind "$1" && shift && exec "$@"'
# Signal 25 would end the process; ignored, the write fails as on a full disk.
SMALL_FILES = 'trap "" 25; shift; exec prlimit --fsize=4096 "$@"'


def shell(script, *words):
    return ["sh", "-c", script, "sh", *map(str, words)]


def in_namespace(script, *words):
    return ["unshare", "-m" if os.geteuid() == 0 else "-rm", *shell(script, *words)]


def full_disk(free=None):
    """So many KiB are left, on a disk of its own; drawn when not given."""
    return lambda machine, draw: in_namespace(FULL_DISK, machine,
                                              draw.randrange(0, 400, 4) if free is None else free)


def lock_away(name):
    def harm(machine, draw):
        if os.geteuid() == 0:
            subprocess.run(["chown", "-R", NOBODY, machine.parent], check=True)
        (machine / name).chmod(0)
    return harm


def as_nobody(machine, draw):
    return ["setpriv", "--reuid", NOBODY, "--regid", NOBODY, "--clear-groups"] if os.geteuid() == 0 else []


@contextlib.contextmanager
def hold_store(machine):
    with contextlib.closing(sqlite3.connect(machine / STORE)) as store:
        store.execute("BEGIN EXCLUSIVE")
        yield


def rewrite(name, change):
    return lambda machine, draw: (machine / name).write_bytes(change((machine / name).read_bytes(), draw))


def one_byte(content, draw):
    place = draw.randrange(len(content))
    return content[:place] + bytes([content[place] ^ draw.randrange(1, 256)]) + content[place + 1:]


def later_format(machine, draw):
    with contextlib.closing(sqlite3.connect(machine / STORE)) as store:
        store.execute("PRAGMA user_version = 99")


def replace(name, make):
    return lambda machine, draw: ((machine / name).unlink(), make(machine / name))


def lead_outside(name):
    """A link to a file, a program or a folder beside the machine; nothing there may change."""
    def harm(machine, draw):
        inside, target = machine / name, machine.parent / "outside" / os.path.basename(name)
        target.parent.mkdir()
        if inside.exists():
            shutil.move(inside, target)
        else:
            target.write_text("outside")
        if name.endswith(".EXE"):
            target.write_text('#!/bin/sh\ntouch "$(dirname "$(readlink -f "$0")")/ran"\n')
        inside.symlink_to(target)
    return harm


DAMAGES = (
    *(Damage(f"disk with {free} KiB left", wrap=full_disk(free), reads=True) for free in (0, 12, 40)),
    Damage("disk with little left", wrap=full_disk(), reads=True, draws=3),
    Damage("files of 4 KiB at most", wrap=lambda machine, draw: shell(SMALL_FILES, machine)),
    Damage("folder that is read-only", wrap=lambda machine, draw: in_namespace(READ_ONLY, machine), reads=True),
    Damage("store that another process holds", held=hold_store, reads=True),
    *(Damage(f"unreadable {name or 'machine'}", lock_away(name), as_nobody)
      for name in ("", STORE, "Windows", MODULE, *SETTINGS)),
    Damage("store with one byte changed", rewrite(STORE, one_byte), whole=False, draws=4),
    Damage("store cut in its last page",
           rewrite(STORE, lambda data, draw: data[:-draw.randrange(1, 4096)]), whole=False, draws=2),
    Damage("store of one byte", rewrite(STORE, lambda data, draw: data[:1]), whole=False),
    Damage("store of random bytes",
           rewrite(STORE, lambda data, draw: draw.randbytes(draw.randrange(2, 1 << 16))), whole=False, draws=2),
    Damage("store of a later format", later_format, whole=False),
    Damage("module cut short", rewrite(MODULE, lambda data, draw: data[:draw.randrange(len(data))]), draws=4),
    Damage("module that is empty", rewrite(MODULE, lambda data, draw: b"")),
    *(Damage(f"{name} that is a {kind}", replace(name, make)) for name in SETTINGS
      for kind, make in (("folder", os.mkdir), ("pipe", os.mkfifo))),
    *(Damage(f"{name} that leads outside", lead_outside(name)) for name in (
        *SETTINGS, MODULE, f"{DRIVERS}/QVRU__UI.DLL.new", DRIVERS, f"{SYSTEM}/QVR_UNINST.EXE", "machine.log")),
)


class State:
    """All that a command could have overwritten."""

    def __init__(self, machine, damage):
        self.files, self.outside = files(machine), files(machine.parent / "outside", ())
        self.store = files(machine, ()).get(STORE)
        self.values = values(machine) if damage.whole else None


def judge(damage, words, outcome, before, now, after):
    """`before` and `now` the machine, `after` the values that the command leaves on a sound one."""
    if fault := outcome.fault((0,) if damage.reads and words in READS else (0, 1)):
        return fault
    if left := [name for name in now.files if name.endswith(".new") and name not in before.files]:
        return f"left: {left[0]}"
    if now.outside != before.outside:
        return "touched outside: " + difference(now.outside, before.outside)
    if outcome.code == 0:
        undone = damage.whole and words in WRITES and None not in (now.values, before.values) and now.values != after
        return "exit code 0, but not done: " + difference(now.values, after) if undone else None
    if not damage.whole and now.store != before.store:
        return "overwrote the damaged store"
    lost = [name for name in before.files if now.files.get(name) != before.files[name]]
    lost += [path for path, value in (before.values or {}).items()
             if now.values is not None and now.values.get(path) not in (value, after.get(path))]
    return f"overwrote {lost[0]}" if lost and words[0] != "uninstall" else None


def attempt(host, damage, words, draw, after):
    with host.machine() as machine:
        if damage.harm:
            damage.harm(machine, draw)
        before = State(machine, damage)
        with damage.held(machine) if damage.held else contextlib.nullcontext():
            outcome = host.run(machine, *words, wrap=damage.wrap(machine, draw) if damage.wrap else ())
        time.sleep(0.2 if words[0] == "uninstall" else 0)
        return judge(damage, words, outcome, before, State(machine, damage), after)


def can_be_done(damage, host):
    """Not everywhere may a process mount, or be another user."""
    with host.machine() as machine:
        words = damage.wrap(machine, random.Random(1)) if damage.wrap else []
        return subprocess.run([*words, "true"], stderr=subprocess.DEVNULL, timeout=60).returncode == 0


def values_after(host, words):
    with host.machine() as machine:
        host.must(machine, *words)
        return values(machine)


def run(host, options, report):
    after = {words: values_after(host, words) for words in COMMANDS}
    cannot = {damage.name for damage in DAMAGES if not can_be_done(damage, host)}
    for name in sorted(cannot):
        report.note(f"left out, not allowed here: {name}")
    cases = [(damage, words, copy) for damage in DAMAGES
             for copy in range(10 * damage.draws if damage.draws > 1 else 1) for words in COMMANDS]

    def case(number):
        damage, words, copy = cases[number]
        draw = random.Random(f"{options.seed}/damage/{damage.name}/{copy}")
        fault = attempt(host, damage, words, draw, after[words])
        report.tried(1, [f"{damage.name}, {' '.join(words[:2])}: {fault}"] if fault else [],
                     f"damage --case {number}")

    chosen = [number for number, (damage, _, copy) in enumerate(cases)
              if damage.name not in cannot and (options.full or copy < damage.draws)]
    with ThreadPoolExecutor(2) as pool:
        list(pool.map(case, options.chosen(chosen)))
