#pragma once

#include <QStringList>

class Form1;
class StoredSettings;
struct SharedState;
struct Subjects;

/// Connects search, the Tengwar tools and the preferences. `fonts` are the installed fonts in the
/// order of lists.
void connectToolCommands(Form1 &form, SharedState &state, StoredSettings &stored,
                         const QStringList &fonts, Subjects &subjects);
