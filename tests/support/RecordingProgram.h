#pragma once

#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <optional>

/// A program for tests, in a file that must not exist yet: started, it writes down the name and the
/// arguments that it was given.
class RecordingProgram
{
public:
    explicit RecordingProgram(QString path) : path_(std::move(path))
    {
        QFile script(path_);
        if (!script.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            qFatal("cannot write %s", qPrintable(path_));
        script.write(
            "#!/bin/sh\n"
            "printf '%s\\n' \"$0\" \"$@\" >\"$0.part\" && mv \"$0.part\" \"$0.started\"\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    [[nodiscard]] const QString &path() const { return path_; }

    [[nodiscard]] bool wasStarted() const { return QFile::exists(record()); }

    /// Its name and its arguments, once it has been started.
    [[nodiscard]] QStringList commandLine() const
    {
        QFile file(record());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).chopped(1).split(u'\n');
    }

    /// Lets the next start be told from those before.
    void forget() { QFile::remove(record()); }

private:
    [[nodiscard]] QString record() const { return path_ + QStringLiteral(".started"); }

    QString path_;
};
