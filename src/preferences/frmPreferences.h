#pragma once

#include <QDialog>
#include <functional>
#include <memory>

namespace Ui {
class frmPreferences;
}
class QComboBox;
class StoredSettings;
struct SharedState;

/// The dialog for everything in the settings that the user can change.
class frmPreferences final : public QDialog
{
    Q_OBJECT

public:
    /// `fonts` are the installed fonts in the order of lists. `applySettings` brings the main
    /// window's list of modes and its fonts up to date.
    frmPreferences(SharedState &state, StoredSettings &stored, QStringList fonts,
                   std::function<void()> applySettings, QWidget *parent);
    ~frmPreferences() override;

private:
    void fillFonts();
    void showSettings();
    void wire();

    void filterTengwarFonts();
    void showCharacterCode();
    void chooseTranscribe();
    void browse();
    void confirm();

    [[nodiscard]] QString folderToBrowse() const;
    void readControls(const QString &modePath);
    void store();

    SharedState &state_;
    StoredSettings &stored_;
    QStringList fonts_;
    std::function<void()> applySettings_;
    std::unique_ptr<Ui::frmPreferences> ui_;
};
