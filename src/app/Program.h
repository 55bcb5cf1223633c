#pragma once

#include "editor/SharedState.h"
#include "editor/StoredSettings.h"

#include <QObject>
#include <QStringList>
#include <memory>

class Form1;
struct Subjects;

/// The program from its start to its end. It owns what all others share.
class Program final : public QObject
{
    Q_OBJECT

public:
    /// `programFolder` is the program's own folder, `fontFolder` that of the fonts that it brings
    /// along; both without a separator at their end.
    Program(RegistryFunctions &registry, const QString &programFolder, QString fontFolder);
    ~Program() override;

    /// Starts: reads the settings and opens the main window. False if the start failed; the user
    /// has been told why. The program ends, with QCoreApplication::exit, when the window is closed.
    [[nodiscard]] bool Main();

    /// The main window, once started.
    [[nodiscard]] Form1 &form() { return *form_; }
    [[nodiscard]] SharedState &state() { return state_; }

private:
    void start();
    void readSettings();
    void loadForm();
    void unload();

    RegistryFunctions &registry_;
    StoredSettings stored_;
    SharedState state_;
    QString fontFolder_;
    QStringList fonts_;
    std::unique_ptr<Form1> form_;
    std::unique_ptr<Subjects> subjects_;
};
