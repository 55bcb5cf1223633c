#pragma once

#include <QString>

/// The keys of the registry, all under the current user, that hold the program's settings.
namespace SettingKey {
inline const QString Root = QStringLiteral("Software\\Quillon");
inline const QString Fonts = QStringLiteral("Software\\Quillon\\Fonts");
inline const QString Mode = QStringLiteral("Software\\Quillon\\Mode");
inline const QString Transcription = QStringLiteral("Software\\Quillon\\Transcription");
inline const QString General = QStringLiteral("Software\\Quillon\\General");
inline const QString Window = QStringLiteral("Software\\Quillon\\Window");
inline const QString Numerals = QStringLiteral("Software\\Quillon\\Numerals");
} // namespace SettingKey
