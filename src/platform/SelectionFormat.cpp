#include "platform/SelectionFormat.h"

#include <QHash>
#include <QSet>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <vector>

namespace {

/// Collects one attribute of several objects: the value of all, or nothing once two differ.
template<typename Value> class Common
{
public:
    void add(const Value &value)
    {
        if (!value_)
            value_ = value;
        else if (*value_ != value)
            isMixed_ = true;
    }
    [[nodiscard]] bool isMixed() const { return isMixed_; }
    [[nodiscard]] std::optional<Value> value() const { return isMixed_ ? std::nullopt : value_; }

private:
    std::optional<Value> value_;
    bool isMixed_ = false;
};

Alignment alignmentOf(const ParagraphFormat &format)
{
    switch (format.alignment.toInt()) {
    case Qt::AlignRight:
        return Alignment::Right;
    case Qt::AlignHCenter:
        return Alignment::Center;
    default:
        return Alignment::Left;
    }
}

class CharacterAttributes
{
public:
    void add(const CharacterFormat &format)
    {
        fontName_.add(format.family);
        halfPoints_.add(format.halfPoints);
        bold_.add(format.styles.testFlag(CharacterStyle::Bold));
        italic_.add(format.styles.testFlag(CharacterStyle::Italic));
        underline_.add(format.styles.testFlag(CharacterStyle::Underline));
        charOffset_.add(format.offset);
    }

    /// Whether nothing that is added can change the result.
    [[nodiscard]] bool areAllMixed() const
    {
        return fontName_.isMixed() && halfPoints_.isMixed() && bold_.isMixed() &&
               italic_.isMixed() && underline_.isMixed() && charOffset_.isMixed();
    }

    void storeIn(SelectionFormat &result) const
    {
        result.fontName = fontName_.value();
        if (const std::optional<int> halfPoints = halfPoints_.value())
            result.fontSize = *halfPoints / 2.0;
        result.bold = bold_.value();
        result.italic = italic_.value();
        result.underline = underline_.value();
        result.charOffset = charOffset_.value();
    }

private:
    Common<QString> fontName_;
    Common<int> halfPoints_;
    Common<bool> bold_;
    Common<bool> italic_;
    Common<bool> underline_;
    Common<int> charOffset_;
};

class ParagraphAttributes
{
public:
    void add(const ParagraphFormat &format)
    {
        alignment_.add(alignmentOf(format));
        bullet_.add(format.bullet);
        indent_.add(format.left + format.firstLine);
        hangingIndent_.add(-format.firstLine);
        rightIndent_.add(format.right);
        bulletIndent_.add(format.bulletIndent);
    }

    void storeIn(SelectionFormat &result) const
    {
        result.alignment = alignment_.value();
        result.bullet = bullet_.value();
        result.indent = indent_.value();
        result.hangingIndent = hangingIndent_.value();
        result.rightIndent = rightIndent_.value();
        result.bulletIndent = bulletIndent_.value();
    }

private:
    Common<Alignment> alignment_;
    Common<bool> bullet_;
    Common<int> indent_;
    Common<int> hangingIndent_;
    Common<int> rightIndent_;
    Common<int> bulletIndent_;
};

/// Visits the paragraphs that a selection touches. One at whose very start it ends, as it does
/// after whole lines were selected, is not among them, but for the empty one at the text's end.
template<typename Visit> void forEachBlock(const QTextCursor &cursor, Visit visit)
{
    const QTextDocument &document = *cursor.document();
    const int last = document.characterCount() - 1;
    const int end = cursor.selectionEnd() == last ? last + 1 : cursor.selectionEnd();
    QTextBlock block = document.findBlock(cursor.selectionStart());
    do {
        visit(block);
        block = block.next();
    } while (block.isValid() && block.position() < end);
}

/// Visits the runs of characters that a selection covers, as (position, length, format index). A
/// paragraph's end is a run of its own.
template<typename Visit>
void forEachRun(const QTextCursor &cursor, bool withParagraphEnds, Visit visit)
{
    const int start = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    forEachBlock(cursor, [&](const QTextBlock &block) {
        int position = block.position(); // asking each run for its own takes half of the time
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            const int first = std::max(position, start);
            position += run.length();
            const int last = std::min(position, end);
            if (first < last)
                visit(first, last - first, run.charFormatIndex());
        }
        const int blockEnd = block.position() + block.length() - 1;
        if (withParagraphEnds && blockEnd >= start && blockEnd < end)
            visit(blockEnd, 1, block.next().charFormatIndex());
    });
}

} // namespace

QTextCharFormat insertionFormat(const QTextCursor &cursor)
{
    if (!cursor.hasSelection())
        return cursor.charFormat();
    QTextCursor first(cursor);
    first.setPosition(cursor.selectionStart());
    first.movePosition(QTextCursor::NextCharacter);
    return first.charFormat();
}

QTextCharFormat firstFormat(const QTextDocument &document)
{
    const QTextBlock block = document.firstBlock();
    return block.length() > 1 ? block.begin().fragment().charFormat() : block.charFormat();
}

SelectionFormat selectionFormat(const QTextCursor &cursor)
{
    const QTextDocument &document = *cursor.document();
    const QList<QTextFormat> formats = document.allFormats();
    const QFont defaultFont = document.defaultFont();
    CharacterAttributes characters;
    std::vector<bool> seen(size_t(formats.size()));
    bool isEmpty = true;
    forEachRun(cursor, false, [&](int /*position*/, int /*length*/, int index) {
        isEmpty = false;
        if (characters.areAllMixed() || seen[size_t(index)])
            return;
        seen[size_t(index)] = true;
        characters.add(CharacterFormat::of(formats.at(index).toCharFormat(), defaultFont));
    });
    if (isEmpty)
        characters.add(CharacterFormat::of(insertionFormat(cursor), defaultFont));
    ParagraphAttributes paragraphs;
    QSet<int> seenBlocks;
    forEachBlock(cursor, [&](const QTextBlock &block) {
        if (seenBlocks.contains(block.blockFormatIndex()))
            return;
        seenBlocks.insert(block.blockFormatIndex());
        paragraphs.add(ParagraphFormat::of(block.blockFormat()));
    });
    SelectionFormat result;
    characters.storeIn(result);
    paragraphs.storeIn(result);
    return result;
}

void changeCharacters(const QTextCursor &cursor,
                      const std::function<void(CharacterFormat &)> &change)
{
    struct Run
    {
        int position;
        int length;
        int index;
    };
    const QTextDocument &document = *cursor.document();
    std::vector<Run> runs; // collected first: setting a format joins and splits what is visited
    forEachRun(cursor, true, [&](int position, int length, int index) {
        runs.push_back({position, length, index});
    });
    QHash<int, QTextCharFormat> changed;
    const auto changedFormat = [&](int index) {
        const auto known = changed.constFind(index);
        if (known != changed.constEnd())
            return *known;
        QTextCharFormat format = document.allFormats().at(index).toCharFormat();
        CharacterFormat attributes = CharacterFormat::of(format, document.defaultFont());
        change(attributes);
        attributes.applyTo(format);
        return *changed.insert(index, format);
    };
    QTextCursor editor(cursor);
    editor.beginEditBlock();
    if (cursor.hasSelection() && cursor.selectionStart() == 0) {
        editor.setPosition(0);
        editor.setBlockCharFormat(changedFormat(document.firstBlock().charFormatIndex()));
    }
    for (const Run &run : runs) {
        editor.setPosition(run.position);
        editor.setPosition(run.position + run.length, QTextCursor::KeepAnchor);
        editor.setCharFormat(changedFormat(run.index));
    }
    editor.endEditBlock();
}

void changeParagraphs(const QTextCursor &cursor,
                      const std::function<void(ParagraphFormat &)> &change)
{
    QTextCursor editor(cursor);
    editor.beginEditBlock();
    forEachBlock(cursor, [&](const QTextBlock &block) {
        ParagraphFormat format = ParagraphFormat::of(block.blockFormat());
        change(format);
        applyParagraphFormat(QTextCursor(block), format);
    });
    editor.endEditBlock();
}

void keepFormatOfEmptyParagraph(QTextCursor &cursor, const QTextCharFormat &format)
{
    if (cursor.block().length() == 1 && cursor.blockCharFormat() != format)
        cursor.setBlockCharFormat(format);
}
