#pragma once

#include <QLabel>

/// A label that shows text large; a single character is drawn as in the grid of characters, so that
/// one which takes no room of its own can be seen.
class SampleLabel final : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent *event) override;
};
