#include "engine/RuntimeError.h"

QString errorDescription(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::OutOfMemory:
        return QStringLiteral("Out of memory");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::DeviceIo:
        return QStringLiteral("Device I/O error");
    case ErrorNumber::DiskFull:
        return QStringLiteral("Disk full");
    case ErrorNumber::PermissionDenied:
        return QStringLiteral("Permission denied");
    case ErrorNumber::PathFileAccess:
        return QStringLiteral("Path/File access error");
    case ErrorNumber::PathNotFound:
        return QStringLiteral("Path not found");
    }
    Q_UNREACHABLE();
}

RuntimeError::RuntimeError(ErrorNumber number, QString where)
    : number_(number), where_(std::move(where)), what_(description().toUtf8())
{
    if (!where_.isEmpty())
        what_ += ": " + where_.toUtf8();
}

QString RuntimeError::message() const
{
    QString text = QStringLiteral("Run-time error '%1':\n\n").arg(static_cast<int>(number_));
    text += description();
    if (!where_.isEmpty())
        text += QLatin1Char('\n') + where_;
    return text;
}
