#pragma once

#include <QString>

#include <array>

/// Which of the four places of a mark belongs to which letters of the font. Letters are named by
/// their code page 1252 characters; ligatures and alternative shapes follow the letters they are
/// made of.
namespace MarkPlaces {

struct Place
{
    const char16_t *name;
    /// Letters and digits whose marks stand in this place.
    const char16_t *letters;
};

inline constexpr std::array<Place, 4> above{{
    {u"wide", u"2wsx4rfv5tgb@WSX8ko*K<\u0161\u2013\u00f2\u00f3\u00f6\u00f9"},
    {u"medium", u"1qazdc6yhnAZ7ujmiI,l.]"
                u"\u2021\u00ae\u00b3\u00bc\u00be\u00bf\u00c4\u00f0\u00f1\u00f5\u00f7\u00fa\u00fb"},
    {u"stem", u"3e!Q\u00a6\u00a7\u2022\u00f4\u00f8"},
    {u"narrow", u"`~\u00bd9"},
}};

inline constexpr std::array<Place, 4> below{{
    {u"wide", u"2wsx4rfv5tgb@WSXazAZ\u0161\u2013\u00c4\u00f2\u00f3\u00f5\u00f6\u00f9"},
    {u"medium",
     u"3edc6yhn8k*K<,9ol.]"
     u"\u2021\u00ae\u00b3\u00bc\u00be\u00bfjm\u00f0\u00f1\u00f4\u00f7\u00f8\u00fa\u00fb"},
    {u"stem", u"1q!Q\u00a6\u00a7\u2022"},
    {u"narrow", u"`~\u00bd7uiI"},
}};

/// A mark with its codes for the four places, in the order of the tables above.
struct Tehta
{
    const char16_t *name;
    std::array<char16_t, 4> codes;
};

inline constexpr std::array<Tehta, 11> tehtarAbove{{
    {u"three dots", {u'#', u'E', u'D', u'C'}},
    {u"acute", {u'$', u'R', u'F', u'V'}},
    {u"dot", {u'%', u'T', u'G', u'B'}},
    {u"left curl", {u'&', u'U', u'J', u'M'}},
    {u"right curl", {u'^', u'Y', u'H', u'N'}},
    {u"inverted dots", {u'\u00aa', u'\u20ac', u'\u00af', u'\u00b5'}},
    {u"two dots", {u'\u00d4', u'\u00d5', u'\u00d6', u'\u00d7'}},
    {u"caron", {u'\u00d8', u'\u00d9', u'\u00da', u'\u00db'}},
    {u"circumflex", {u'\u00dc', u'\u00dd', u'\u00de', u'\u00df'}},
    {u"back curl", {u'\u00e0', u'\u00e1', u'\u00e2', u'\u00e3'}},
    {u"w-sign", {u'\u00e8', u'\u00e9', u'\u00ea', u'\u00eb'}},
}};

inline constexpr std::array<Tehta, 9> tehtarBelow{{
    {u"dot", {u'\u00c8', u'\u00c9', u'\u00ca', u'\u00cb'}},
    {u"two dots", {u'\u00cc', u'\u00cd', u'\u00ce', u'\u00cf'}},
    {u"three dots", {u'\u00d0', u'\u00d1', u'\u00d2', u'\u00d3'}},
    {u"acute", {u'\u2030', u'\u0160', u'\u2039', u'\u0178'}},
    {u"double acute", {u'\u0192', u'\u201e', u'\u2026', u'\u2020'}},
    {u"left curl", {u'\u2018', u'\u2019', u'\u201c', u'\u201d'}},
    {u"right curl", {u'\u00e4', u'\u00e5', u'\u00e6', u'\u00e7'}},
    {u"ring", {u'\u02dc', u'\u2122', u'\u00a8', u'\u00a9'}},
    {u"stroke", {u'\u00fc', u'\u00fd', u'\u00fe', u'\u00ff'}},
}};

/// Bars and tildes exist for doubled bows and for everything else.
struct Bar
{
    const char16_t *name;
    char16_t wide;
    char16_t single;
};

inline constexpr std::array<Bar, 8> bars{{
    {u"bar above", u'{', u'['},
    {u"tilde above", u'P', u'p'},
    {u"bar below", u'"', u'\''},
    {u"tilde below", u':', u';'},
    {u"bar high", u'\u00ec', u'\u00ee'},
    {u"tilde high", u')', u'0'},
    {u"bar far", u'\u00ed', u'\u00ef'},
    {u"tilde far", u'?', u'/'},
}};

/// What stands inside the bowls of lambe and alda.
inline constexpr std::u16string_view insideLambe = u"L\u00b4\u00b8\u00b0\u201a";
inline constexpr std::u16string_view lambeAndAlda = u"jm";
/// Letters with doubled bows, which take the wide bars.
inline constexpr std::u16string_view doubled =
    u"2wsx4rfv5tgb@WSX\u0161\u2013\u00f2\u00f3\u00f6\u00f9";
/// Letters with the s-hook that fits their bows.
struct Hook
{
    std::u16string_view letters;
    char16_t code;
};

inline constexpr std::array<Hook, 5> hooks{{
    {u"azsxdcfvgbhnAZSX8o]", u'|'},
    {u"123456!@7uil,9.", u'+'},
    {u"qwertyQW", u'\u00a1'},
    {u"jm", u'_'},
    {u"`", u'}'},
}};

} // namespace MarkPlaces
