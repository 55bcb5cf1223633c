#pragma once

#include "help/frmHelp.h"

#include <memory>

struct SharedState;

/// The command that opens the help.
class HelpCommands
{
public:
    /// Messages are shown over `window`; it and the state outlive this.
    HelpCommands(const SharedState &state, QWidget &window) : state_(state), window_(window) {}

    /// Opens the program's help file in a window of its own, or brings the open one to the front. A
    /// file that is missing or damaged is told of.
    void showContents();

private:
    const SharedState &state_;
    QWidget &window_;
    std::unique_ptr<frmHelp> help_;
};
