"""Making mutants, giving each to the tests, and keeping what came of it."""

import concurrent.futures
import json
import math
import os
import queue
import shutil
import threading
from collections import Counter
from dataclasses import dataclass

from bundle import Build, BuildError, Workshop
from coverage import measure
from mutators import mutants_of
from syntax import Unit, parser_arguments
from trial import Limits, Trial, stages_for, suites_of

KILLED, SURVIVED, EQUIVALENT, BROKEN = "killed", "survived", "equivalent", "broken"


@dataclass(frozen=True)
class Result:
    outcome: str
    reason: str = ""  # What killed it.


def key_of(mutant, root, number):
    """Names a mutant also after a change of other lines. `number` tells equal changes of equal lines apart."""
    return "\t".join((str(mutant.path.relative_to(root)), mutant.line_text, mutant.change, str(number)))


def keyed(mutants, root):
    """The mutants by their keys, in their order."""
    seen = Counter()
    found = {}
    for mutant in mutants:
        plain = key_of(mutant, root, 0)
        found[key_of(mutant, root, seen[plain])] = mutant
        seen[plain] += 1
    return found


class Results:
    """The results of all runs, by the mutants' keys, kept in a file."""

    def __init__(self, path):
        self._path = path
        self._lock = threading.Lock()
        self._known = {}
        if path.exists():
            self._known = {key: Result(*value) for key, value in json.loads(path.read_text()).items()}

    def get(self, key):
        return self._known.get(key)

    def put(self, key, result):
        with self._lock:
            self._known[key] = result
            partial = self._path.with_suffix(".new")
            partial.write_text(json.dumps({each: [r.outcome, r.reason] for each, r in sorted(self._known.items())},
                                          indent=0, ensure_ascii=False))  # fmt: skip
            partial.replace(self._path)


class Judge:
    """Decides about mutants with one build: whether its tests notice them."""

    def __init__(self, build, folder, coverage=None):
        self._build = build
        self._folder = folder
        self._by_file = suites_of(build.root / "tests/ZunoPrefs")
        self._trial = Trial(build)
        self._workshops = queue.SimpleQueue()
        self._factor = 1
        self.coverage = coverage

    def prepare(self, mutants, jobs):
        """Builds, and makes sure that the tests that the mutants need pass without a change."""
        self._build.make(jobs)
        self._folder.mkdir(exist_ok=True)
        shutil.rmtree(self._folder / "plain", ignore_errors=True)
        if self.coverage is None:
            suites = sorted({name for names in self._by_file.values() for name in names})
            self.coverage = measure(self._build, self._trial, suites, self._folder)
        else:
            suites = sorted({name for mutant in mutants for stage in self._stages(mutant) for name in stage})
            verdict = self._trial.run(self._build.bundle, suites)
            if not verdict.passed:
                raise BuildError(f"the tests fail without a change: {verdict.reason}\n{verdict.output[-8000:]}")
            self._factor = max(1, verdict.processor_seconds / sum(self.coverage.seconds[name] for name in suites))
        for number in range(jobs):
            self._workshops.put(Workshop(self._build, self._folder / f"worker-{number}"))

    def _stages(self, mutant):
        running = self.coverage.suites_for(mutant.path, mutant.line, mutant.last_line)
        return stages_for(mutant.path, self._by_file, running)

    def judge(self, mutant):
        workshop = self._workshops.get()
        try:
            made = workshop.make(mutant.path, mutant.content())
            if made != "built":
                return Result(EQUIVALENT if made == "equivalent" else BROKEN)
            stages = self._stages(mutant)
            for suites in stages:
                verdict = self._trial.run(workshop.bundle, suites, self._limits(suites))
                if not verdict.passed:
                    return Result(KILLED, verdict.reason)
            return Result(SURVIVED, "" if stages else "no test runs it")
        finally:
            self._workshops.put(workshop)

    def _limits(self, suites):
        """Several times what the suites take without a change; the clock has room for a busy computer."""
        seconds = sum(self.coverage.seconds.get(name, 0) for name in suites) * self._factor
        return Limits(math.ceil(seconds * 4) + 10, math.ceil(seconds * 40) + 120)


class Campaign:
    """The mutants of some files and what becomes of them."""

    def __init__(self, root):
        self.root = root
        self._folder = root / "build/mutate"
        # A mutant is compiled over a prefix of its own, which would not go with another precompiled header.
        plain = "-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON"
        self.quick = Build(root, self._folder / "quick", "run", ["-DZUNO_TESTS=ON", plain])
        self.sanitized = Build(root, self._folder / "sanitized", "asan", ["-DZUNO_JOIN=OFF", plain])
        self.results = Results(self._folder / "results.json")

    def mutants(self, files, jobs):
        """The mutants of the given files of ZunoPrefs, all when there are none given, by their keys."""
        self.quick.configure()
        wanted = {path.resolve() for path in files}
        sources = [source for source in self.quick.sources if source.path in wanted]
        if len(sources) < len(wanted) or not wanted:  # A header is read with the sources that include it.
            sources = self.quick.sources
        with concurrent.futures.ProcessPoolExecutor(jobs) as pool:
            found = {}
            for mutants in pool.map(_parse, [(source.path, source.command, self.root) for source in sources]):
                for mutant in mutants:
                    if not wanted or mutant.path in wanted:
                        found[mutant.path, mutant.start, mutant.end, mutant.text] = mutant
        for path in sorted(wanted - {mutant.path for mutant in found.values()}):
            raise BuildError(f"nothing to change in {path}")
        ordered = [found[key] for key in sorted(found)]
        return keyed(ordered, self.root)

    def run(self, mutants, jobs, report):
        """Judges the mutants, at most `jobs` at once. What passes in the quick build gets a second chance under the
        sanitizers, which see leaks and objects that are used after their end. `report` takes a line for the user."""
        judge = Judge(self.quick, self._folder / "quick-work")
        remaining = self._round(judge, mutants, jobs, report)
        if remaining:
            report(f"{len(remaining)} once more, under the sanitizers")
            judge = Judge(self.sanitized, self._folder / "sanitized-work", judge.coverage)
            self._round(judge, remaining, jobs, report)

    def _round(self, judge, mutants, jobs, report):
        """Judges the mutants and returns those that survived."""
        judge.prepare(mutants.values(), jobs)
        report("the tests pass without a change")
        remaining = {}
        with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
            judged = {pool.submit(judge.judge, mutant): (key, mutant) for key, mutant in mutants.items()}
            try:
                for number, future in enumerate(concurrent.futures.as_completed(judged), 1):
                    key, mutant = judged[future]
                    result = future.result()
                    self.results.put(key, result)
                    if result.outcome == SURVIVED:
                        remaining[key] = mutant
                    why = f" ({result.reason})" if result.reason else ""
                    place = f"{mutant.path.relative_to(self.root)}:{mutant.line}"
                    report(f"[{number}/{len(judged)}] {place} {mutant.change}: {result.outcome}{why}")
            except BaseException:
                pool.shutdown(cancel_futures=True)
                raise
        return {key: mutant for key, mutant in mutants.items() if key in remaining}


def _parse(work):
    path, command, root = work
    unit = Unit(path, parser_arguments(command), root / "ZunoPrefs")
    if unit.errors:
        raise BuildError(f"{path} cannot be parsed: {unit.errors[0]}")
    return mutants_of(unit)


def default_jobs():
    return min(2, os.cpu_count() or 1)
