"""Pointer authentication for what lld links for arm64e; see packaging/arm64e. Python's standard library only."""


class CannotTurn(Exception):
    """The input is nothing that can be turned; the text is one sentence without its subject."""
