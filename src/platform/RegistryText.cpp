#include "platform/RegistryText.h"

#include <QStringDecoder>
#include <algorithm>

namespace {

constexpr QChar separator(u'\\');
constexpr QChar quote(u'"');
constexpr int hexDigits = 4;

QString normalised(const QString &path)
{
    return path.split(separator, Qt::SkipEmptyParts).join(separator);
}

bool isSame(const QString &left, const QString &right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// Whether the character at that place would not survive, or not be seen, in a line of text.
bool needsEscape(QStringView text, qsizetype at)
{
    const QChar character = text[at];
    if (character.isHighSurrogate())
        return at + 1 == text.size() || !text[at + 1].isLowSurrogate();
    if (character.isLowSurrogate())
        return at == 0 || !text[at - 1].isHighSurrogate();
    return !character.isPrint();
}

QString hexCode(QChar character)
{
    return QStringLiteral("%1").arg(character.unicode(), hexDigits, 16, QLatin1Char('0'));
}

std::optional<QChar> fromHexCode(QStringView text)
{
    const QStringView digits = text.first(std::min<qsizetype>(hexDigits, text.size()));
    const auto isHex = [](QChar digit) {
        return digit.unicode() < 0x80 && std::isxdigit(digit.unicode()) != 0;
    };
    if (digits.size() < hexDigits || !std::all_of(digits.begin(), digits.end(), isHex))
        return std::nullopt;
    return QChar(digits.toUShort(nullptr, 16));
}

QString quoted(const QString &text)
{
    QString form = quote;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        if (character == quote || character == separator)
            form += separator, form += character;
        else if (character == u'\n')
            form += QLatin1String("\\n");
        else if (character == u'\r')
            form += QLatin1String("\\r");
        else if (character == u'\t')
            form += QLatin1String("\\t");
        else if (needsEscape(text, i))
            form += QLatin1String("\\u") + hexCode(character);
        else
            form += character;
    }
    return form += quote;
}

/// Takes the character that an escape at the start of `rest`, after its "\", stands for.
std::optional<QChar> takeEscape(QStringView &rest)
{
    if (rest.isEmpty())
        return std::nullopt;
    const QChar kind = rest.front();
    rest = rest.sliced(1);
    switch (kind.unicode()) {
    case u'\\':
    case u'"':
        return kind;
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    case u'u': {
        const std::optional<QChar> character = fromHexCode(rest);
        if (character)
            rest = rest.sliced(hexDigits);
        return character;
    }
    default:
        return std::nullopt;
    }
}

/// Takes a quoted string from the start of `rest`; none if there is no whole one.
std::optional<QString> takeString(QStringView &rest)
{
    if (!rest.startsWith(quote))
        return std::nullopt;
    rest = rest.sliced(1);
    QString text = QStringLiteral(""); // not null, since it is there
    while (!rest.isEmpty()) {
        const QChar character = rest.front();
        rest = rest.sliced(1);
        if (character == quote)
            return text;
        if (character != separator) {
            text += character;
            continue;
        }
        const std::optional<QChar> escaped = takeEscape(rest);
        if (!escaped)
            return std::nullopt;
        text += *escaped;
    }
    return std::nullopt;
}

/// A value as it stands after the "=" of its line; none for a string that is not whole.
std::optional<RegistryValue> parseValue(QStringView form)
{
    if (form.startsWith(quote)) {
        QStringView rest = form;
        const std::optional<QString> text = takeString(rest);
        return text && rest.isEmpty() ? std::optional<RegistryValue>(*text) : std::nullopt;
    }
    constexpr QLatin1String integerKind("dword");
    if (form.startsWith(integerKind, Qt::CaseInsensitive)) {
        bool isInteger = false;
        const int integer = form.sliced(integerKind.size()).toInt(&isInteger);
        if (isInteger)
            return integer;
    }
    return UnknownRegistryValue{form.toString()};
}

/// A line that names a value.
struct Entry
{
    QString name; ///< never null
    RegistryValue value;
};

/// None if the line is no such line.
std::optional<Entry> parseEntry(const QString &line)
{
    const QString trimmed = line.trimmed();
    QStringView rest = trimmed;
    const std::optional<QString> name = takeString(rest);
    rest = rest.trimmed();
    if (!name || !rest.startsWith(u'='))
        return std::nullopt;
    std::optional<RegistryValue> value = parseValue(rest.sliced(1).trimmed());
    if (!value)
        return std::nullopt;
    return Entry{*name, *std::move(value)};
}

QString valueForm(const RegistryValue &value)
{
    if (const auto *text = std::get_if<QString>(&value))
        return quoted(*text);
    if (const auto *integer = std::get_if<qint32>(&value))
        return QStringLiteral("dword %1").arg(*integer);
    return std::get<UnknownRegistryValue>(value).form;
}

QString pathForm(const QString &path)
{
    QString form;
    for (qsizetype i = 0; i < path.size(); ++i) {
        const bool isPlain = path[i] != u'%' && !needsEscape(path, i);
        form += isPlain ? QString(path[i]) : u'%' + hexCode(path[i]);
    }
    return form;
}

std::optional<QString> parsePath(QStringView form)
{
    QString path;
    while (!form.isEmpty()) {
        const QChar character = form.front();
        form = form.sliced(1);
        if (character != u'%') {
            path += character;
            continue;
        }
        const std::optional<QChar> code = fromHexCode(form);
        if (!code)
            return std::nullopt;
        path += *code;
        form = form.sliced(hexDigits);
    }
    return normalised(path);
}

} // namespace

std::optional<RegistryText> RegistryText::parse(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    RegistryText result;
    QStringList lines = text.split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    for (const QString &line : lines) {
        if (!result.parseLine(line))
            return std::nullopt;
    }
    return result;
}

bool RegistryText::parseLine(const QString &line)
{
    const QString trimmed = line.trimmed();
    if (trimmed.isEmpty() || trimmed.startsWith(u';') || trimmed.startsWith(u'#')) {
        sections_.last().lines += Line{line, {}};
        return true;
    }
    if (trimmed.startsWith(u'[') && trimmed.endsWith(u']')) {
        const std::optional<QString> path = parsePath(QStringView(trimmed).sliced(1).chopped(1));
        if (!path || path->isEmpty())
            return false;
        sections_ += {*path, {{line, {}}}};
        return true;
    }
    const std::optional<Entry> entry = parseEntry(line);
    if (!entry || sections_.last().path.isEmpty())
        return false;
    sections_.last().lines += Line{line, entry->name};
    return true;
}

QByteArray RegistryText::toBytes() const
{
    QString text;
    for (const Section &section : sections_) {
        for (const Line &line : section.lines)
            text += line.text + u'\n';
    }
    return text.toUtf8();
}

bool RegistryText::contains(const QString &path) const
{
    const QString sought = normalised(path);
    return std::any_of(sections_.begin(), sections_.end(), [&](const Section &section) {
        return isSame(section.path, sought) ||
               section.path.startsWith(sought + separator, Qt::CaseInsensitive);
    });
}

const RegistryText::Line *RegistryText::find(const QString &path, const QString &name) const
{
    const QString sought = normalised(path);
    for (const Section &section : sections_) {
        if (!isSame(section.path, sought))
            continue;
        for (const Line &line : section.lines) {
            if (!line.name.isNull() && isSame(line.name, name))
                return &line;
        }
    }
    return nullptr;
}

std::optional<RegistryValue> RegistryText::value(const QString &path, const QString &name) const
{
    const Line *line = find(path, name);
    return line != nullptr ? std::optional(parseEntry(line->text)->value) : std::nullopt;
}

bool RegistryText::createKey(const QString &path)
{
    if (contains(path) || normalised(path).isEmpty())
        return false;
    QList<Line> &above = sections_.last().lines;
    if (!above.isEmpty() && !above.last().text.trimmed().isEmpty())
        above += Line();
    const QString key = normalised(path);
    sections_ += {key, {{u'[' + pathForm(key) + u']', {}}}};
    return true;
}

bool RegistryText::setValue(const QString &path, const QString &name, const RegistryValue &value)
{
    if (!contains(path) || std::holds_alternative<UnknownRegistryValue>(value))
        return false;
    const Line line = {quoted(name) + QStringLiteral(" = ") + valueForm(value),
                       name.isNull() ? QStringLiteral("") : name};
    if (const Line *present = find(path, name)) {
        *const_cast<Line *>(present) = line;
        return true;
    }
    const QString key = normalised(path);
    const auto section = std::find_if(sections_.begin(), sections_.end(),
                                      [&](const Section &each) { return isSame(each.path, key); });
    if (section == sections_.end()) {
        // The key exists only as a level above others.
        sections_ += {key, {Line(), {u'[' + pathForm(key) + u']', {}}, line}};
        return true;
    }
    qsizetype end = section->lines.size();
    while (section->lines[end - 1].text.trimmed().isEmpty())
        --end;
    section->lines.insert(end, line);
    return true;
}
