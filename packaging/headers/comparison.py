"""Compares what headers of ours declare with what the platform's declare."""

import tomllib
from dataclasses import dataclass


class ListError(Exception):
    """The list of known differences cannot be used."""


@dataclass(frozen=True)
class Difference:
    fact: object  # Ours.
    said: str

    def __str__(self):
        return f"{self.fact.key}: {self.said}"


def version(text):
    """ "15.0" as numbers that sort."""
    return tuple(int(part) for part in (text.split(".") + ["0"])[:2])


def _unequal(fact, same):
    """How two facts differ; for properties of one type only what follows the type."""
    here, there = fact.value, same.value
    if fact.key.startswith("property ") and here.split(",")[0] == there.split(",")[0]:
        here, there = (f"attributes {value.partition(',')[2] or 'none'}" for value in (here, there))
    return f"{here or 'nothing'} here, {there or 'nothing'} in the SDK"


def facts(ours, is_ours):
    """Our own facts, each with the platform's way to look for the same one: (fact, find)."""
    for key, fact in ours.facts.items():
        if is_ours(fact):
            yield fact, lambda theirs, key=key: theirs.facts.get(key)
    for key, container in ours.containers.items():
        for name, fact in container.members.items():
            if is_ours(fact):
                yield fact, lambda theirs, key=key, name=name: theirs.member(key, name)


def differences(ours, theirs, is_ours, oldest):
    """Every way in which our facts are not the platform's. oldest: the version of iOS that has to know everything."""
    for fact, find in facts(ours, is_ours):
        same = find(theirs)
        if same is None:
            yield Difference(fact, "not in the SDK")
        elif same.value != fact.value:
            yield Difference(fact, _unequal(fact, same))
        elif same.introduced and version(same.introduced) > version(oldest):
            yield Difference(fact, f"since iOS {same.introduced}")
    for key, container in ours.containers.items():
        fact = ours.facts.get(key)
        if fact is None or not is_ours(fact) or key not in theirs.containers:
            continue
        superclass = theirs.containers[key].superclass
        if superclass != container.superclass:
            own = container.superclass or "none"
            yield Difference(fact, f"superclass {own} here, {superclass or 'none'} in the SDK")
        for protocol in sorted(container.protocols):
            if not theirs.adopts(key, protocol):
                yield Difference(fact, f"adopts {protocol} here, not in the SDK")


class KnownDifferences:
    """The list of differences that stay, each with its reason; see known-differences.toml for its form."""

    def __init__(self, text):
        try:
            document = tomllib.loads(text)
        except tomllib.TOMLDecodeError as error:
            raise ListError(str(error)) from error
        self._lines = set()
        self._later = {}  # Version of the first SDK that declares it, by key.
        for entry in document.get("difference", []):
            if not entry.get("reason") or not entry.get("lines"):
                raise ListError("a difference needs a reason and lines")
            self._lines.update(entry["lines"])
        for entry in document.get("later", []):
            if not entry.get("version") or not entry.get("names"):
                raise ListError("names that came later need a version and names")
            self._later.update(dict.fromkeys(entry["names"], entry["version"]))

    def __len__(self):
        return len(self._lines) + len(self._later)

    def judge(self, found, sdk_version):
        """The differences that are not known, then what the list says and is not so, one a line."""
        missing = {difference.fact.key for difference in found if difference.said == "not in the SDK"}
        expected = {key for key, since in self._later.items() if version(sdk_version) < version(since)}
        lines = {str(difference): difference for difference in found if difference.fact.key not in missing & expected}
        for line, difference in lines.items():
            if line not in self._lines:
                yield f"{line} ({difference.fact.file}:{difference.fact.line})"
        for line in sorted(self._lines - lines.keys()):
            yield f"listed as a known difference and is none: {line}"
        for key in sorted(expected - missing):
            yield f"listed as of SDK {self._later[key]} and is in {sdk_version}: {key}"
