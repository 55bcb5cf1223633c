#pragma once

#include "app/Form1.h"
#include "app/Program.h"
#include "editor/SettingKeys.h"
#include "support/ModeFolder.h"
#include "support/RegistryFolder.h"

#include <QTest>

/// The whole program at its start, with settings, a program folder and modes of its own.
struct ProgramFixture
{
    /// Names and bytes of modes; the first is the current one.
    using Modes = QList<std::pair<QString, QByteArray>>;

    RegistryFolder registry;
    ModeFolder modes;
    std::unique_ptr<Program> program;

    explicit ProgramFixture(const Modes &modeFiles = {
                                {QStringLiteral("Test"),
                                 ModeBytes().rule("a", "1").rule("b", "q").bytes()}})
    {
        for (const auto &[name, bytes] : modeFiles)
            modes.add(name, bytes);
        for (const QString &name : {QStringLiteral("Source.tpl"), QStringLiteral("Target.tpl")}) {
            if (!QFile::copy(QStringLiteral(QUILLON_PROGRAM_FOLDER "/") + name,
                             registry.folder.filePath(name)))
                qFatal("A template is missing");
        }
        registry.settings.write(SettingKey::Mode, QStringLiteral("Path"), modes.path());
        registry.settings.write(SettingKey::Mode, QStringLiteral("CurrentMode"),
                                modeFiles.first().first);
        restart();
    }

    /// Starts the program, with what the one before has left in the settings.
    void restart()
    {
        program.reset();
        program = std::make_unique<Program>(registry.registry, registry.folder.path(),
                                            registry.folder.filePath(QStringLiteral("Fonts")));
        if (!program->Main() || !QTest::qWaitForWindowActive(&form()))
            qFatal("The program did not start");
    }

    [[nodiscard]] Form1 &form() const { return program->form(); }
};
