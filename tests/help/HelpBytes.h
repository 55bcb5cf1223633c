#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QPair>

using HelpFiles = QList<QPair<QString, QByteArray>>; ///< names and contents

/// A help file of any content, under its true sum.
inline QByteArray withSum(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex() + '\n' + content;
}

/// The help file that the build makes of these pages and pictures.
inline QByteArray helpBytes(const HelpFiles &files)
{
    QJsonArray pages;
    QJsonObject pictures;
    for (const auto &[name, content] : files) {
        if (name.endsWith(QStringLiteral(".html")))
            pages.append(QJsonObject{{QStringLiteral("name"), name},
                                     {QStringLiteral("html"), QString::fromUtf8(content)}});
        else
            pictures[name] = QString::fromLatin1(content.toBase64());
    }
    const QJsonObject book{{QStringLiteral("pages"), pages},
                           {QStringLiteral("pictures"), pictures}};
    return withSum(QJsonDocument(book).toJson());
}
