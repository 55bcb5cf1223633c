#include "engine/source/ComposeSigns.h"

#include <algorithm>

void SignComposer::add(const Letter &letter)
{
    finishLetter();
    letter_ = letter.code;
    form_ = formOf(letter.code);
}

bool SignComposer::add(const Mark &mark)
{
    if (!form_)
        return false;
    marks_.push_back(&mark);
    if (letter_ && mark.kind == MarkKind::Above) {
        letter_ = turnedLetter(*letter_);
        form_ = formOf(*letter_);
    }
    return true;
}

void SignComposer::add(const QByteArray &codes)
{
    finishLetter();
    codes_ += codes;
    for (const char code : codes) {
        if (const std::optional<LetterForm> form = formOf(static_cast<uchar>(code)))
            form_ = form;
        else if (markOfCode(static_cast<uchar>(code)) == nullptr)
            form_.reset();
    }
}

QByteArray SignComposer::codes()
{
    finishLetter();
    return codes_;
}

void SignComposer::finishLetter()
{
    if (letter_)
        codes_ += static_cast<char>(*letter_);
    std::ranges::stable_sort(marks_, {}, &Mark::kind);
    for (const Mark *mark : marks_) {
        codes_ += static_cast<char>(markCode(*mark, *form_));
        if (mark->second != 0)
            codes_ += static_cast<char>(mark->second);
    }
    letter_.reset();
    marks_.clear();
}
