"""The eight-bit codes of the signs and their characters of code page 1252."""

from __future__ import annotations

from collections.abc import Mapping
from typing import TypeVar

Value = TypeVar("Value")


def code_of(character: str) -> int:
    return character.encode("cp1252")[0]


def unicode_of(code: int) -> int:
    return ord(bytes([code]).decode("cp1252"))


def by_code(table: Mapping[str, Value]) -> dict[int, Value]:
    """A table written with characters, under their codes."""
    return {code_of(character): value for character, value in table.items()}
