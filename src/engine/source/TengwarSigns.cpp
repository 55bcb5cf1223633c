#include "engine/source/TengwarSigns.h"

#include <algorithm>

using namespace std::string_view_literals;

namespace {

// Which letters take which position: written once, here, for the composer and for the checker.
// The proportions are those of the classic fonts: all letters have one of two widths.
constexpr auto doubleBows = "2wsx4rfv5tgb@WSX\x9A\x96"sv;
constexpr auto aboveWide = "2wsx4rfv5tgb@WSX8k*Ko\x9A\x96\xF2\xF3\xF6\xF9"sv;
constexpr auto aboveMedium = "1qazdc6yhnAZ7ujmiI,l.]\x87\xF0\xF1\xF5\xF7\xFA\xFB"sv;
constexpr auto aboveStem = "3e!Q\xA6\xA7\x95\xF4\xF8"sv;
constexpr auto aboveNarrow = "`~\xBD"
                             "9"sv;
constexpr auto belowMedium = "3edc6yhn8k*K,9ol.]I\x87jm\x95\xF0\xF1\xF4\xF7\xF8\xFA\xFB"sv;
constexpr auto belowStem = "1q!Q\xA6\xA7"sv;
constexpr auto belowNarrow = "`~\xBD"
                             "7ui"sv;
constexpr auto hookLeft = "azsxdcfvgbhnAZSX8o]"sv;
constexpr auto hookCarrier = "`~"sv;
constexpr auto bowls = "jm"sv;

constexpr std::array letterTable{
    Letter{' ', "space"},
    Letter{'1', "tinco"},
    Letter{'q', "parma"},
    Letter{'a', "calma"},
    Letter{'z', "quesse"},
    Letter{'2', "ando"},
    Letter{'w', "umbar"},
    Letter{'s', "anga"},
    Letter{'x', "ungwe"},
    Letter{'3', "thule"},
    Letter{'e', "formen"},
    Letter{'d', "harma"},
    Letter{'c', "hwesta"},
    Letter{'4', "anto"},
    Letter{'r', "ampa"},
    Letter{'f', "anca"},
    Letter{'v', "unque"},
    Letter{'5', "numen"},
    Letter{'t', "malta"},
    Letter{'g', "noldo"},
    Letter{'b', "nwalme"},
    Letter{'6', "ore"},
    Letter{'y', "vala"},
    Letter{'h', "anna"},
    Letter{'n', "vilya"},
    Letter{'7', "romen"},
    Letter{'u', "arda"},
    Letter{'j', "lambe"},
    Letter{'m', "alda"},
    Letter{'8', "silme"},
    Letter{'i', "silme-nuquerna"},
    Letter{'k', "esse"},
    Letter{',', "esse-nuquerna"},
    Letter{'9', "hyarmen"},
    Letter{'o', "hwesta-sindarinwa"},
    Letter{'l', "yanta"},
    Letter{'.', "ure"},
    Letter{0xBD, "halla"},
    Letter{'`', "carrier"},
    Letter{'~', "long-carrier"},
    Letter{']', "osse"},
    Letter{'!', "extended-tinco"},
    Letter{'Q', "extended-parma"},
    Letter{'A', "extended-calma"},
    Letter{'Z', "extended-quesse"},
    Letter{'@', "extended-ando"},
    Letter{'W', "extended-umbar"},
    Letter{'S', "extended-anga"},
    Letter{'X', "extended-ungwe"},
    Letter{'=', "dot"},
    Letter{'-', "two-dots-stacked"},
    Letter{0x88, "three-dots-stacked"},
    Letter{'\\', "short-wave"},
    Letter{0xC2, "long-wave"},
    Letter{0xAC, "double-wave"},
    Letter{0xC1, "exclamation"},
    Letter{0xC0, "question"},
    Letter{0x9B, "bracket"},
    Letter{0xAB, "opening-quote"},
    Letter{0xBB, "closing-quote"},
    Letter{0xB1, "opening-single-quote"},
    Letter{0xB2, "closing-single-quote"},
    Letter{0xF0, "digit-0"},
    Letter{0xF1, "digit-1"},
    Letter{0xF2, "digit-2"},
    Letter{0xF3, "digit-3"},
    Letter{0xF4, "digit-4"},
    Letter{0xF5, "digit-5"},
    Letter{0xF6, "digit-6"},
    Letter{0xF7, "digit-7"},
    Letter{0xF8, "digit-8"},
    Letter{0xF9, "digit-9"},
    Letter{0xFA, "digit-10"},
    Letter{0xFB, "digit-11"},
};

constexpr std::array markTable{
    Mark{"nasal-bar", MarkKind::BarAbove, {'{', '[', 0, 0}},
    Mark{"nasal-tilde", MarkKind::BarAbove, {'P', 'p', 0, 0}},
    Mark{"doubling-bar", MarkKind::BarBelow, {'"', '\'', 0, 0}, 0xB8},
    Mark{"doubling-tilde", MarkKind::BarBelow, {':', ';', 0, 0}, 0xB0},
    Mark{"high-bar", MarkKind::BarAbove, {0xEC, 0xEE, 0, 0}},
    Mark{"high-tilde", MarkKind::BarAbove, {')', '0', 0, 0}},
    Mark{"low-bar", MarkKind::BarBelow, {0xED, 0xEF, 0, 0}},
    Mark{"low-tilde", MarkKind::BarBelow, {'?', '/', 0, 0}},
    Mark{"two-dots-below", MarkKind::DotsBelow, {0xCC, 0xCD, 0xCE, 0xCF}, 0xB4},
    Mark{"three-dots", MarkKind::Above, {'#', 'E', 'D', 'C'}},
    Mark{"acute", MarkKind::Above, {'$', 'R', 'F', 'V'}},
    Mark{"dot-above", MarkKind::Above, {'%', 'T', 'G', 'B'}},
    Mark{"right-curl", MarkKind::Above, {'^', 'Y', 'H', 'N'}},
    Mark{"left-curl", MarkKind::Above, {'&', 'U', 'J', 'M'}},
    Mark{"right-curl-twice", MarkKind::Above, {'^', '^', '^', '^'}, 0, 'H'},
    Mark{"left-curl-twice", MarkKind::Above, {'&', '&', '&', '&'}, 0, 'J'},
    Mark{"two-dots", MarkKind::Above, {0xD4, 0xD5, 0xD6, 0xD7}},
    Mark{"caron", MarkKind::Above, {0xD8, 0xD9, 0xDA, 0xDB}},
    Mark{"circumflex", MarkKind::Above, {0xDC, 0xDD, 0xDE, 0xDF}},
    Mark{"three-dots-down", MarkKind::Above, {0xAA, 0xAD, 0xAF, 0xB5}},
    Mark{"w-sign", MarkKind::Above, {0xE8, 0xE9, 0xEA, 0xEB}},
    Mark{"dot-below", MarkKind::Below, {0xC8, 0xC9, 0xCA, 0xCB}, 'L'},
    Mark{"three-dots-below", MarkKind::Below, {0xD0, 0xD1, 0xD2, 0xD3}},
    Mark{"acute-below", MarkKind::Below, {0x89, 0x8A, 0x8B, 0x9F}},
    Mark{"left-curl-below", MarkKind::Below, {0x91, 0x92, 0x93, 0x94}},
    Mark{"right-curl-below", MarkKind::Below, {0xE4, 0xE5, 0xE6, 0xE7}},
    Mark{"ring-below", MarkKind::Below, {0x98, 0x99, 0xA8, 0xA9}},
    Mark{"stroke-below", MarkKind::Below, {0xFC, 0xFD, 0xFE, 0xFF}},
    Mark{"hook", MarkKind::Hook, {'+', '|', '_', '}'}},
};

bool isOneOf(char code, std::string_view codes)
{
    return codes.find(code) != std::string_view::npos;
}

MarkPlace placeAbove(char code)
{
    if (isOneOf(code, aboveWide))
        return MarkPlace::Wide;
    if (isOneOf(code, aboveStem))
        return MarkPlace::Stem;
    return isOneOf(code, aboveNarrow) ? MarkPlace::Narrow : MarkPlace::Medium;
}

MarkPlace placeBelow(char code)
{
    if (isOneOf(code, belowMedium))
        return MarkPlace::Medium;
    if (isOneOf(code, belowStem))
        return MarkPlace::Stem;
    return isOneOf(code, belowNarrow) ? MarkPlace::Narrow : MarkPlace::Wide;
}

HookKind hookOf(char code)
{
    if (isOneOf(code, bowls))
        return HookKind::Lambe;
    if (isOneOf(code, hookLeft))
        return HookKind::Left;
    return isOneOf(code, hookCarrier) ? HookKind::Carrier : HookKind::Right;
}

size_t position(const Mark &mark, const LetterForm &form)
{
    switch (mark.kind) {
    case MarkKind::BarAbove:
    case MarkKind::BarBelow:
        return static_cast<size_t>(form.bar);
    case MarkKind::Above:
        return static_cast<size_t>(form.above);
    case MarkKind::Below:
    case MarkKind::DotsBelow:
        return static_cast<size_t>(form.below);
    case MarkKind::Hook:
        break;
    }
    return static_cast<size_t>(form.hook);
}

template<typename Table>
auto findByName(const Table &table, std::string_view name) -> decltype(table.data())
{
    const auto found = std::ranges::find(table, name, [](const auto &sign) { return sign.name; });
    return found == table.end() ? nullptr : &*found;
}

} // namespace

std::span<const Letter> letters()
{
    return letterTable;
}

std::span<const Mark> marks()
{
    return markTable;
}

const Letter *findLetter(std::string_view name)
{
    return findByName(letterTable, name);
}

const Mark *findMark(std::string_view name)
{
    return findByName(markTable, name);
}

std::optional<LetterForm> formOf(uchar code)
{
    const char letter = static_cast<char>(code);
    const bool carriesMarks = isOneOf(letter, aboveWide) || isOneOf(letter, aboveMedium) ||
                              isOneOf(letter, aboveStem) || isOneOf(letter, aboveNarrow);
    if (!carriesMarks)
        return std::nullopt;
    return LetterForm{placeAbove(letter), placeBelow(letter),
                      isOneOf(letter, doubleBows) ? BarWidth::Wide : BarWidth::Single,
                      hookOf(letter), isOneOf(letter, bowls)};
}

uchar markCode(const Mark &mark, const LetterForm &form)
{
    if (form.hasInside && mark.inside != 0)
        return mark.inside;
    return mark.codes[position(mark, form)];
}

const Mark *markOfCode(uchar code)
{
    const uchar wanted = preferredCode(code);
    const auto found = std::ranges::find_if(markTable, [wanted](const Mark &mark) {
        return mark.inside == wanted || std::ranges::find(mark.codes, wanted) != mark.codes.end();
    });
    return wanted == 0 || found == markTable.end() ? nullptr : &*found;
}

uchar preferredCode(uchar code)
{
    switch (code) {
    case '(':
        return 0xC8;
    case 'O':
        return 0xC9;
    case '>':
        return 0xD3;
    default:
        return code;
    }
}

uchar turnedLetter(uchar code)
{
    switch (code) {
    case '8':
        return 'i';
    case 'k':
        return ',';
    default:
        return code;
    }
}
