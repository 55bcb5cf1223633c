#include "platform/ProgramFolder.h"

#include "platform/AtomicFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QStandardPaths>

namespace {

const QString modes = QStringLiteral("Modes/");

bool isWritableFolder(const QString &path)
{
    const QFileInfo info(path);
    return info.isDir() && info.isWritable();
}

/// The names, below the folder, of what is seeded. Programs and fonts are used where they are.
QStringList filesToSeed(const QDir &folder)
{
    const QStringList patterns = {QStringLiteral("*.bak"), QStringLiteral("*.tpl"),
                                  QStringLiteral("Quillon.hlp")};
    QStringList names = folder.entryList(patterns, QDir::Files);
    const QDir modesFolder(folder.filePath(modes));
    for (const QString &mode : modesFolder.entryList({QStringLiteral("*.mod")}, QDir::Files))
        names.append(modes + mode);
    return names;
}

QByteArray digestOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

/// What was seeded. The file can be checked by sha256sum: after a line "Quillon VERSION" it has a
/// line for each seeded file, with the digest in hexadecimal, two spaces and the name.
struct Manifest
{
    explicit Manifest(const QByteArray &bytes);
    [[nodiscard]] QByteArray bytes() const;

    QVersionNumber version; ///< the newest that has seeded
    QMap<QString, QByteArray> digests;
};

Manifest::Manifest(const QByteArray &bytes)
{
    const QString title = QStringLiteral("Quillon ");
    for (const QString &line : QString::fromUtf8(bytes).split(QLatin1Char('\n'))) {
        const qsizetype gap = line.indexOf(QStringLiteral("  "));
        if (gap > 0)
            digests.insert(line.sliced(gap + 2), line.first(gap).toLatin1());
        else if (line.startsWith(title))
            version = QVersionNumber::fromString(line.sliced(title.size()));
    }
}

QByteArray Manifest::bytes() const
{
    QByteArray bytes = "Quillon " + version.toString().toLatin1() + '\n';
    for (auto entry = digests.begin(); entry != digests.end(); ++entry)
        bytes += entry.value() + "  " + entry.key().toUtf8() + '\n';
    return bytes;
}

/// The file of the manifest. It is written last, so where it is, the folder has been seeded whole.
QString manifestFile(const QString &userFolder)
{
    return userFolder + QStringLiteral("/Seeded.txt");
}

/// How a file of the user's folder stands to the one that the program brings.
enum class Copy { Missing, Unchanged, Current, OfTheUser };

/// One seeding, into a folder that can be written.
class Seeding
{
public:
    Seeding(const QString &from, const QString &to, const QVersionNumber &version);
    void run();

private:
    void seed(const QString &name);
    [[nodiscard]] Copy stateOf(const QString &name, const QByteArray &brought) const;

    QDir from_;
    QDir to_;
    QByteArray formerManifest_;
    Manifest manifest_;
    bool isOutdated_; ///< a newer version has seeded this folder
    bool hadModes_;
};

Seeding::Seeding(const QString &from, const QString &to, const QVersionNumber &version)
    : from_(from), to_(to),
      formerManifest_(QFile::exists(manifestFile(to)) ? readFile(manifestFile(to)) : QByteArray()),
      manifest_(formerManifest_), isOutdated_(version < manifest_.version),
      hadModes_(to_.exists(modes))
{
    manifest_.version = qMax(version, manifest_.version);
}

void Seeding::run()
{
    to_.mkdir(modes);
    for (const QString &name : filesToSeed(from_))
        seed(name);
    if (const QByteArray bytes = manifest_.bytes(); bytes != formerManifest_)
        writeFile(manifestFile(to_.path()), bytes);
}

void Seeding::seed(const QString &name)
{
    const QByteArray bytes = readFile(from_.filePath(name));
    const QByteArray digest = digestOf(bytes);
    switch (stateOf(name, bytes)) {
    case Copy::Missing:
    case Copy::Unchanged:
        writeFile(to_.filePath(name), bytes);
        [[fallthrough]];
    case Copy::Current: // also what was written before a crash
        manifest_.digests.insert(name, digest);
        break;
    case Copy::OfTheUser:
        break;
    }
}

Copy Seeding::stateOf(const QString &name, const QByteArray &brought) const
{
    const QString path = to_.filePath(name);
    const QByteArray seeded = manifest_.digests.value(name);
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink()) {
        const bool wasDeleted = !seeded.isEmpty() && hadModes_ && name.startsWith(modes);
        return wasDeleted ? Copy::OfTheUser : Copy::Missing;
    }
    if (!info.isFile() || !info.isReadable() || !info.isWritable())
        return Copy::OfTheUser;
    const QByteArray own = readFile(path);
    if (own == brought)
        return Copy::Current;
    return digestOf(own) == seeded && !isOutdated_ ? Copy::Unchanged : Copy::OfTheUser;
}

} // namespace

ProgramFolder::ProgramFolder(QString executableFolder, QString userFolder)
    : executableFolder_(std::move(executableFolder)), userFolder_(std::move(userFolder))
{
}

QString ProgramFolder::defaultUserFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/quillon/program");
}

QString ProgramFolder::path() const
{
    const bool isSeeded = QFile::exists(manifestFile(userFolder_));
    return isWritableFolder(executableFolder_) || !isSeeded ? executableFolder_ : userFolder_;
}

void ProgramFolder::seed(const QVersionNumber &version) const
{
    if (isWritableFolder(executableFolder_))
        return;
    QDir().mkpath(userFolder_);
    // Starts at the same time write the same bytes, each file whole; they need no lock.
    if (isWritableFolder(userFolder_))
        Seeding(executableFolder_, userFolder_, version).run();
}
