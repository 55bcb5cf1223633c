#include "platform/FontList.h"

#include <QDir>
#include <QFontDatabase>
#include <QFontInfo>
#include <algorithm>
#include <tuple>

QStringList fontListOrder(QStringList installed, const QString &interfaceFont,
                          const QStringList &ownFonts)
{
    const auto place = [&](const QString &font) {
        return font == interfaceFont ? 0 : ownFonts.contains(font) ? 2 : 1;
    };
    const auto comesBefore = [&](const QString &left, const QString &right) {
        if (place(left) != place(right))
            return place(left) < place(right);
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left < right;
    };
    installed.removeDuplicates();
    std::sort(installed.begin(), installed.end(), comesBefore);
    return installed;
}

QStringList registerFonts(const QString &folder)
{
    QStringList names;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files)) {
        const int font = QFontDatabase::addApplicationFont(file.filePath());
        if (font >= 0)
            names += QFontDatabase::applicationFontFamilies(font);
    }
    names.removeDuplicates();
    return names;
}

QStringList installedFonts(const QStringList &ownFonts)
{
    QStringList fonts = QFontDatabase::families();
    fonts.removeIf([](const QString &font) { return QFontDatabase::isPrivateFamily(font); });
    const QFont interfaceFont = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    return fontListOrder(fonts, QFontInfo(interfaceFont).family(), ownFonts);
}
