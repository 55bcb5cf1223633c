#include "editor/JournalFolder.h"
#include "editor/RtfUndoJournal.h"
#include "platform/RichTextBox.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <array>

namespace {

/// The history of one pane as a plain list of texts.
class Model
{
public:
    QString present;

    void record()
    {
        states_.resize(pos_);
        states_.push_back(present);
        ++pos_;
    }

    void undo()
    {
        if (pos_ == 0)
            return;
        if (pos_ == top())
            newest_ = present;
        --pos_;
        present = states_[pos_];
    }

    void redo()
    {
        if (pos_ == top())
            return;
        ++pos_;
        present = pos_ == top() ? newest_ : states_[pos_];
    }

    [[nodiscard]] qsizetype top() const { return states_.size(); }
    [[nodiscard]] qsizetype pos() const { return pos_; }
    [[nodiscard]] UndoState buttons() const
    {
        return {.canUndo = pos_ > 0, .canRedo = pos_ < states_.size()};
    }

private:
    QStringList states_; ///< without the newest
    QString newest_;
    qsizetype pos_ = 0;
};

QString randomText(QRandomGenerator &random)
{
    static const QString letters =
        QStringLiteral("abcXYZ 09{}\\;\t\u00A0\u00AD\u00E9\u0081\u20AC\u2019\u0151\u000B\u000C");
    QString text;
    for (quint32 length = random.bounded(12U); length > 0; --length) {
        if (random.bounded(10) == 0)
            text += QStringLiteral("\r\n");
        else
            text += letters[random.bounded(letters.size())];
    }
    return text;
}

void edit(RichTextBox &pane, Model &model, QRandomGenerator &random)
{
    const int start = int(random.bounded(model.present.size() + 1));
    const int length = random.bounded(12);
    pane.setSelStart(start);
    pane.setSelLength(length);
    // the control never splits the two characters of a line break
    const int from = pane.SelStart();
    const QString text = randomText(random);
    model.present.replace(from, pane.SelLength(), text);
    pane.setSelText(text);
}

} // namespace

/// The journal beside a plain list of texts, under random edits, undos and redos.
class tst_UndoModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsTheModel();
};

void tst_UndoModel::followsTheModel()
{
    constexpr int steps = 10'000;
    const quint32 seed = qEnvironmentVariableIntValue("QUILLON_SEED") != 0
                             ? quint32(qEnvironmentVariableIntValue("QUILLON_SEED"))
                             : QRandomGenerator::global()->generate();
    qInfo("seed %u (QUILLON_SEED sets it)", seed);
    QRandomGenerator random(seed);

    const QTemporaryDir files;
    const JournalFolder folder(files.path(), files.filePath(QStringLiteral("cache")));
    QWidget window; // never shown, like its panes: only texts count here
    RichTextBox source(&window);
    RichTextBox target(&window);
    RtfUndoJournal journal({window, source, target, folder});
    std::array<UndoState, 2> buttons;
    PaneCode told = PaneCode::None;
    connect(&journal, &RtfUndoJournal::undoStateChanged, this,
            [&](const UndoState &state) { buttons[told == PaneCode::Source ? 0 : 1] = state; });
    std::array<Model, 2> models;

    for (int step = 0; step < steps; ++step) {
        const size_t which = random.bounded(2U);
        told = which == 0 ? PaneCode::Source : PaneCode::Target;
        RichTextBox &pane = which == 0 ? source : target;
        Model &model = models[which];
        switch (random.bounded(5)) {
        case 0:
        case 1:
            journal.UndoLast(told);
            model.undo();
            break;
        case 2:
            journal.RedoLast(told);
            model.redo();
            break;
        default:
            journal.SaveUndoState(told);
            model.record();
            edit(pane, model, random);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QByteArray place = "at step " + QByteArray::number(step);
        QVERIFY2(pane.Text() == model.present, place.constData());
        QVERIFY2(journal.UndoTop(told) == model.top(), place.constData());
        QVERIFY2(journal.UndoPos(told) == model.pos(), place.constData());
        QVERIFY2(buttons[which] == model.buttons(), place.constData());
    }

    for (const PaneCode code : {PaneCode::Source, PaneCode::Target}) {
        Model &model = models[code == PaneCode::Source ? 0 : 1];
        const RichTextBox &pane = code == PaneCode::Source ? source : target;
        told = code;
        while (model.pos() > 0) {
            journal.UndoLast(code);
            model.undo();
            QCOMPARE(pane.Text(), model.present);
        }
        while (model.pos() < model.top()) {
            journal.RedoLast(code);
            model.redo();
            QCOMPARE(pane.Text(), model.present);
        }
    }
}

QTEST_MAIN(tst_UndoModel)
#include "tst_undomodel.moc"
