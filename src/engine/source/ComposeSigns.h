#pragma once

#include "engine/source/TengwarSigns.h"

#include <QByteArray>

#include <vector>

/// Puts signs into codes: each mark takes the code that suits its letter, marks follow their letter
/// in the order of their kinds, and silme and esse turn where a mark stands above them.
class SignComposer
{
public:
    /// \a previous is the form of the letter that marks in front of the first letter belong to.
    explicit SignComposer(std::optional<LetterForm> previous) : form_(previous) {}

    void add(const Letter &letter);
    /// False when there is no letter that could carry the mark.
    [[nodiscard]] bool add(const Mark &mark);
    void add(const QByteArray &codes);

    /// The codes of all that was added.
    [[nodiscard]] QByteArray codes();
    /// The form of the last letter, if it is one that carries marks.
    [[nodiscard]] const std::optional<LetterForm> &form() const { return form_; }

private:
    void finishLetter();

    QByteArray codes_;
    std::optional<LetterForm> form_;
    std::optional<uchar> letter_;
    std::vector<const Mark *> marks_;
};
