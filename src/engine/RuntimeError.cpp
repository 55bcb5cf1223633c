#include "engine/RuntimeError.h"

QString errorDescription(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return RuntimeError::tr("Invalid procedure call or argument");
    case ErrorNumber::Overflow:
        return RuntimeError::tr("Overflow");
    case ErrorNumber::OutOfMemory:
        return RuntimeError::tr("Out of memory");
    case ErrorNumber::TypeMismatch:
        return RuntimeError::tr("Type mismatch");
    case ErrorNumber::FileNotFound:
        return RuntimeError::tr("File not found");
    case ErrorNumber::DeviceIo:
        return RuntimeError::tr("Device I/O error");
    case ErrorNumber::DiskFull:
        return RuntimeError::tr("Disk full");
    case ErrorNumber::PermissionDenied:
        return RuntimeError::tr("Permission denied");
    case ErrorNumber::PathFileAccess:
        return RuntimeError::tr("Path/File access error");
    case ErrorNumber::PathNotFound:
        return RuntimeError::tr("Path not found");
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
    QString text = tr("Run-time error '%1':\n\n").arg(static_cast<int>(number_));
    text += description();
    if (!where_.isEmpty())
        text += QLatin1Char('\n') + where_;
    return text;
}
