"""Makes one-line changes of the settings bundle and tells which of them no unit test notices.

usage: script/mutate [FILE…] [--list] [--survivors] [--report] [--jobs N]

Exit status: 0 the run is complete, whatever its result; 2 it could not be made.
"""

import argparse
import contextlib
import fcntl
import sys
from collections import Counter
from pathlib import Path

from bundle import BuildError
from campaign import KILLED, SURVIVED, Campaign, default_jobs


def main():
    parser = argparse.ArgumentParser(
        prog="script/mutate",
        description="Makes one-line changes of the settings bundle and tells which of them no unit test notices.",
    )
    parser.add_argument("files", nargs="*", type=Path, metavar="FILE",
                        help="files or folders of ZunoPrefs to change (all unless given)")  # fmt: skip
    parser.add_argument("--list", action="store_true", help="show the changes and run nothing")
    parser.add_argument("--survivors", action="store_true",
                        help="run only the changes that no test noticed before, and those that are new")  # fmt: skip
    parser.add_argument("--report", action="store_true", help="show the results of earlier runs and run nothing")
    parser.add_argument("--jobs", type=int, default=default_jobs(), metavar="N", help="changes at a time")
    options = parser.parse_args()
    if options.jobs < 1:
        parser.error("--jobs needs a number from 1 on")
    root = Path(__file__).resolve().parents[2]
    try:
        with only_run(root / "build/mutate"):
            run(Campaign(root), options)
    except (BuildError, FileNotFoundError) as error:
        print(f"script/mutate: {error}", file=sys.stderr)
        return 2
    except KeyboardInterrupt:
        print("script/mutate: stopped; --survivors goes on from here", file=sys.stderr)
        return 2
    return 0


@contextlib.contextmanager
def only_run(folder):
    """Keeps other runs out of the folder."""
    folder.mkdir(parents=True, exist_ok=True)
    with (folder / "lock").open("w") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            raise BuildError("another run is going on") from None
        yield


def run(campaign, options):
    mutants = campaign.mutants(files_of(options.files, campaign.root), options.jobs)
    if options.list:
        for mutant in mutants.values():
            print(f"{mutant.path.relative_to(campaign.root)}:{mutant.line}: {mutant.change}")
        print(f"mutants: {len(mutants)}")
        return
    if not options.report:
        chosen = {key: mutant for key, mutant in mutants.items()
                  if not options.survivors or campaign.results.get(key) is None
                  or campaign.results.get(key).outcome == SURVIVED}  # fmt: skip
        if chosen:
            campaign.run(chosen, options.jobs, lambda line: print(line, file=sys.stderr, flush=True))
    summarise(campaign, mutants)


def files_of(arguments, root):
    """The files that the arguments name; a folder stands for the files in it."""
    files = []
    for argument in arguments:
        path = argument if argument.exists() else root / argument
        if not path.exists():
            raise FileNotFoundError(f"no file {argument}")
        within = sorted(path.iterdir()) if path.is_dir() else []
        files += [each for each in within if each.suffix in (".mm", ".cpp")] if path.is_dir() else [path]
    return files


def summarise(campaign, mutants):
    """One line a file, the sum, and each survivor."""
    made, killed = Counter(), Counter()
    survivors = []
    for key, mutant in mutants.items():
        result = campaign.results.get(key)
        if result is None or result.outcome not in (KILLED, SURVIVED):
            continue
        made[mutant.path] += 1
        killed[mutant.path] += result.outcome == KILLED
        if result.outcome == SURVIVED:
            survivors.append(mutant)
    for path in sorted(made):
        print(f"{path.relative_to(campaign.root)}: {killed[path]} of {made[path]}")
    print(f"mutants: {made.total()}, killed: {killed.total()}")
    for mutant in survivors:
        print(f"{mutant.path.relative_to(campaign.root)}:{mutant.line}: {mutant.change}")


if __name__ == "__main__":
    sys.exit(main())
