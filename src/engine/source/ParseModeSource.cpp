// The grammar, line by line. Words stand as they are or in quotes; in quotes \" \\ and \xNN (a byte
// of code page 1252) are escapes. A '#' where a token would begin starts a comment.
//
//   source    = { [ statement ] [ comment ] newline }
//   statement = "mode" text                         the comment that people see
//             | "case" ( "fold" | "exact" | number )
//             | "padding" ( "blanks" | "zeros" )    what fills the records; blanks by default
//             | "header" quoted                     the first record as it stands
//             | "[" heading "]"                     for the reader only
//             | "table" name ":" [ entries ]        further entries stand on indented lines below
//             | "raw" quoted                        a record as it stands
//             | "unused" number                     so many records of NUL bytes
//             | rule
//   entries   = entry { "," entry } [ "," ]
//   entry     = key { sign }  |  "<" table ">"      the entries of another table
//   rule      = pattern [ "after" conds ] [ "before" conds ] "->" { sign } [ "leaving" tag ]
//   pattern   = part { part }
//   part      = text | "<" table ">"
//   conds     = cond { "|" cond }
//   cond      = "start" (after) | "end" (before) | "head" [ suffix ] | "foot" [ suffix ] (after)
//             | text | "<" table ">"                the keys of a table
//   sign      = name of a letter or mark | quoted codes | "<" table ">" (rules only)
//   tag       = "head" [ suffix ] | "foot" [ suffix ] | text
//
// A table in a rule generates one rule for each entry; where it is named again in that rule, it
// stands for the same entry: in the pattern for its key, after the arrow for its signs.

#include "engine/source/ParseModeSource.h"

#include "engine/CodePage.h"
#include "engine/CodedText.h"
#include "engine/LoadMode.h"

#include <algorithm>

namespace {

using Kind = SourceToken::Kind;
using Tokens = QList<SourceToken>;

/// On which side of the text a condition looks.
enum class Side { After, Before };

class Parser
{
public:
    ParsedModeSource parse(const QString &text)
    {
        for (const QStringView line : QStringView(text).tokenize(u'\n')) {
            ++line_;
            QString problem;
            const TokenizedLine tokens = tokenizeSourceLine(line, problem);
            if (!problem.isEmpty())
                fail(problem);
            else if (!tokens.tokens.isEmpty())
                readLine(tokens);
        }
        finishHeader();
        return std::move(result_);
    }

private:
    void readLine(const TokenizedLine &line);
    bool readStatement(const Tokens &tokens);
    void readMode(const Tokens &tokens);
    void readCase(const Tokens &tokens);
    void readPadding(const Tokens &tokens);
    void readHeader(const Tokens &tokens);
    void readTable(const Tokens &tokens);
    void readEntries(const Tokens &tokens);
    void readEntry(const Tokens &tokens);
    void readRaw(const Tokens &tokens);
    void readUnused(const Tokens &tokens);
    void readRule(const Tokens &tokens);
    std::vector<PatternItem> readPattern(const Tokens &tokens);
    std::vector<SourceCondition> readConditions(const Tokens &tokens, Side side);
    std::optional<SourceCondition> readCondition(const Tokens &tokens, Side side);
    SignList readSigns(const Tokens &tokens);
    std::variant<QByteArray, FormTag> readTag(const Tokens &tokens);
    const SourceTable *table(const QByteArray &name);
    void finishHeader();
    void fail(const QString &message) { result_.problems.append({line_, message}); }

    ParsedModeSource result_;
    std::optional<QByteArray> comment_;
    int caseMode_ = 0;
    QByteArray openTable_; ///< that indented lines belong to; empty: none
    int line_ = 0;
};

QString shown(const QByteArray &text)
{
    return fromCodePage(text);
}

/// Cuts at each token of that kind; there is always one part more than cuts.
QList<Tokens> split(const Tokens &tokens, Kind kind)
{
    QList<Tokens> parts(1);
    for (const SourceToken &token : tokens) {
        if (token.kind == kind)
            parts.append(Tokens());
        else
            parts.last().append(token);
    }
    return parts;
}

/// Takes what stands in front of `word` off the tokens, and the word too; everything if it is not
/// there.
Tokens takeUntil(Tokens &tokens, const char *word)
{
    qsizetype length = 0;
    while (length < tokens.size() && !tokens.at(length).isWord(word))
        ++length;
    Tokens taken = tokens.first(length);
    tokens.remove(0, qMin(length + 1, tokens.size()));
    return taken;
}

/// "head" or "foot" with or without a suffix.
std::optional<FormTag> formTag(const Tokens &tokens)
{
    const bool isHead = !tokens.isEmpty() && tokens.first().isWord("head");
    const bool isFoot = !tokens.isEmpty() && tokens.first().isWord("foot");
    const bool hasSuffix = tokens.size() == 2 && tokens.at(1).isText();
    if ((!isHead && !isFoot) || (tokens.size() != 1 && !hasSuffix))
        return std::nullopt;
    return FormTag{isHead ? FormKind::Head : FormKind::Foot,
                   hasSuffix ? tokens.at(1).text : QByteArray()};
}

void Parser::readLine(const TokenizedLine &line)
{
    if (line.isIndented) {
        if (openTable_.isEmpty())
            fail(QStringLiteral("an indented line belongs to a table, and there is none above it"));
        else
            readEntries(line.tokens);
        return;
    }
    openTable_.clear();
    if (!readStatement(line.tokens))
        readRule(line.tokens);
}

bool Parser::readStatement(const Tokens &tokens)
{
    struct Statement
    {
        const char *word;
        void (Parser::*read)(const Tokens &);
    };
    static constexpr Statement statements[] = {
        {"mode", &Parser::readMode},       {"case", &Parser::readCase},
        {"padding", &Parser::readPadding}, {"header", &Parser::readHeader},
        {"table", &Parser::readTable},     {"raw", &Parser::readRaw},
        {"unused", &Parser::readUnused},
    };
    if (tokens.first().kind == Kind::Word && tokens.first().text.startsWith('['))
        return true;
    const bool isRule = std::ranges::any_of(
        tokens, [](const SourceToken &token) { return token.kind == Kind::Arrow; });
    if (isRule)
        return false;
    for (const Statement &statement : statements) {
        if (tokens.first().isWord(statement.word)) {
            (this->*statement.read)(tokens.sliced(1));
            return true;
        }
    }
    return false;
}

void Parser::readMode(const Tokens &tokens)
{
    constexpr qsizetype maximumComment = RuleRecordLength - 3;
    if (tokens.size() != 1 || !tokens.first().isText())
        fail(QStringLiteral("'mode' is followed by the comment in quotes"));
    else if (tokens.first().text.size() > maximumComment)
        fail(QStringLiteral("the comment has %1 characters; a header holds %2")
                 .arg(tokens.first().text.size())
                 .arg(maximumComment));
    else if (tokens.first().text.contains('\t'))
        fail(QStringLiteral("the comment holds a TAB, which would end it"));
    else if (comment_)
        fail(QStringLiteral("there is already a 'mode' line"));
    else
        comment_ = tokens.first().text;
}

void Parser::readCase(const Tokens &tokens)
{
    const QByteArray value = tokens.size() == 1 ? tokens.first().text : QByteArray();
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (value == "fold")
        caseMode_ = 0;
    else if (value == "exact")
        caseMode_ = 1;
    else if (isNumber && value.size() <= 2)
        caseMode_ = number;
    else
        fail(QStringLiteral("'case' is followed by 'fold', 'exact' or a number of two characters"));
}

void Parser::readPadding(const Tokens &tokens)
{
    if (tokens.size() == 1 && tokens.first().isWord("blanks"))
        result_.source.padding = ' ';
    else if (tokens.size() == 1 && tokens.first().isWord("zeros"))
        result_.source.padding = '\0';
    else
        fail(QStringLiteral("'padding' is followed by 'blanks' or 'zeros'"));
}

void Parser::readHeader(const Tokens &tokens)
{
    if (tokens.size() != 1 || tokens.first().kind != Kind::Quoted)
        fail(QStringLiteral("'header' is followed by the record in quotes"));
    else if (tokens.first().text.size() > RuleRecordLength)
        fail(QStringLiteral("a record holds %1 bytes").arg(RuleRecordLength));
    else
        result_.source.header = tokens.first().text;
}

void Parser::readTable(const Tokens &tokens)
{
    const bool isDeclared =
        tokens.size() >= 2 && tokens.at(0).kind == Kind::Word && tokens.at(1).kind == Kind::Colon;
    if (!isDeclared) {
        fail(QStringLiteral("'table' is followed by a name and ':'"));
        return;
    }
    openTable_ = tokens.first().text;
    if (result_.source.tables.contains(openTable_))
        fail(QStringLiteral("there is already a table '%1'").arg(shown(openTable_)));
    result_.source.tables[openTable_];
    readEntries(tokens.sliced(2));
}

void Parser::readEntries(const Tokens &tokens)
{
    QList<Tokens> entries = split(tokens, Kind::Comma);
    if (entries.last().isEmpty())
        entries.removeLast();
    for (const Tokens &entry : std::as_const(entries))
        readEntry(entry);
}

void Parser::readEntry(const Tokens &tokens)
{
    if (tokens.size() == 1 && tokens.first().kind == Kind::Group) {
        if (const SourceTable *other = table(tokens.first().text)) {
            const SourceTable entries = *other;
            SourceTable &open = result_.source.tables[openTable_];
            if (open.size() + entries.size() > maximumRecords)
                fail(QStringLiteral("a table has at most %1 entries").arg(maximumRecords));
            else
                open.insert(open.end(), entries.begin(), entries.end());
        }
        return;
    }
    if (tokens.isEmpty() || !tokens.first().isText()) {
        fail(QStringLiteral("an entry of a table begins with a text"));
        return;
    }
    SignList signs = readSigns(tokens.sliced(1));
    const bool hasGroup = std::ranges::any_of(
        signs, [](const SignItem &sign) { return std::holds_alternative<GroupReference>(sign); });
    if (hasGroup)
        fail(QStringLiteral("the signs of an entry can't come from another table"));
    else
        result_.source.tables[openTable_].push_back({tokens.first().text, std::move(signs)});
}

void Parser::readRaw(const Tokens &tokens)
{
    if (tokens.size() != 1 || tokens.first().kind != Kind::Quoted)
        fail(QStringLiteral("'raw' is followed by a record in quotes"));
    else if (tokens.first().text.size() > RuleRecordLength)
        fail(QStringLiteral("a record holds %1 bytes").arg(RuleRecordLength));
    else
        result_.source.statements.emplace_back(RawRecord{line_, tokens.first().text});
}

void Parser::readUnused(const Tokens &tokens)
{
    bool isNumber = false;
    const int count = tokens.size() == 1 ? tokens.first().text.toInt(&isNumber) : 0;
    if (!isNumber || count < 1) {
        fail(QStringLiteral("'unused' is followed by a number of records"));
        return;
    }
    if (result_.source.statements.size() + static_cast<size_t>(count) > maximumRecords) {
        fail(QStringLiteral("a source has at most %1 records").arg(maximumRecords));
        return;
    }
    const RawRecord record{line_, QByteArray(RuleRecordLength, '\0')};
    result_.source.statements.insert(result_.source.statements.end(), static_cast<size_t>(count),
                                     record);
}

void Parser::readRule(const Tokens &tokens)
{
    const QList<Tokens> sides = split(tokens, Kind::Arrow);
    if (sides.size() != 2) {
        fail(QStringLiteral("a rule has one '->'; this line is no statement either"));
        return;
    }
    const qsizetype problems = result_.problems.size();
    Tokens left = sides.first();
    Tokens right = sides.last();
    Tokens before = left;
    left = takeUntil(before, "before");
    Tokens after = left;
    const Tokens pattern = takeUntil(after, "after");
    const bool hasTag = std::ranges::any_of(
        right, [](const SourceToken &token) { return token.isWord("leaving"); });
    const Tokens signs = takeUntil(right, "leaving");
    RuleLine rule{line_, readPattern(pattern), {}, {}, readSigns(signs), QByteArray()};
    if (pattern.size() < left.size())
        rule.after = readConditions(after, Side::After);
    if (left.size() < sides.first().size())
        rule.before = readConditions(before, Side::Before);
    if (hasTag)
        rule.leaving = readTag(right);
    if (result_.problems.size() == problems)
        result_.source.statements.emplace_back(std::move(rule));
}

std::vector<PatternItem> Parser::readPattern(const Tokens &tokens)
{
    std::vector<PatternItem> pattern;
    for (const SourceToken &token : tokens) {
        if (token.isText())
            pattern.emplace_back(token.text);
        else if (token.kind == Kind::Group && table(token.text) != nullptr)
            pattern.emplace_back(GroupReference{token.text});
        else if (token.kind != Kind::Group)
            fail(QStringLiteral("',', '|' and ':' stand in quotes where a text is meant"));
    }
    if (tokens.isEmpty())
        fail(QStringLiteral("a rule begins with the text that it matches"));
    if (tokens.size() > maximumWindow)
        fail(QStringLiteral("a rule matches at most %1 characters").arg(maximumWindow));
    return pattern;
}

std::vector<SourceCondition> Parser::readConditions(const Tokens &tokens, Side side)
{
    std::vector<SourceCondition> conditions;
    const QList<Tokens> alternatives = split(tokens, Kind::Bar);
    for (const Tokens &alternative : alternatives) {
        if (std::optional<SourceCondition> condition = readCondition(alternative, side))
            conditions.push_back(std::move(*condition));
    }
    return conditions;
}

std::optional<SourceCondition> Parser::readCondition(const Tokens &tokens, Side side)
{
    const bool isAfter = side == Side::After;
    if (isAfter && formTag(tokens))
        return *formTag(tokens);
    if (tokens.size() == 1 && tokens.first().isWord(isAfter ? "start" : "end"))
        return Boundary();
    if (tokens.size() == 1 && tokens.first().kind == Kind::Group)
        return table(tokens.first().text)
                   ? std::optional<SourceCondition>(GroupReference{tokens.first().text})
                   : std::nullopt;
    if (tokens.size() == 1 && tokens.first().isText() && !tokens.first().text.isEmpty())
        return tokens.first().text;
    fail(isAfter ? QStringLiteral("'after' takes 'start', 'head', 'foot', a tag or a table")
                 : QStringLiteral("'before' takes 'end', a character or a table"));
    return std::nullopt;
}

SignList Parser::readSigns(const Tokens &tokens)
{
    SignList signs;
    for (const SourceToken &token : tokens) {
        const std::string_view name(token.text.data(), static_cast<size_t>(token.text.size()));
        if (token.kind == Kind::Quoted)
            signs.emplace_back(token.text);
        else if (token.kind == Kind::Group && table(token.text) != nullptr)
            signs.emplace_back(GroupReference{token.text});
        else if (token.kind == Kind::Word && findLetter(name) != nullptr)
            signs.emplace_back(findLetter(name));
        else if (token.kind == Kind::Word && findMark(name) != nullptr)
            signs.emplace_back(findMark(name));
        else if (token.kind != Kind::Group)
            fail(QStringLiteral("there is no sign '%1'").arg(shown(token.text)));
    }
    return signs;
}

std::variant<QByteArray, FormTag> Parser::readTag(const Tokens &tokens)
{
    if (const std::optional<FormTag> tag = formTag(tokens))
        return *tag;
    if (tokens.size() == 1 && tokens.first().isText())
        return tokens.first().text;
    fail(QStringLiteral("'leaving' takes 'head', 'foot' or a tag"));
    return QByteArray();
}

const SourceTable *Parser::table(const QByteArray &name)
{
    const auto found = result_.source.tables.constFind(name);
    if (found != result_.source.tables.constEnd())
        return &*found;
    fail(QStringLiteral("there is no table '%1' above this line").arg(shown(name)));
    return nullptr;
}

void Parser::finishHeader()
{
    line_ = 1;
    const bool isGiven = result_.source.header.has_value();
    if (comment_ && !isGiven)
        result_.source.header =
            (*comment_ + '\t' + QByteArray::number(caseMode_)).leftJustified(RuleRecordLength, ' ');
    else if (comment_ || !isGiven)
        fail(QStringLiteral("a source has either a 'mode' line or a 'header' line"));
    else if (result_.source.header->size() < RuleRecordLength && !result_.source.statements.empty())
        fail(QStringLiteral("only the last record may be shorter than %1 bytes")
                 .arg(RuleRecordLength));
}

} // namespace

ParsedModeSource parseModeSource(const QString &text)
{
    return Parser().parse(text);
}
