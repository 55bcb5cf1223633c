#pragma once

#include "platform/RegistryStore.h"
#include <QList>

/// The text form of a tree of keys and values. Lines that the program doesn't change, comments and
/// blank ones included, stay as somebody wrote them.
///
///     file    = { line LF }                     a CR before the LF belongs to the line end
///     line    = blank | ";" comment | "#" comment | "[" path "]" | string "=" value
///     path    = the levels of a key joined by "\"; "%" and four hexadecimal digits for a code
///     value   = string | "dword" decimal | any other text, a value of unknown kind
///     string  = '"' { character | escape } '"'
///     escape  = "\\" | "\"" | "\n" | "\r" | "\t" | "\u" and four hexadecimal digits
class RegistryText
{
public:
    /// None if the bytes aren't UTF-8 or a line is none of the above.
    [[nodiscard]] static std::optional<RegistryText> parse(QByteArrayView bytes);

    [[nodiscard]] QByteArray toBytes() const;

    [[nodiscard]] bool contains(const QString &path) const;
    [[nodiscard]] std::optional<RegistryValue> value(const QString &path,
                                                     const QString &name) const;

    /// True if the key had to be created.
    bool createKey(const QString &path);

    /// False if there is no such key or the value is of unknown kind.
    bool setValue(const QString &path, const QString &name, const RegistryValue &value);

private:
    /// A line as it stands, and the name of the value that it holds; null if it holds none.
    struct Line
    {
        QString text;
        QString name;
    };
    struct Section
    {
        QString path; ///< normalised; that of the lines above the first key is empty
        QList<Line> lines;
    };

    bool parseLine(const QString &line);
    [[nodiscard]] const Line *find(const QString &path, const QString &name) const;

    QList<Section> sections_ = {Section()};
};
