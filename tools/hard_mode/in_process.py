"""The parts that run inside one process, under sanitizers: failure sweep, bit flips, printer, fuzz."""
import re
import subprocess
import tempfile

from hard_mode.machine import ENVIRONMENT, ROOT

PROGRAMS = ROOT / "build/asan/bin"
SANITIZED = dict(ENVIRONMENT, UBSAN_OPTIONS="print_stacktrace=1", ASAN_OPTIONS="quarantine_size_mb=8",
                 LSAN_OPTIONS=f"suppressions={ROOT}/.ci/lsan.supp:print_suppressions=0")
EVERY = {"sweep": 100, "bits": 100, "printer": 10}  # --quick runs every n-th case
# Inputs of a full run; a target that is not here is small and gets ten million.
LARGE_TARGETS = {"document_page": 1_000_000, "editor_opening": 100_000}
QUICK_SECONDS, QUICK_LIMIT, FULL_LIMIT = 8, 300, 24 * 60 * 60
TRIED = re.compile(r"tried (\d+), violations (\d+)")
TOLD = re.compile(r"^violation: (.*?): (.*)$", re.MULTILINE)


def start(words, options):
    try:
        done = subprocess.run(words, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, cwd=ROOT,
                              stderr=subprocess.STDOUT, env=SANITIZED,
                              timeout=FULL_LIMIT if options.full else QUICK_LIMIT)
        return done.returncode, done.stdout.decode(errors="replace")
    except subprocess.TimeoutExpired as late:
        return None, (late.stdout or b"").decode(errors="replace") + "\nERROR: did not end in time"


def last_words(text):
    lines = text.splitlines() or ["nothing said"]
    return ([line for line in lines if "ERROR" in line or "SUMMARY" in line] or lines)[-1][:160]


def run_part(part, options, report):
    program = PROGRAMS / "hard_tests"
    if not program.exists():
        return report.not_built(f"hard_tests {part}")
    every = 1 if options.full else max(1, round(EVERY[part] / options.part))
    words = [str(program), part, "--share", str(every), "--seed", str(options.seed)]
    code, text = start(words, options)
    counts = [(int(match[1]), int(match[2])) for match in TRIED.finditer(text)]
    tried, violations = (sum(column) for column in zip(*counts)) if counts else (0, 0)
    told = TOLD.findall(text)
    report.tried(tried, [], part)
    for name, what in told:
        report.tried(0, [f"{part}, {name.split()[0]}: {what[:160]}"], f"{program} {part} --only '{name}'", alone=True)
    silent = max(violations, int(code != 0 or tried == 0)) - len(told)
    report.tried(0, [f"{part}: {last_words(text)}"] * silent, " ".join(words), alone=True)


def run_target(program, options, report, folder):
    name = program.name.removeprefix("fuzz_")
    bound = (f"-runs={LARGE_TARGETS.get(name, 10_000_000)}" if options.full
             else f"-max_total_time={options.share(0, QUICK_SECONDS)}")
    # A finding is kept with the build. What is never given back is told once, at the end: to look
    # for it after each input takes longer than the inputs.
    words = [str(program), bound, "-detect_leaks=0", f"-seed={options.seed}", f"-artifact_prefix={PROGRAMS.parent}/{name}-",
             "-print_final_stats=1", folder, *map(str, (ROOT / "fuzz/corpus").glob(name))]
    code, text = start(words, options)
    units = re.search(r"number_of_executed_units: *(\d+)", text)
    finding = re.search(r"Test unit written to (\S+)", text)
    report.tried(int(units[1]) if units else 0, [f"fuzz {name}: {last_words(text)}"] if code != 0 else [],
                 f"{program} {finding[1] if finding else ' '.join(words[1:4])}", alone=True)


def run_fuzz(options, report):
    targets = sorted(PROGRAMS.glob("fuzz_*"))
    if not targets:
        report.not_built("fuzz targets")
    for program in targets:
        with tempfile.TemporaryDirectory() as folder:
            run_target(program, options, report, folder)
