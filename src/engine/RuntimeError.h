#pragma once

#include <QCoreApplication>
#include <QString>
#include <exception>

/// The run-time errors that a command can end with, by the number that people see.
enum class ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIo = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// The wording that belongs to an error number, such as "Overflow", translated where a translation
/// is installed.
[[nodiscard]] QString errorDescription(ErrorNumber number);

/// A failure that ends the running command. It is thrown where the failure is met and caught at the
/// one door through which commands enter; it never passes through Qt's own code.
class RuntimeError : public std::exception
{
    Q_DECLARE_TR_FUNCTIONS(RuntimeError)

public:
    /// `where` says what was being worked on (a file, a record), for people; it may be empty.
    explicit RuntimeError(ErrorNumber number, QString where = {});

    [[nodiscard]] ErrorNumber number() const noexcept { return number_; }
    [[nodiscard]] QString description() const { return errorDescription(number_); }
    [[nodiscard]] const QString &where() const noexcept { return where_; }

    /// What a message box shows: "Run-time error '6':", a blank line, the description, and the
    /// place on a line of its own when there is one.
    [[nodiscard]] QString message() const;

    /// The description and place in UTF-8, for logs and test output.
    [[nodiscard]] const char *what() const noexcept override { return what_.constData(); }

private:
    ErrorNumber number_;
    QString where_;
    QByteArray what_;
};
