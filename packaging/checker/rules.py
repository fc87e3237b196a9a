"""The rules that a package for rootless devices has to keep.

Each is a function that takes a `Subject` and yields one sentence for every problem that it finds.
"""

from .authentication import signed_pointers
from .code_rules import load_commands, same_slices, undefined_symbols
from .file_rules import build_paths, control_fields, layout, modes, user_folders
from .list_rules import icons, named_classes, named_selectors, property_lists
from .requests import requested_pointers

RULES = [
    control_fields, layout, modes, user_folders, property_lists, icons, named_classes, named_selectors, load_commands,
    undefined_symbols, same_slices, signed_pointers, requested_pointers, build_paths,
]  # fmt: skip


def problems(subject):
    """Every problem of the package, as (rule, sentence)."""
    return [(rule.__name__, sentence) for rule in RULES for sentence in rule(subject)]
