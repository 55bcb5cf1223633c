#include "editor/NumericBox.h"

#include "editor/FilterTypedKeys.h"
#include "editor/SelectAllOnFocus.h"

void makeNumeric(QLineEdit &box, NumericKeys allowed)
{
    filterTypedKeys(box, [allowed](char16_t key) { return FilterNumericKey(key, allowed); });
    SelectAllOnFocus(box);
}
