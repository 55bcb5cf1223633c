#include "rtf/RtfWriter.h"

#include "rtf/RtfCodePages.h"
#include "rtf/RtfFormat.h"
#include <QHash>
#include <QTextBlock>
#include <QTextDocument>
#include <utility>

namespace {

constexpr int twipsPerHalfPoint = 10;
constexpr int symbolCharset = 2;

/// How the characters of a font are written.
enum class Encoding { Latin, Unicode, Symbol };

/// The control words that switch to a format.
struct Switch
{
    QByteArray words;
    Encoding encoding = Encoding::Latin;
};

void appendWord(QByteArray &out, const char *word, int parameter)
{
    out.append(word).append(QByteArray::number(parameter));
}

void appendLength(QByteArray &out, const char *word, int twips)
{
    if (twips != 0)
        appendWord(out, word, twips);
}

void appendUnicode(QByteArray &out, char16_t unit)
{
    appendWord(out, "\\u", static_cast<qint16>(unit));
    out.append('?');
}

void appendHexByte(QByteArray &out, uchar byte)
{
    constexpr char digits[] = "0123456789abcdef";
    out.append("\\'").append(digits[byte >> 4]).append(digits[byte & 0xF]);
}

void appendSpecial(QByteArray &out, char16_t character, Encoding encoding)
{
    const std::optional<uchar> byte =
        encoding == Encoding::Latin ? RtfCodePage::latinByte(character) : std::nullopt;
    if (byte)
        appendHexByte(out, *byte);
    else
        appendUnicode(out, character);
}

void appendCharacter(QByteArray &out, char16_t character, Encoding encoding)
{
    switch (character) {
    case u'\\':
    case u'{':
    case u'}':
        if (encoding == Encoding::Symbol)
            appendUnicode(out, character);
        else
            out.append('\\').append(static_cast<char>(character));
        return;
    case u'\t':
        out.append("\\tab ");
        return;
    case u'\f':
        out.append("\\page ");
        return;
    case QChar::LineSeparator:
        out.append("\\line ");
        return;
    case QChar::Nbsp:
        out.append("\\~");
        return;
    case QChar::ObjectReplacementCharacter:
        character = QChar::SoftHyphen; // shown as an object; see RtfFormat.h
        break;
    default:
        break;
    }
    const bool isAscii = character < 0x80;
    if (isAscii && (encoding != Encoding::Symbol || character == u' ')) {
        if (character >= 0x20)
            out.append(static_cast<char>(character));
    } else {
        appendSpecial(out, character, encoding);
    }
}

const char *alignmentWord(Qt::Alignment alignment)
{
    switch (alignment.toInt()) {
    case Qt::AlignRight:
        return "\\qr";
    case Qt::AlignHCenter:
        return "\\qc";
    case Qt::AlignJustify:
        return "\\qj";
    default:
        return "";
    }
}

const char *tabTypeWord(QTextOption::TabType type)
{
    switch (type) {
    case QTextOption::RightTab:
        return "\\tqr";
    case QTextOption::CenterTab:
        return "\\tqc";
    case QTextOption::DelimiterTab:
        return "\\tqdec";
    case QTextOption::LeftTab:
        break;
    }
    return "";
}

/// Writes one document. The body is written first; it tells which fonts, colours and lists the
/// header must hold.
class Writer
{
public:
    explicit Writer(const QTextDocument &document)
        : document_(document), defaultFont_(document.defaultFont())
    {
    }

    [[nodiscard]] QByteArray write();

private:
    struct FontEntry
    {
        QString family;
        int charset = 0;
    };

    void writeBlock(const QTextBlock &block);
    void writeText(QStringView text, const Switch &format);
    void switchTo(const Switch &format);
    [[nodiscard]] const Switch &characterSwitch(const QTextCharFormat &format, int index);
    [[nodiscard]] QByteArray characterWords(const CharacterFormat &format);
    [[nodiscard]] const QByteArray &paragraphWords(const QTextBlock &block);
    [[nodiscard]] QByteArray bulletWords(const ParagraphFormat &format);
    [[nodiscard]] int fontNumber(const QString &family, int charset);
    [[nodiscard]] int colourNumber(QRgb colour);
    [[nodiscard]] QByteArray header() const;
    [[nodiscard]] QByteArray fontTable() const;
    [[nodiscard]] QByteArray listTables() const;

    const QTextDocument &document_;
    QFont defaultFont_;
    QByteArray body_;
    QByteArray current_;                    ///< the words of the format that the text is in
    QHash<int, Switch> characterSwitches_;  ///< by the index of their QTextFormat
    QHash<int, QByteArray> paragraphWords_; ///< the same
    QList<FontEntry> fonts_;
    QHash<std::pair<QString, int>, int> fontNumbers_;
    QList<QRgb> colours_;
    QHash<QRgb, int> colourNumbers_;
    int bulletFont_ = -1;
};

QByteArray Writer::write()
{
    body_.reserve(2 * document_.characterCount() + 1024);
    for (QTextBlock block = document_.begin(); block.isValid(); block = block.next())
        writeBlock(block);
    body_.append('}');
    return header() + body_;
}

void Writer::writeBlock(const QTextBlock &block)
{
    body_.append(paragraphWords(block));
    current_.clear();
    const QString text = block.text();
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const auto view =
            QStringView(text).sliced(fragment.position() - block.position(), fragment.length());
        const int index = fragment.charFormatIndex();
        auto known = characterSwitches_.constFind(index);
        writeText(view, known != characterSwitches_.constEnd()
                            ? *known
                            : characterSwitch(fragment.charFormat(), index));
    }
    switchTo(characterSwitch(block.charFormat(), block.charFormatIndex()));
    body_.append("\\par\n");
}

void Writer::switchTo(const Switch &format)
{
    if (format.words == current_)
        return;
    current_ = format.words;
    body_.append(current_);
}

void Writer::writeText(QStringView text, const Switch &format)
{
    switchTo(format);
    for (const QChar character : text)
        appendCharacter(body_, character.unicode(), format.encoding);
}

const Switch &Writer::characterSwitch(const QTextCharFormat &format, int index)
{
    const auto known = characterSwitches_.constFind(index);
    if (known != characterSwitches_.constEnd())
        return *known;
    const CharacterFormat attributes = CharacterFormat::of(format, defaultFont_);
    Switch made{characterWords(attributes)};
    if (attributes.isSymbolFont())
        made.encoding = Encoding::Symbol;
    else if (attributes.charset != 0 && attributes.charset != symbolCharset)
        made.encoding = Encoding::Unicode;
    return *characterSwitches_.insert(index, made);
}

QByteArray Writer::characterWords(const CharacterFormat &format)
{
    QByteArray words("\\plain");
    appendWord(words, "\\f", fontNumber(format.family, format.charset));
    appendWord(words, "\\fs", format.halfPoints);
    if (format.colour)
        appendWord(words, "\\cf", colourNumber(*format.colour));
    constexpr std::pair<CharacterStyle, const char *> styleWords[] = {
        {CharacterStyle::Bold, "\\b"},           {CharacterStyle::Italic, "\\i"},
        {CharacterStyle::Underline, "\\ul"},     {CharacterStyle::StrikeOut, "\\strike"},
        {CharacterStyle::AllCapitals, "\\caps"}, {CharacterStyle::SmallCapitals, "\\scaps"},
        {CharacterStyle::Hidden, "\\v"},         {CharacterStyle::Deleted, "\\deleted"},
    };
    for (const auto &[style, word] : styleWords) {
        if (format.styles & style)
            words.append(word);
    }
    if (format.script != Script::Baseline)
        words.append(format.script == Script::Superscript ? "\\super" : "\\sub");
    const int offset = qRound(static_cast<double>(format.offset) / twipsPerHalfPoint);
    if (offset != 0)
        appendWord(words, offset > 0 ? "\\up" : "\\dn", std::abs(offset));
    return words.append(' ');
}

const QByteArray &Writer::paragraphWords(const QTextBlock &block)
{
    const int index = block.blockFormatIndex();
    const auto known = paragraphWords_.constFind(index);
    if (known != paragraphWords_.constEnd())
        return *known;
    const ParagraphFormat format = ParagraphFormat::of(block.blockFormat());
    QByteArray words("\\pard");
    words.append(alignmentWord(format.alignment));
    if (format.bullet) {
        words.append(bulletWords(format));
    } else {
        if (format.bulletIndent != 0)
            words.append("{\\*\\pn\\pnindent")
                .append(QByteArray::number(format.bulletIndent))
                .append('}');
        appendLength(words, "\\fi", format.firstLine);
        appendLength(words, "\\li", format.left);
    }
    appendLength(words, "\\ri", format.right);
    appendLength(words, "\\sb", format.spaceBefore);
    appendLength(words, "\\sa", format.spaceAfter);
    for (const TabStop &tab : format.tabs)
        appendWord(words.append(tabTypeWord(tab.type)), "\\tx", tab.position);
    return *paragraphWords_.insert(index, words);
}

QByteArray Writer::bulletWords(const ParagraphFormat &format)
{
    if (bulletFont_ < 0)
        bulletFont_ = fontNumber(QStringLiteral("Symbol"), symbolCharset);
    const QByteArray font = QByteArray::number(bulletFont_);
    QByteArray words = "{\\listtext\\f" + font + "\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf" + font;
    appendWord(words, "\\pnindent", format.bulletIndent);
    words.append("{\\pntxtb\\'b7}}\\ls1\\ilvl0");
    appendWord(words, "\\fi", format.firstLine); // in full: the list's own indents would hold else
    appendWord(words, "\\li", format.left);
    return words;
}

int Writer::fontNumber(const QString &family, int charset)
{
    const auto known = fontNumbers_.constFind({family, charset});
    if (known != fontNumbers_.constEnd())
        return *known;
    fonts_.append({family, charset});
    return *fontNumbers_.insert({family, charset}, static_cast<int>(fonts_.size()) - 1);
}

int Writer::colourNumber(QRgb colour)
{
    const auto known = colourNumbers_.constFind(colour);
    if (known != colourNumbers_.constEnd())
        return *known;
    colours_.append(colour);
    return *colourNumbers_.insert(colour, static_cast<int>(colours_.size()));
}

QByteArray Writer::header() const
{
    QByteArray out("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\n");
    out.append(fontTable());
    out.append("{\\colortbl;");
    for (const QRgb colour : colours_) {
        appendWord(out, "\\red", qRed(colour));
        appendWord(out, "\\green", qGreen(colour));
        appendWord(out, "\\blue", qBlue(colour));
        out.append(';');
    }
    out.append("}\n");
    if (bulletFont_ >= 0)
        out.append(listTables());
    return out.append("{\\*\\generator Quillon;}\\deftab720\\viewkind4\n");
}

QByteArray Writer::fontTable() const
{
    QByteArray out("{\\fonttbl");
    for (qsizetype number = 0; number < fonts_.size(); ++number) {
        appendWord(out, "{\\f", static_cast<int>(number));
        appendWord(out, "\\fnil\\fcharset", fonts_[number].charset);
        out.append(' ');
        for (const QChar character : fonts_[number].family) {
            if (!character.isPrint() || QStringView(u"{}\\;").contains(character))
                continue;
            if (character.unicode() >= 0x80)
                appendUnicode(out, character.unicode());
            else
                out.append(character.toLatin1());
        }
        out.append(";}");
    }
    return out.append("}\n");
}

QByteArray Writer::listTables() const
{
    const QByteArray font = QByteArray::number(bulletFont_);
    return "{\\*\\listtable{\\list\\listtemplateid101\\listhybrid{\\listlevel\\levelnfc23"
           "\\levelnfcn23\\leveljc0\\levelfollow0\\levelstartat1{\\leveltext\\'01\\u-3913 ?;}"
           "{\\levelnumbers;}\\f" +
           font +
           "\\fi-360\\li720}{\\listname ;}\\listid1001}}\n"
           "{\\*\\listoverridetable{\\listoverride\\listid1001\\listoverridecount0\\ls1}}\n";
}

} // namespace

QByteArray writeRtf(const QTextDocument &document)
{
    return Writer(document).write();
}
