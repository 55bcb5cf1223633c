#pragma once

#include "support/ModeBytes.h"

#include <QFile>
#include <QTemporaryDir>

/// A folder with mode files, gone after the test.
class ModeFolder
{
public:
    void add(const QString &name, const QByteArray &bytes = ModeBytes().bytes())
    {
        write(name + QStringLiteral(".mod"), bytes);
    }
    void write(const QString &fileName, const QByteArray &bytes)
    {
        QFile file(path(fileName));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write a test file");
    }
    [[nodiscard]] QString path() const { return folder_.path(); }
    [[nodiscard]] QString path(const QString &fileName) const { return folder_.filePath(fileName); }

private:
    QTemporaryDir folder_;
};
