#pragma once

#include "platform/RichTextBox.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

/// A shown window with the two panes, and empty folders for what is written.
struct PanesFixture
{
    QTemporaryDir folder;
    QWidget window;
    RichTextBox *source = new RichTextBox(&window);
    RichTextBox *target = new RichTextBox(&window);

    PanesFixture()
    {
        source->setObjectName(QStringLiteral("rtbRoman"));
        target->setObjectName(QStringLiteral("rtbTengwar"));
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(source);
        layout->addWidget(target);
        window.resize(300, 300);
        window.show();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("The window did not become active");
        source->setFocus();
    }

    [[nodiscard]] QString path(const QString &name) const { return folder.filePath(name); }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("Can't write a test file");
    }

    /// The bytes of a file, empty for one that doesn't exist.
    [[nodiscard]] QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] bool exists(const QString &name) const { return QFile::exists(path(name)); }
};
