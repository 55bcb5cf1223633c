#pragma once

#include "editor/PaneDocuments.h"
#include "editor/PanesFixture.h"
#include "editor/UndoJournal.h"

#include <QDir>

/// Panes as documents, with templates beside them, and what was told and cleared meanwhile.
struct DocumentsFixture final : PanesFixture, UndoJournal
{
    QStringList cleared;  ///< the patterns of journal files
    QStringList captions; ///< with the pane's number in front
    PaneDocuments documents{{window, *source, *target, *this}, folder.path(), path(rescued)};

    DocumentsFixture()
    {
        QObject::connect(&documents, &PaneDocuments::captionChanged, &window,
                         [this](PaneCode pane, const QString &caption) {
                             captions += QString::number(int(pane)) + QLatin1Char(' ') + caption;
                         });
        write(QStringLiteral("Source.tpl"), "{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}}\\f0\\fs30}");
        write(QStringLiteral("Target.tpl"), "{\\rtf1{\\fonttbl{\\f0 DejaVu Serif;}}\\f0\\fs50}");
    }

    void SaveUndoState(PaneCode) override {}
    void UpdateUndoButtons(PaneCode) override {}
    void ClearUndoFiles(const QString &pattern) override { cleared += pattern; }

    /// The names of the rescued texts, the oldest first.
    [[nodiscard]] QStringList rescuedNames() const
    {
        return QDir(path(rescued)).entryList(QDir::Files, QDir::Name);
    }

    inline static const QString rescued = QStringLiteral("Rescued");
};

inline const QString dirty = QStringLiteral("Dirty");
