"""Eight processes at work on one machine: nothing lost, nothing failing for another's sake."""
import json
import random
import time
from concurrent.futures import ThreadPoolExecutor

from hard_mode.machine import files

WORKERS = 8
EDIT = ("-o", "Watermark=Enabled", "--edit", "SCRIPT", "--apply")
# This printer comes and goes under everybody's hands: it may be gone, or there, so 1 is an answer too.
MOVING = (("install", "Moving", "--model", "T", "--port", "USB010"), ("remove", "Moving"),
          ("document", "Moving", "-l"))


class Worker:
    """One process after the other, on a printer of its own and on those of all."""

    def __init__(self, host, machine, number, seed):
        self.host, self.machine, self.number = host, machine, number
        self.draw = random.Random(f"{seed}/many/{number}")
        # The last worker installs and uninstalls a model that nobody else uses.
        self.model = "V" if number == WORKERS - 1 else "TU"[number % 2]
        self.name, self.copies, self.forms, self.count, self.faults = f"Own{number}", 1, [], 0, []

    def go(self, *words, codes=(0,)):
        outcome = self.host.run(self.machine, *words)
        self.count += 1
        if fault := outcome.fault(codes):
            self.faults.append(f"{' '.join(words[:2])}: {fault}")
        return outcome

    def install(self):
        self.copies = 1
        for _ in range(3):  # one failure is to be told once, not by all that follows
            if self.go("install", self.name, "--model", self.model, "--port", "USB011").code == 0:
                break

    def reinstall(self):
        self.go(*(("uninstall", "--model", "V") if self.model == "V" else ("remove", self.name)))
        self.install()

    def set_copies(self):
        self.copies = self.draw.randint(2, 99)
        self.go("document", self.name, "-o", f"Copies={self.copies}", "--apply")

    def add_form(self):
        self.forms.append(f"Form{self.number}-{len(self.forms)}")
        self.go("forms", self.name, "--add", f"{self.forms[-1]}=210x300")

    def look(self):
        page, printers = self.go("document", self.name, "-l"), self.go("list", "--json")
        if page.code == 0 and f"*{self.copies}\n" not in page.out:
            self.faults.append(f"{self.name}: the copies are not those set")
        if printers.code == 0 and not {self.name, "Plain", "Marked"} <= {
                printer["name"] for printer in json.loads(printers.out)}:
            self.faults.append("list: a printer is missing")

    def use(self):
        copies = f"Copies={self.draw.randint(1, 99)}"
        self.go(*self.draw.choice((
            ("document", self.name, *EDIT), ("document", "Marked", *EDIT), ("printer", self.name, "-l"),
            ("document", "Plain", "-o", copies, "--apply"), ("forms", "Plain"), ("profile", self.name),
            ("printer", "Plain", "-o", "Tray2=NOTINSTALLED", "--apply"))))

    def move(self):
        self.go(*self.draw.choice(MOVING), codes=(0, 1))

    def work(self, end):
        self.install()
        while time.monotonic() < end:
            self.draw.choice((self.reinstall, self.set_copies, self.add_form, self.look, self.use, self.use,
                              self.move))()

    def finish(self):
        self.look()
        papers = self.go("forms", self.name).out
        self.faults += [f"form {form} is lost" for form in self.forms if form not in papers]


def all_commands(host, options, report, pool):
    with host.machine() as machine:
        for model in "UV":
            host.must(machine, "install", f"Keeps {model}", "--model", model, "--port", "USB007")
        host.must(machine, "uninstall", "--model", "V")
        time.sleep(0.5)
        workers = [Worker(host, machine, number, options.seed) for number in range(WORKERS)]
        end = time.monotonic() + options.share(60, 10)
        list(pool.map(lambda worker: worker.work(end), workers))
        for worker in workers:
            worker.finish()
            report.tried(worker.count, worker.faults, "many")


def first_use(host, number, report, pool):
    """All at once on a machine that is not there yet."""
    machine = host.folder / f"first{number}"
    commands = [("list",)] * 2 + [("install", f"Own{each}", "--model", "TUV"[each % 3], "--port", "USB001")
                                  for each in range(WORKERS - 2)]
    outcomes = list(pool.map(lambda words: host.run(machine, *words), commands))
    found = host.run(machine, "list").out
    faults = [f"first use, {words[0]}: {outcome.fault() or 'lost'}"
              for words, outcome in zip(commands, outcomes)
              if outcome.fault() or words[-1] == "USB001" and words[1] + "\n" not in found]
    report.tried(WORKERS, faults, "many")


def uninstall_then_install(host, report):
    """The uninstaller that is still at work takes nothing of what comes after it."""
    with host.machine() as machine:
        expected, faults = files(machine), []
        for words in (("uninstall", "--model", "T"),
                      ("install", "After", "--model", "T", "--port", "USB001"), ("document", "After", "-l")):
            time.sleep(0.3 if words[0] == "document" else 0)
            faults += [fault] if (fault := host.run(machine, *words).fault()) else []
        faults += [f"{name} is gone" for name in sorted(expected.keys() - files(machine).keys())]
        report.tried(1, ["uninstall, install: " + "; ".join(faults)] if faults else [], "many")


def run(host, options, report):
    with ThreadPoolExecutor(WORKERS) as pool:
        all_commands(host, options, report, pool)
        for number in range(options.share(60, 6)):
            first_use(host, number, report, pool)
            uninstall_then_install(host, report)
