#include "cli/CommandLine.h"
#include "cli/CommandTable.h"
#include "cli/ModeCommands.h"
#include "cli/RtfCommands.h"
#include "cli/TranscribeCommand.h"
#include "engine/RuntimeError.h"

#include <QCoreApplication>
#include <array>

namespace {

constexpr std::array commands = {
    Command{"transcribe", "[FILE...]", "transcribe English or Elvish text by a mode", transcribe},
    Command{"mode", "COMMAND", "pack, unpack, list and check modes", mode},
    Command{"rtf2text", "FILE.rtf", "print the text of an RTF file", rtf2text},
    Command{"rtf2rtf", "IN OUT", "rewrite an RTF file", rtf2rtf},
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return runCommand(QString(), commands, QCoreApplication::arguments().sliced(1));
    } catch (const CommandFailure &failure) {
        complain(failure.message);
    } catch (const RuntimeError &error) {
        complain(QStringLiteral("error %1: %2")
                     .arg(static_cast<int>(error.number()))
                     .arg(QString::fromUtf8(error.what())));
    } catch (const std::bad_alloc &) {
        complain(errorDescription(ErrorNumber::OutOfMemory));
    }
    return ExitFailure;
}
