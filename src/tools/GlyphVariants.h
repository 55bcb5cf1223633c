#pragma once

class RichTextBox;
class UndoJournal;

/// Tengwar fonts offer two shapes of some signs. These commands change the signs of the Target pane
/// from one shape to the other: those selected or, with nothing selected, all. Each records one
/// undo state first and keeps the formatting of every sign.
///
/// They throw RuntimeError (Overflow) for a selection that reaches beyond position 32,767.
class GlyphVariants
{
public:
    GlyphVariants(RichTextBox &target, UndoJournal &journal) : target_(target), journal_(journal) {}

    void curledToStraight();
    void straightToCurled();
    void loopedToStandard();
    void standardToLooped();

private:
    class Conversion;
    void convert(const Conversion &conversion);

    RichTextBox &target_;
    UndoJournal &journal_;
};
