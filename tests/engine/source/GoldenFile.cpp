#include "engine/source/GoldenFile.h"

#include "engine/CodePage.h"

#include <QFile>
#include <QRegularExpression>

namespace {

const QString codeEscape = QStringLiteral("\\x%1");

QString escaped(const QString &codes)
{
    QString text;
    for (const QChar code : codes) {
        if (code == u'\\')
            text += QStringLiteral("\\\\");
        else if (!code.isPrint() || code == QChar::Nbsp || code == QChar::SoftHyphen)
            text += codeEscape.arg(*codePageByte(code.unicode()), 2, 16, QLatin1Char('0'));
        else
            text += code;
    }
    return text;
}

QString unescaped(const QString &text)
{
    static const QRegularExpression escape(QStringLiteral("\\\\(\\\\|x([0-9a-f]{2}))"));
    QString codes;
    qsizetype at = 0;
    for (const QRegularExpressionMatch &match : escape.globalMatch(text)) {
        codes += text.mid(at, match.capturedStart() - at);
        const auto byte = static_cast<uchar>(match.captured(2).toUInt(nullptr, 16));
        codes += match.captured(2).isEmpty() ? u'\\' : QChar(codePageCharacter(byte));
        at = match.capturedEnd();
    }
    return codes + text.mid(at);
}

} // namespace

bool GoldenFile::read(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QStringList rows = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString &row : rows) {
        const QStringList fields = row.split(u'\t');
        if (fields.size() == 3)
            lines.append({fields[0], unescaped(fields[1]), fields[2], {}});
        else
            lines.append({{}, {}, {}, row});
    }
    return true;
}

bool GoldenFile::write(const QString &fileName) const
{
    QStringList rows;
    for (const GoldenLine &line : lines)
        rows.append(line.reason.isEmpty()
                        ? line.comment
                        : QStringList{line.text, escaped(line.codes), line.reason}.join(u'\t'));
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(rows.join(u'\n').toUtf8()) >= 0;
}
