"""Runs the driver host on machine folders of its own and tells what is stored in them."""
import contextlib
import hashlib
import os
import re
import shutil
import signal
import sqlite3
import subprocess
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LIMIT = 20  # seconds that a command may take
ENVIRONMENT = dict(os.environ, QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8")
# A bare number, or the words of a library, tell a person nothing.
UNCLEAR = re.compile(r"failed \(error \d+\)|: *\(error \d+\)|filesystem error|std::|basic_|vector::|"
                     r"json\.exception|bad_alloc|terminate called")
# Replaces an entry, so that a second time gives the same.
EDIT = 'press New\ntype Name "Copy"\ntype String "HARD"\npress OK\nanswer Yes\nanswer OK\n'


class Outcome:
    def __init__(self, code, out, err):
        self.code, self.out, self.err = code, out, err

    def fault(self, codes=(0,)):
        """What is wrong with the end of a command, or None."""
        words = " ".join(self.err.split())[-160:]
        if self.code is None:
            return f"did not end within {LIMIT} s"
        if self.code not in codes:
            return f"exit code {self.code}: {words}"
        if UNCLEAR.search(self.err):
            return f"unclear error: {words}"
        return None if self.code == 0 or words else "failed without a word"


class Host:
    """The driver host, with what every section shares: a folder for machines and a template."""

    def __init__(self, program, folder):
        self.program, self.folder, self.template = str(program), Path(folder), Path(folder) / "template"
        self.script = self.folder / "edit.script"
        self.script.write_text(EDIT)

    def start(self, machine, words, wrap=(), **options):
        words = [str(self.script) if word == "SCRIPT" else word for word in words]
        return subprocess.Popen([*wrap, self.program, "--machine", str(machine), *words], env=ENVIRONMENT,
                                stdin=subprocess.DEVNULL, start_new_session=True, **options)

    def run(self, machine, *words, wrap=()):
        process = self.start(machine, words, wrap, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                             encoding="utf-8", errors="replace")
        try:
            out, err = process.communicate(timeout=LIMIT)
            return Outcome(process.returncode, out, err)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)  # the session that it leads
            process.wait()
            return Outcome(None, "", "")

    def must(self, machine, *words):
        outcome = self.run(machine, *words)
        if outcome.code != 0:
            raise RuntimeError(f"{' '.join(words)}: {outcome.fault()}")

    def prepare(self):
        """Printers of two models; one without a stored list ("Bare"), one with an edited one."""
        for name, model in (("Plain", "T"), ("Marked", "T"), ("Bare", "T"), ("Lone", "V")):
            self.must(self.template, "install", name, "--model", model, "--port", "USB001")
            if name != "Bare":
                self.must(self.template, "document", name, "-l")
        self.must(self.template, "document", "Marked", "-o", "Watermark=Enabled", "--edit", "SCRIPT",
                  "--apply")

    @contextlib.contextmanager
    def machine(self):
        with tempfile.TemporaryDirectory(dir=self.folder, ignore_cleanup_errors=True) as holder:
            os.chmod(holder, 0o755)
            yield Path(shutil.copytree(self.template, Path(holder) / "machine"))


def values(machine):
    """Every stored value by its path, or None when the store cannot be read."""
    try:
        with contextlib.closing(sqlite3.connect(machine / "registry.sqlite")) as store:
            keys = {row[0]: row[1:] for row in store.execute("SELECT id, parent, name FROM keys")}
            rows = store.execute('SELECT key, name, type, bytes FROM "values"').fetchall()
    except sqlite3.Error:
        return None

    def path(key):
        parent, name = keys.get(key, (None, "nowhere"))
        return name if parent is None else path(parent) + "\\" + name

    return {path(key) + "\\" + name: (kind, bytes(content)) for key, name, kind, content in rows}


def files(folder, apart=("registry.sqlite", "machine.log")):
    """The files of a folder with their hashes; of a machine's the store is judged by its values."""
    found = {}
    for path in folder.rglob("*"):
        if path.is_file() and path.name not in apart:
            with contextlib.suppress(OSError):
                found[str(path.relative_to(folder))] = hashlib.sha256(path.read_bytes()).hexdigest()
    return found


def settled(machine, expected):
    """The files, as soon as they are the expected ones: an uninstaller may still be at work."""
    end = time.monotonic() + 5
    while files(machine) != expected and time.monotonic() < end:
        time.sleep(0.05)
    return files(machine)


def difference(found, expected):
    """The first names under which two maps differ."""
    names = sorted(name for name in found.keys() | expected.keys() if found.get(name) != expected.get(name))
    return ", ".join(name.split("Print\\")[-1] for name in names[:3]) + (" ..." if names[3:] else "")
