#include "engine/source/SourceTokens.h"

#include "engine/CodePage.h"

namespace {

constexpr QLatin1String delimiters("\"<>,|:");

/// Walks one line; every step consumes at least one character.
class Tokenizer
{
public:
    Tokenizer(QStringView line, QString &problem) : line_(line), problem_(problem) {}

    QList<SourceToken> tokens()
    {
        QList<SourceToken> tokens;
        while (skipBlanks() && problem_.isEmpty())
            tokens.append(next());
        return tokens;
    }

private:
    /// Moves to the next token; false at the end of the line or at a comment.
    bool skipBlanks()
    {
        while (at_ < line_.size() && line_.at(at_).isSpace())
            ++at_;
        return at_ < line_.size() && line_.at(at_) != u'#';
    }

    SourceToken next()
    {
        switch (line_.at(at_).unicode()) {
        case '"':
            return {SourceToken::Kind::Quoted, quoted()};
        case '<':
            return {SourceToken::Kind::Group, group()};
        case ',':
            return delimiter(SourceToken::Kind::Comma);
        case '|':
            return delimiter(SourceToken::Kind::Bar);
        case ':':
            return delimiter(SourceToken::Kind::Colon);
        default:
            return word();
        }
    }

    SourceToken delimiter(SourceToken::Kind kind)
    {
        ++at_;
        return {kind, {}};
    }

    SourceToken word()
    {
        if (line_.sliced(at_).startsWith(u"->")) {
            at_ += 2;
            return {SourceToken::Kind::Arrow, {}};
        }
        const qsizetype start = at_++;
        while (at_ < line_.size() && !line_.at(at_).isSpace() &&
               !delimiters.contains(line_.at(at_)))
            ++at_;
        return {SourceToken::Kind::Word, encoded(line_.sliced(start, at_ - start))};
    }

    QByteArray group()
    {
        const qsizetype end = line_.indexOf(u'>', at_);
        const QStringView name = line_.sliced(at_ + 1, qMax<qsizetype>(end - at_ - 1, 0));
        if (name.isEmpty() || name.contains(u' '))
            fail(QStringLiteral("'<' begins the name of a table, ended by '>'; a lone '<' "
                                "stands in quotes"));
        at_ = qMax(end, at_) + 1;
        return encoded(name);
    }

    QByteArray quoted()
    {
        QByteArray text;
        for (++at_; at_ < line_.size() && line_.at(at_) != u'"';)
            text += line_.at(at_) == u'\\' ? escape() : encoded(line_.sliced(at_++, 1));
        if (at_ >= line_.size())
            fail(QStringLiteral("the quotation mark is not closed"));
        ++at_;
        return text;
    }

    QByteArray escape()
    {
        const QChar kind = at_ + 1 < line_.size() ? line_.at(at_ + 1) : QChar();
        at_ += 2;
        switch (kind.unicode()) {
        case '"':
        case '\\':
            return QByteArray(1, kind.toLatin1());
        case 'x':
            return hexEscape();
        default:
            fail(QStringLiteral("only \\\", \\\\ and \\x with two hexadecimal digits are escapes"));
            return {};
        }
    }

    QByteArray hexEscape()
    {
        bool isNumber = false;
        const QStringView digits =
            line_.sliced(qMin(at_, line_.size()))
                .first(qMin<qsizetype>(2, qMax<qsizetype>(line_.size() - at_, 0)));
        const uint code = digits.toUInt(&isNumber, 16);
        at_ += digits.size();
        if (!isNumber || digits.size() != 2 || !digits.at(0).isLetterOrNumber())
            fail(QStringLiteral("\\x is followed by two hexadecimal digits"));
        return QByteArray(1, static_cast<char>(code));
    }

    QByteArray encoded(QStringView text)
    {
        const std::optional<QByteArray> bytes = toCodePage(text);
        if (!bytes)
            fail(QStringLiteral("'%1' is not in code page 1252").arg(text));
        return bytes.value_or(QByteArray());
    }

    void fail(const QString &problem)
    {
        if (problem_.isEmpty())
            problem_ = problem;
    }

    QStringView line_;
    QString &problem_; ///< the first one; the rest of the line may only follow from it
    qsizetype at_ = 0;
};

/// Characters that an editor shows as themselves and that a quoted text may hold as they are.
bool isPlain(uchar byte)
{
    constexpr uchar softHyphen = 0xAD;
    constexpr uchar noBreakSpace = 0xA0;
    const QChar character(codePageCharacter(byte));
    return character.isPrint() && byte != softHyphen && byte != noBreakSpace;
}

} // namespace

TokenizedLine tokenizeSourceLine(QStringView line, QString &problem)
{
    return {!line.isEmpty() && line.front().isSpace(), Tokenizer(line, problem).tokens()};
}

QString quotedSourceText(const QByteArray &text)
{
    QString quoted = QStringLiteral("\"");
    for (const char character : text) {
        const auto byte = static_cast<uchar>(character);
        if (byte == '"' || byte == '\\')
            quoted += u'\\';
        if (isPlain(byte))
            quoted += QChar(codePageCharacter(byte));
        else
            quoted += QStringLiteral("\\x%1")
                          .arg(byte, 2, 16, QLatin1Char('0'))
                          .toUpper()
                          .replace(u'X', u'x');
    }
    return quoted + u'"';
}
