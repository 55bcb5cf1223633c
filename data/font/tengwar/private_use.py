"""Where the signs stand in the private-use arrangement for Tengwar, U+E000 to U+E07F, of the
ConScript Unicode Registry.

Only assignments that we are sure of are listed. Left out are the rest of the letters after the
extended stems (U+E027, U+E030 to U+E03F), the signs after the section marks, and the marks of
number bases.
"""

from __future__ import annotations

# The first 39 letters in a row: the primary letters by degree, then the additional ones.
LETTERS = "1qaz2wsx3edc4rfv5tgb6yhn7ujm8ik,9ol.½`~"
# The extended stems, from U+E028.
EXTENDED = "!QAZ@WSX"
# Digits 0 to 11.
DIGITS = "ðñòóôõö÷øùúû"
PUNCTUATION = {0xE050: "=", 0xE051: "-", 0xE052: "Á", 0xE053: "À", 0xE054: "\\", 0xE055: "Â"}

CODES = (
    {0xE000 + i: key for i, key in enumerate(LETTERS)}
    | {0xE028 + i: key for i, key in enumerate(EXTENDED)}
    | {0xE070 + i: key for i, key in enumerate(DIGITS)}
    | PUNCTUATION
)

# Marks stand once each; they find their place by anchors. Given is the name of the shape.
MARKS_ABOVE = {
    0xE040: "threedots",
    0xE042: "twodots",
    0xE044: "dot",
    0xE046: "acute",
    0xE047: "doubleacute",
    0xE048: "rightcurl",
    0xE049: "doublerightcurl",
    0xE04A: "leftcurl",
    0xE04B: "doubleleftcurl",
    0xE04C: "bar",
    0xE04F: "caron",
}
MARKS_BELOW = {
    0xE041: "threedots",
    0xE043: "twodots",
    0xE045: "dot",
    0xE04D: "bar",
}
