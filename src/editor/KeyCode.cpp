#include "editor/KeyCode.h"

#include <algorithm>
#include <iterator>
#include <qnamespace.h>

namespace {

struct Entry
{
    Qt::Key key;
    qint16 code;
};

constexpr Entry table[] = {
    {Qt::Key_Backspace, KeyCode::Backspace},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Clear, 12},
    {Qt::Key_Return, KeyCode::Enter},
    {Qt::Key_Enter, KeyCode::Enter},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_AltGr, 18},
    {Qt::Key_Mode_switch, 18},
    {Qt::Key_Multi_key, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},
    {Qt::Key_Space, KeyCode::Space},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Select, 41},
    {Qt::Key_Print, 44},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, KeyCode::Delete},
    {Qt::Key_Help, 47},
    {Qt::Key_Super_L, 91},
    {Qt::Key_Super_R, 92},
    {Qt::Key_Meta, 91},
    {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
};

constexpr qint16 firstFunctionKey = 112;
constexpr qint16 punctuation = 186;

} // namespace

qint16 keyCode(int key)
{
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return qint16(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return qint16(firstFunctionKey + key - Qt::Key_F1);
    const auto *entry = std::find_if(std::begin(table), std::end(table),
                                     [key](const Entry &each) { return each.key == key; });
    return entry != std::end(table) ? entry->code : punctuation;
}
