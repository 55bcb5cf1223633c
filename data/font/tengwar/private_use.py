"""Where the signs stand in the private-use arrangement for Tengwar, U+E000 to U+E07F, of the
ConScript Unicode Registry.

Only assignments that we are sure of are listed. Left out are the rest of the letters after the
extended stems (U+E027, U+E030 to U+E03F), the signs after the section marks, and the marks of
number bases.
"""

from __future__ import annotations

from .sign import Band

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

# Marks stand once each; they find their place by anchors. Given are band and name of the shape.
MARKS = {
    0xE040: (Band.ABOVE, "threedots"),
    0xE041: (Band.BELOW, "threedots"),
    0xE042: (Band.ABOVE, "twodots"),
    0xE043: (Band.BELOW, "twodots"),
    0xE044: (Band.ABOVE, "dot"),
    0xE045: (Band.BELOW, "dot"),
    0xE046: (Band.ABOVE, "acute"),
    0xE047: (Band.ABOVE, "doubleacute"),
    0xE048: (Band.ABOVE, "rightcurl"),
    0xE049: (Band.ABOVE, "doublerightcurl"),
    0xE04A: (Band.ABOVE, "leftcurl"),
    0xE04B: (Band.ABOVE, "doubleleftcurl"),
    0xE04C: (Band.BAR_ABOVE, "bar"),
    0xE04D: (Band.BAR_BELOW, "bar"),
    0xE04F: (Band.ABOVE, "caron"),
}
