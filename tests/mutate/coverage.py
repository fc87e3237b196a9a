"""Which test suites run which lines of the bundle. A change is given only to those that run it."""

import hashlib
import json
import subprocess
from pathlib import Path

from bundle import BuildError


class Coverage:
    """What was measured: for each line that holds code the suites that run it, and how long each suite takes."""

    def __init__(self, lines, seconds):
        self._lines = lines  # {path: {line: [suite, ...]}}
        self.seconds = seconds  # {suite: seconds of the processor}

    def suites_for(self, path, first, last):
        """The suites that run any of the lines from `first` to `last`. Every suite when no code stands there: a
        constant works wherever it is used."""
        known = self._lines.get(str(path), {})
        found = [known[str(line)] for line in range(first, last + 1) if str(line) in known]
        names = set().union(*found) if found else set(self.seconds)
        return sorted(names, key=lambda name: (self.seconds.get(name, 0), name))


def measure(build, trial, suites, folder):
    """Runs each suite by itself on a bundle that counts what runs; all of them must pass. A measurement of the same
    programs is not repeated."""
    kept = folder / "coverage.json"
    stamp = _stamp(build)
    if kept.exists() and (known := json.loads(kept.read_text()))["stamp"] == stamp:
        return Coverage(known["lines"], known["seconds"])
    bundle = build.instrumented(folder / "counting")
    lines, seconds = {}, {}
    for suite in suites:
        raw = folder / f"{suite}.profraw"
        verdict = trial.run(bundle, [suite], variables={"LLVM_PROFILE_FILE": str(raw)})
        if not verdict.passed:
            raise BuildError(f"the tests fail without a change: {verdict.reason}\n{verdict.output[-8000:]}")
        seconds[suite] = round(verdict.processor_seconds, 2)
        for path, line in _lines_run(raw, bundle / "ZunoPrefs", lines):
            lines[path][line].append(suite)
    kept.write_text(json.dumps({"stamp": stamp, "lines": lines, "seconds": seconds}))
    return Coverage(lines, seconds)


def _lines_run(raw, code, lines):
    """The path and line of each line that ran. Lines that hold code but did not run get an empty list in `lines`."""
    merged = raw.with_suffix(".profdata")
    _output("llvm-profdata-19", "merge", "--sparse", str(raw), "-o", str(merged))
    report = _output("llvm-cov-19", "export", "--format=lcov", f"--instr-profile={merged}", str(code))
    raw.unlink()
    merged.unlink()
    path = None
    for entry in report.splitlines():
        if entry.startswith("SF:"):
            path = entry[3:]
        elif entry.startswith("DA:"):
            line, count = entry[3:].split(",")[:2]
            lines.setdefault(path, {}).setdefault(line, [])
            if int(count) > 0:
                yield path, line


def _output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def _stamp(build):
    """Names the programs that a measurement is about."""
    digest = hashlib.sha256()
    parts = [build.tests, build.bundle / "ZunoPrefs", *build.folder.glob("simulator/*.so"),
             *build.folder.glob("fixtures/widgets/*")]  # fmt: skip
    for part in sorted(parts):
        digest.update(Path(part).read_bytes())
    return digest.hexdigest()
