#pragma once

#include <QFile>
#include <QRegularExpression>
#include <QString>

/// What the project's own files say of its version, read apart from the build that passes it on.
namespace ProjectFile {

[[nodiscard]] inline QString captured(const char *file, const char *pattern)
{
    QFile source(QStringLiteral(QUILLON_SOURCE_FOLDER "/") + QLatin1StringView(file));
    if (!source.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", file);
    const QRegularExpression expression{QLatin1StringView(pattern)};
    return expression.match(QString::fromUtf8(source.readAll())).captured(1);
}

} // namespace ProjectFile

/// "major.minor.revision"
[[nodiscard]] inline QString projectVersion()
{
    return ProjectFile::captured("CMakeLists.txt", R"(project\(Quillon VERSION (\d+\.\d+\.\d+))");
}

[[nodiscard]] inline QString projectCopyright()
{
    return ProjectFile::captured("cmake/Version.h.in", "QUILLON_COPYRIGHT \"(.*)\"")
        .replace(QStringLiteral("\\u00a9"), QStringLiteral("\u00a9"));
}
