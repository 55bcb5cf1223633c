#pragma once

class QLineEdit;

/// From now on the text box selects its whole content whenever it gets the focus.
void SelectAllOnFocus(QLineEdit &control);
