#include "engine/LoadMode.h"

#include "engine/CodePage.h"
#include "engine/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <array>

namespace {

constexpr char fieldEnd = '\t';
constexpr uchar lastCodeOfSkippedRecord = 9;
constexpr qsizetype caseModeLength = 2;

/// Reads whole records one after the other; a truncated tail counts as none.
class RecordReader
{
public:
    RecordReader(QIODevice &device, QString name) : device_(device), name_(std::move(name)) {}

    /// The next record, empty at the end of the file; valid until the next call.
    [[nodiscard]] QByteArrayView next()
    {
        ++number_;
        if (chunk_.size() - used_ < RuleRecordLength && !refill())
            return {};
        const auto record = QByteArrayView(chunk_).sliced(used_, RuleRecordLength);
        used_ += RuleRecordLength;
        return record;
    }

    /// The file and the number of the record that `next` was last asked for, for people.
    [[nodiscard]] QString where() const
    {
        return QStringLiteral("%1, record %2").arg(name_).arg(number_);
    }

private:
    static constexpr qsizetype chunkLength = RuleRecordLength * 4096;

    bool refill()
    {
        chunk_.remove(0, used_);
        used_ = 0;
        // A pipe may give less than a record at a time.
        while (chunk_.size() < RuleRecordLength) {
            QByteArray more(chunkLength, Qt::Uninitialized);
            const qint64 length = device_.read(more.data(), more.size());
            if (length < 0)
                throw RuntimeError(ErrorNumber::DeviceIo, name_);
            if (length == 0)
                return false;
            chunk_.append(more.constData(), length);
        }
        return true;
    }

    QIODevice &device_;
    QString name_;
    QByteArray chunk_;
    qsizetype used_ = 0;
    qint64 number_ = 0;
};

/// A number of at most two characters, with blanks around it; NULs are padding.
std::optional<qint16> readCaseMode(QByteArrayView digits)
{
    const qsizetype padding = digits.indexOf('\0');
    bool isNumber = false;
    const short number =
        (padding < 0 ? digits : digits.first(padding)).trimmed().toByteArray().toShort(&isNumber);
    return isNumber ? std::optional<qint16>(number) : std::nullopt;
}

void readHeader(QByteArrayView header, const QString &where, ModeTable &table)
{
    const qsizetype tab = header.indexOf(fieldEnd);
    if (tab < 0)
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, where);
    const QByteArrayView afterTab = header.sliced(tab + 1);
    const auto caseMode = readCaseMode(afterTab.first(std::min(caseModeLength, afterTab.size())));
    if (!caseMode)
        throw RuntimeError(ErrorNumber::TypeMismatch, where);
    table.ModeComment = fromCodePage(header.first(tab));
    table.CaseMode = *caseMode;
}

using RuleFields = std::array<QByteArrayView, 5>;

RuleFields splitRule(QByteArrayView record, const QString &where)
{
    RuleFields fields;
    qsizetype start = 0;
    for (QByteArrayView &field : fields) {
        const qsizetype tab = record.indexOf(fieldEnd, start);
        if (tab < 0)
            throw RuntimeError(ErrorNumber::InvalidProcedureCall, where);
        field = record.sliced(start, tab - start);
        start = tab + 1;
    }
    return fields;
}

bool isRule(QByteArrayView record)
{
    return static_cast<uchar>(record.front()) > lastCodeOfSkippedRecord;
}

void readRecords(RecordReader &records, ModeTable &table)
{
    const QByteArrayView header = records.next();
    readHeader(header, records.where(), table);
    for (QByteArrayView record = records.next(); !record.isEmpty(); record = records.next()) {
        if (!isRule(record))
            continue;
        const auto [roman, tengwar, following, preceding, leaves] =
            splitRule(record, records.where());
        if (table.ruleCount() > ModeTable::maximumRules)
            continue;
        table.appendRule(fromCodePage(roman), fromCodePage(tengwar), fromCodePage(following),
                         fromCodePage(preceding), fromCodePage(leaves));
    }
}

} // namespace

QString modeFileName(const QString &modePath, const QString &modeName)
{
    return modePath + QDir::separator() + modeName + QStringLiteral(".mod");
}

bool LoadMode(const QString &modePath, const QString &currentMode, ModeTable &table)
{
    return loadModeFile(modeFileName(modePath, currentMode), table);
}

bool loadModeFile(const QString &fileName, ModeTable &table)
{
    table.clear();
    if (!QFileInfo(fileName).isFile())
        return false;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw RuntimeError(ErrorNumber::PathFileAccess, fileName);
    readMode(file, fileName, table);
    return true;
}

void readMode(QIODevice &device, const QString &name, ModeTable &table)
{
    table.clear();
    ModeTable loaded;
    RecordReader records(device, name);
    readRecords(records, loaded);
    table = std::move(loaded);
}

QString readModeComment(const QString &fileName)
{
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray header = file.read(RuleRecordLength);
    const qsizetype tab = header.indexOf(fieldEnd);
    QString comment = fromCodePage(QByteArrayView(header).first(std::max<qsizetype>(tab, 0)));
    while (comment.endsWith(QLatin1Char(' ')))
        comment.chop(1);
    return comment;
}
