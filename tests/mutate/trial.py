"""Running the bundle's unit tests against a changed bundle."""

import os
import re
import resource
import signal
import subprocess
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

_SUITE = re.compile(r"^TEST(?:_F|_P)?\(\s*(\w+)", re.MULTILINE)
_FAILED = re.compile(r"^\[  FAILED  \] ([^\s,]+)", re.MULTILINE)
_RUNNING = re.compile(r"^\[ RUN      \] (\S+)", re.MULTILINE)
_MEMORY = 6 << 30  # Bytes; a change that allocates without end is stopped here.


def suites_of(test_folder):
    """The names of the test suites in each test file below the folder."""
    files = [*test_folder.rglob("*.mm"), *test_folder.rglob("*.cpp")]
    return {path: sorted(set(_SUITE.findall(path.read_text()))) for path in files}


def stages_for(source, suites, running):
    """The order in which suites get their chance to notice a change of `source`, lists of names: first those of the
    file's own tests, then, of the suites that run the change, those of its folder and all others."""

    def stem(path):
        return re.sub(r"\W", "", path.stem.removesuffix("Tests")).lower()

    own, near = [], []
    for path, names in sorted(suites.items()):
        if path.parent.name != source.parent.name:
            continue
        is_own = stem(path).startswith(stem(source)) or stem(source).startswith(stem(path))
        (own if is_own else near).extend(names)
    near = [name for name in running if name in near]
    far = [name for name in running if name not in own and name not in near]
    return [stage for stage in (own, near, far) if stage]


def filter_of(suites):
    """The test filter that names these suites, those with parameters too."""
    return ":".join(f"{name}.*:*/{name}.*" for name in suites)


@dataclass(frozen=True)
class Verdict:
    passed: bool
    reason: str = ""  # Why it did not.
    output: str = ""
    seconds: float = 0
    processor_seconds: float = 0


@dataclass(frozen=True)
class Limits:
    """How long a run may take, in seconds of the processor and of the clock."""

    processor: int = 3600
    clock: int = 3600


class Trial:
    """Runs the tests of a build. Thread-safe."""

    def __init__(self, build, temporary=None):
        """Runs have their temporary folders in `temporary`, the computer's own unless given."""
        self._build = build
        self._temporary = temporary

    def run(self, bundle, suites, limits=Limits(), variables={}):
        """Runs the suites on the bundle at `bundle` until the first failure, with more variables of the environment."""
        # What a run that ends in the middle leaves behind goes with its folder.
        with tempfile.TemporaryDirectory(dir=self._temporary, ignore_cleanup_errors=True) as scratch:
            os.chmod(scratch, 0o755)  # Some tests act as somebody else.
            return self._run(bundle, suites, limits, variables, scratch)

    def _run(self, bundle, suites, limits, variables, scratch):
        suppressions = self._build.root / "tests/support/leaks.supp"
        environment = {
            **os.environ,
            "ZUNO_BUNDLE": str(bundle),
            "TMPDIR": scratch,
            "ASAN_OPTIONS": "detect_leaks=1:fast_unwind_on_malloc=0:hard_rss_limit_mb=6144",
            "LSAN_OPTIONS": f"suppressions={suppressions}:print_suppressions=0",
            **variables,
        }
        command = [str(self._build.tests), f"--gtest_filter={filter_of(suites)}", "--gtest_fail_fast"]
        output = Path(scratch) / "output"
        started = time.monotonic()

        def confine():
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            resource.setrlimit(resource.RLIMIT_CPU, (limits.processor, limits.processor + 1))
            if not self._build.is_sanitized:  # Sanitizers reserve more than there is.
                resource.setrlimit(resource.RLIMIT_AS, (_MEMORY, _MEMORY))

        with output.open("wb") as file:
            process = subprocess.Popen(command, cwd=self._build.folder, env=environment, stdin=subprocess.DEVNULL,
                                       stdout=file, stderr=subprocess.STDOUT, start_new_session=True,
                                       preexec_fn=confine)  # fmt: skip
            status, usage = _wait(process, limits.clock)
        text = output.read_bytes().decode(errors="replace")
        return _verdict(status, text, time.monotonic() - started, usage)


def _wait(process, seconds):
    """The exit status (None when the time is over) and the processor seconds of the process; ends its whole group."""
    end = time.monotonic() + seconds
    try:
        while True:
            pid, status, usage = os.wait4(process.pid, os.WNOHANG)
            if pid:
                process.returncode = os.waitstatus_to_exitcode(status)
                return process.returncode, usage.ru_utime + usage.ru_stime
            if time.monotonic() > end:
                return None, seconds
            time.sleep(0.02)
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        if process.returncode is None:
            process.wait()


def _verdict(status, text, seconds, usage):
    if status == 0:
        return Verdict(True, "", text, seconds, usage)
    failed = _FAILED.search(text)
    running = _RUNNING.findall(text)
    where = running[-1] if running else "the start"
    if failed:
        reason = failed[1]
    elif status is None or status == -signal.SIGXCPU or (status == -signal.SIGKILL and usage > 1):
        reason = f"time limit in {where}"
    elif "LeakSanitizer" in text and "[  PASSED  ]" in text:
        reason = "a leak"
    elif "Sanitizer" in text or "runtime error:" in text:
        reason = f"sanitizer in {where}"
    else:
        reason = f"ended ({status}) in {where}"
    return Verdict(False, reason, text, seconds, usage)

