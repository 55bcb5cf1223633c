#pragma once

#include "editor/FilterNumericKey.h"

class QLineEdit;

/// From now on the text box takes only digits and what `allowed` names when typed into, and selects
/// its whole content whenever it gets the focus.
void makeNumeric(QLineEdit &box, NumericKeys allowed);
