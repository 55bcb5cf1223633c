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
        isMixed_ = isMixed_ || (value_ && *value_ != value);
        value_ = value;
    }
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

/// Visits the paragraphs that a selection touches.
template<typename Visit> void forEachBlock(const QTextCursor &cursor, Visit visit)
{
    const QTextDocument &document = *cursor.document();
    const int end = cursor.selectionEnd();
    for (QTextBlock block = document.findBlock(cursor.selectionStart());
         block.isValid() && block.position() <= end; block = block.next())
        visit(block);
}

/// Visits the runs of characters that a selection covers, as (position, length, format index). A
/// paragraph's end is a run of its own.
template<typename Visit>
void forEachRun(const QTextCursor &cursor, bool withParagraphEnds, Visit visit)
{
    const int start = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    forEachBlock(cursor, [&](const QTextBlock &block) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            const int first = std::max(run.position(), start);
            const int last = std::min(run.position() + run.length(), end);
            if (first < last)
                visit(first, last - first, run.charFormatIndex());
        }
        const int blockEnd = block.position() + block.length() - 1;
        if (withParagraphEnds && blockEnd >= start && blockEnd < end)
            visit(blockEnd, 1, block.next().charFormatIndex());
    });
}

QTextCharFormat formatAt(const QTextDocument &document, int index)
{
    return document.allFormats().at(index).toCharFormat();
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

SelectionFormat selectionFormat(const QTextCursor &cursor)
{
    const QTextDocument &document = *cursor.document();
    const QList<QTextFormat> formats = document.allFormats();
    CharacterAttributes characters;
    QSet<int> seen;
    forEachRun(cursor, false, [&](int /*position*/, int /*length*/, int index) {
        if (seen.contains(index))
            return;
        seen.insert(index);
        characters.add(
            CharacterFormat::of(formats.at(index).toCharFormat(), document.defaultFont()));
    });
    if (seen.isEmpty())
        characters.add(CharacterFormat::of(insertionFormat(cursor), document.defaultFont()));
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
    std::vector<Run> runs; // collected first: setting a format joins and splits what is visited
    forEachRun(cursor, true, [&](int position, int length, int index) {
        runs.push_back({position, length, index});
    });
    QHash<int, QTextCharFormat> changed;
    QTextCursor editor(cursor);
    editor.beginEditBlock();
    for (const Run &run : runs) {
        auto known = changed.constFind(run.index);
        if (known == changed.constEnd()) {
            QTextCharFormat format = formatAt(*cursor.document(), run.index);
            CharacterFormat attributes =
                CharacterFormat::of(format, cursor.document()->defaultFont());
            change(attributes);
            attributes.applyTo(format);
            known = changed.insert(run.index, format);
        }
        editor.setPosition(run.position);
        editor.setPosition(run.position + run.length, QTextCursor::KeepAnchor);
        editor.setCharFormat(*known);
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
