#pragma once

class QWidget;
struct Settings;

/// Gives every control of the form whose property `Tag` is "text" the font GenericRomanFont, and
/// every one tagged "tengwar" the font GenericTengwarFont. Sizes and styles stay.
void ApplyFormFonts(QWidget &form, const Settings &settings);
