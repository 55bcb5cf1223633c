#include "platform/FileRegistryStore.h"

#include "engine/RuntimeError.h"
#include "platform/AtomicFile.h"
#include "platform/RegistryText.h"
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <QThread>

namespace {

constexpr qint64 largestFile = qint64(16) << 20;
constexpr int lockPatienceMs = 5000;
constexpr int lockPollMs = 2;

const QString &storeName()
{
    static const QString name = QStringLiteral("Quillon/settings.ini");
    return name;
}

/// What a store's file holds now.
struct Content
{
    enum class State { Whole, Damaged, Unreadable };
    State state = State::Whole;
    RegistryText text;
};

Content read(const QString &file)
{
    if (!QFileInfo::exists(file))
        return {};
    try {
        const QByteArray bytes = readFile(file, largestFile);
        if (std::optional<RegistryText> text = RegistryText::parse(bytes))
            return {Content::State::Whole, *std::move(text)};
        return {Content::State::Damaged, {}};
    } catch (const RuntimeError &error) {
        const bool isTooLarge = error.number() == ErrorNumber::OutOfMemory;
        return {isTooLarge ? Content::State::Damaged : Content::State::Unreadable, {}};
    }
}

/// Waits for a lock. QLockFile's own waiting grows to seconds between two attempts.
bool acquire(QLockFile &lock)
{
    const QDeadlineTimer deadline(lockPatienceMs);
    while (!lock.tryLock(0)) {
        if (lock.error() != QLockFile::LockFailedError || deadline.hasExpired())
            return false;
        QThread::msleep(lockPollMs);
    }
    return true;
}

bool setAside(const QString &file)
{
    QString aside = file + QStringLiteral(".damaged");
    for (int number = 2; QFileInfo::exists(aside); ++number)
        aside = QStringLiteral("%1.damaged%2").arg(file).arg(number);
    return QFile::rename(file, aside);
}

/// Applies a change to what the file holds at this moment. `change` tells whether anything changed.
/// False if the file can't be written; it is then as it was.
template<typename Change> bool update(const QString &file, Change change)
{
    if (!QDir().mkpath(QFileInfo(file).path()))
        return false;
    QLockFile lock(file + QStringLiteral(".lock"));
    if (!acquire(lock))
        return false;
    Content content = read(file);
    if (content.state == Content::State::Unreadable ||
        (content.state == Content::State::Damaged && !setAside(file)))
        return false;
    if (!change(content.text))
        return true;
    try {
        writeFile(file, content.text.toBytes());
    } catch (const RuntimeError &) {
        return false;
    }
    return true;
}

} // namespace

FileRegistryStore::FileRegistryStore(QString userFile, QString systemFile)
    : userFile_(std::move(userFile)), systemFile_(std::move(systemFile))
{
}

QString FileRegistryStore::defaultUserFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' +
           storeName();
}

QString FileRegistryStore::defaultSystemFile()
{
    const QStringList folders =
        QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation).mid(1);
    for (const QString &folder : folders) {
        if (QFileInfo::exists(folder + u'/' + storeName()))
            return folder + u'/' + storeName();
    }
    return folders.isEmpty() ? QString() : folders.first() + u'/' + storeName();
}

bool FileRegistryStore::contains(const RegistryKey &key) const
{
    const bool isUser = key.root == RegistryRoot::CurrentUser;
    return read(isUser ? userFile_ : systemFile_).text.contains(key.path);
}

std::optional<RegistryValue> FileRegistryStore::value(const RegistryKey &key,
                                                      const QString &name) const
{
    const bool isUser = key.root == RegistryRoot::CurrentUser;
    return read(isUser ? userFile_ : systemFile_).text.value(key.path, name);
}

bool FileRegistryStore::createKey(const RegistryKey &key)
{
    if (key.root != RegistryRoot::CurrentUser)
        return false;
    return update(userFile_, [&](RegistryText &text) { return text.createKey(key.path); });
}

bool FileRegistryStore::setValue(const RegistryKey &key, const QString &name,
                                 const RegistryValue &value)
{
    if (key.root != RegistryRoot::CurrentUser)
        return false;
    bool isSet = false;
    const bool isWritten = update(userFile_, [&](RegistryText &text) {
        const bool isEqual = text.value(key.path, name) == value;
        const bool isChanged = !isEqual && text.setValue(key.path, name, value);
        isSet = isEqual || isChanged;
        return isChanged;
    });
    return isSet && isWritten;
}
