#pragma once

#include <QString>
#include <QVersionNumber>

/// The folder in which the program finds its modes, their backups, the templates and the help file,
/// and in which it may change them. It is the executable's folder where its user may write there,
/// as in a copy of one's own; else a folder of the user's, seeded from the executable's.
///
/// Seeding copies what the user's folder lacks, and replaces what the user has not changed where
/// the same or a newer version of the program brings something else. What the user has changed
/// stays, and a mode that the user has deleted stays away until the whole folder of modes is gone.
/// What counts as changed is told by a manifest in the user's folder, "Seeded.txt": the digests of
/// all files as they were seeded.
class ProgramFolder
{
public:
    /// Neither folder has a separator at its end; the user's need not exist.
    ProgramFolder(QString executableFolder, QString userFolder);

    /// The user's folder of those who don't choose one: "quillon/program" where they keep data.
    [[nodiscard]] static QString defaultUserFolder();

    /// The folder to use: the executable's if it can be written, or if the user's has never been
    /// seeded completely, so that nothing better exists.
    [[nodiscard]] QString path() const;

    /// Brings the user's folder up to date, as `version` of the program, if it is the one to use
    /// and can be written. Throws RuntimeError naming the file that can't be read or written; what
    /// was seeded by then is whole, and the next time goes on from there. Several runs of the
    /// program may do it at the same time.
    void seed(const QVersionNumber &version) const;

private:
    QString executableFolder_;
    QString userFolder_;
};
