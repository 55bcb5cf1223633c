#include "engine/source/ExpandRules.h"

#include "engine/CodePage.h"
#include "engine/ModeTable.h"
#include "engine/source/ComposeSigns.h"

#include <algorithm>
#include <map>

namespace {

/// A form as a tag tells it, and the tag's text. Only the part that the kind names is meant.
struct KnownForm
{
    FormKind kind;
    LetterForm form;
    QByteArray suffix;
};

/// The forms that rules leave, by their tag.
using KnownForms = std::map<QByteArray, KnownForm>;

/// One choice for a condition: the text of the field, and the form that it tells of.
struct ConditionChoice
{
    QByteArray field;
    std::optional<KnownForm> known;
    const TableEntry *entry = nullptr; ///< for a table
    QByteArray table;
};

QByteArray tagText(const FormTag &tag, const LetterForm &form)
{
    static constexpr char places[] = "wmsn";
    static constexpr char hooks[] = "rljc";
    if (tag.kind == FormKind::Head)
        return QByteArray(1, places[static_cast<size_t>(form.above)]) + tag.suffix;
    const char below = form.hasInside ? 'i' : places[static_cast<size_t>(form.below)];
    return QByteArray(1, below) + hooks[static_cast<size_t>(form.hook)] + tag.suffix;
}

bool isAbove(MarkKind kind)
{
    return kind == MarkKind::Above;
}

bool isTold(const KnownForm &known, MarkKind kind)
{
    return known.kind == FormKind::Head
               ? isAbove(kind)
               : kind == MarkKind::Below || kind == MarkKind::DotsBelow || kind == MarkKind::Hook;
}

/// Generates the rules of one line, given the forms that are known so far.
class LineExpander
{
public:
    LineExpander(const ModeSource &source, const RuleLine &rule, KnownForms &forms,
                 ExpandedRules &result)
        : source_(source), rule_(rule), forms_(forms), result_(result)
    {
    }

    void expand() { expandPattern(0); }

private:
    using Bindings = QHash<QByteArray, const TableEntry *>;

    void expandPattern(size_t part);
    void expandConditions();
    std::vector<ConditionChoice> choices(const std::vector<SourceCondition> &conditions) const;
    void addChoices(const SourceCondition &condition, std::vector<ConditionChoice> &choices) const;
    void emitRule(const ConditionChoice &after, const ConditionChoice &before);
    void addSigns(const SignList &signs, const std::optional<KnownForm> &known,
                  SignComposer &composer);
    QByteArray leavesTag(const ConditionChoice &after, const SignComposer &composer);
    void fail(const QString &message);

    const ModeSource &source_;
    const RuleLine &rule_;
    KnownForms &forms_;
    ExpandedRules &result_;
    Bindings bindings_;
    QByteArray roman_;
    bool hasLetter_ = false;
    bool isEnded_ = false; ///< a rule that does not fit is found once, and there is a most of all
};

void LineExpander::expandPattern(size_t part)
{
    if (isEnded_)
        return;
    if (part == rule_.pattern.size()) {
        expandConditions();
        return;
    }
    const qsizetype length = roman_.size();
    if (const auto *text = std::get_if<QByteArray>(&rule_.pattern[part])) {
        roman_ += *text;
        expandPattern(part + 1);
    } else {
        const QByteArray name = std::get<GroupReference>(rule_.pattern[part]).table;
        if (const TableEntry *bound = bindings_.value(name)) {
            roman_ += bound->key;
            expandPattern(part + 1);
        } else {
            for (const TableEntry &entry : *source_.tables.constFind(name)) {
                bindings_.insert(name, &entry);
                roman_ += entry.key;
                expandPattern(part + 1);
                roman_.truncate(length);
            }
            bindings_.remove(name);
        }
    }
    roman_.truncate(length);
}

void LineExpander::expandConditions()
{
    const std::vector<ConditionChoice> afterChoices = choices(rule_.after);
    const std::vector<ConditionChoice> beforeChoices = choices(rule_.before);
    const Bindings bindings = bindings_;
    for (const ConditionChoice &after : afterChoices) {
        for (const ConditionChoice &before : beforeChoices) {
            if (isEnded_)
                return;
            for (const ConditionChoice *choice : {&after, &before}) {
                if (choice->entry != nullptr)
                    bindings_.insert(choice->table, choice->entry);
            }
            emitRule(after, before);
            bindings_ = bindings;
        }
    }
}

std::vector<ConditionChoice>
LineExpander::choices(const std::vector<SourceCondition> &conditions) const
{
    if (conditions.empty())
        return {ConditionChoice()};
    std::vector<ConditionChoice> choices;
    for (const SourceCondition &condition : conditions)
        addChoices(condition, choices);
    return choices;
}

void LineExpander::addChoices(const SourceCondition &condition,
                              std::vector<ConditionChoice> &choices) const
{
    if (std::holds_alternative<Boundary>(condition)) {
        choices.push_back({QByteArray(1, wordBoundaryMark.toLatin1()), {}, nullptr, {}});
    } else if (const auto *text = std::get_if<QByteArray>(&condition)) {
        choices.push_back({*text, {}, nullptr, {}});
    } else if (const auto *group = std::get_if<GroupReference>(&condition)) {
        for (const TableEntry &entry : *source_.tables.constFind(group->table))
            choices.push_back({entry.key, {}, &entry, group->table});
    } else {
        const auto &wanted = std::get<FormTag>(condition);
        for (const auto &[tag, known] : forms_) {
            if (known.kind == wanted.kind && known.suffix == wanted.suffix)
                choices.push_back({tag, known, nullptr, {}});
        }
    }
}

void LineExpander::emitRule(const ConditionChoice &after, const ConditionChoice &before)
{
    SignComposer composer(after.known ? std::optional(after.known->form) : std::nullopt);
    hasLetter_ = false;
    addSigns(rule_.signs, after.known, composer);
    const QByteArray codes = composer.codes();
    const ModeRule rule{roman_, codes, before.field, after.field, leavesTag(after, composer)};
    result_.records.push_back({rule_.line, rule});
    isEnded_ =
        textLength(rule) > maximumTextLengthOfRule || result_.records.size() > maximumRecords;
}

void LineExpander::addSigns(const SignList &signs, const std::optional<KnownForm> &known,
                            SignComposer &composer)
{
    for (const SignItem &sign : signs) {
        if (const auto *letter = std::get_if<const Letter *>(&sign)) {
            composer.add(**letter);
            hasLetter_ = true;
        } else if (const auto *codes = std::get_if<QByteArray>(&sign)) {
            composer.add(*codes);
            hasLetter_ = true;
        } else if (const auto *group = std::get_if<GroupReference>(&sign)) {
            if (const TableEntry *entry = bindings_.value(group->table))
                addSigns(entry->signs, known, composer);
            else
                fail(QStringLiteral("the table '%1' is not named in front of '->'")
                         .arg(fromCodePage(group->table)));
        } else {
            const Mark &mark = *std::get<const Mark *>(sign);
            const bool isPlaced = hasLetter_ || (known && isTold(*known, mark.kind));
            if (!isPlaced || !composer.add(mark))
                fail(QStringLiteral("there is no letter that '%1' could sit on")
                         .arg(QString::fromLatin1(mark.name.data(), qsizetype(mark.name.size()))));
        }
    }
}

QByteArray LineExpander::leavesTag(const ConditionChoice &after, const SignComposer &composer)
{
    if (const auto *text = std::get_if<QByteArray>(&rule_.leaving))
        return *text;
    const auto &tag = std::get<FormTag>(rule_.leaving);
    const bool isTold = hasLetter_ || (after.known && after.known->kind == tag.kind);
    if (!composer.form() || !isTold) {
        fail(QStringLiteral("there is no letter whose form could be left"));
        return {};
    }
    QByteArray text = tagText(tag, *composer.form());
    forms_.insert({text, KnownForm{tag.kind, *composer.form(), tag.suffix}});
    return text;
}

void LineExpander::fail(const QString &message)
{
    const SourceProblem problem{rule_.line, message};
    if (!result_.problems.contains(problem))
        result_.problems.append(problem);
}

ExpandedRules expandOnce(const ModeSource &source, KnownForms &forms)
{
    ExpandedRules result;
    for (const auto &statement : source.statements) {
        if (const auto *raw = std::get_if<RawRecord>(&statement))
            result.records.push_back({raw->line, raw->bytes});
        else
            LineExpander(source, std::get<RuleLine>(statement), forms, result).expand();
        if (result.records.size() > maximumRecords) {
            const int line = result.records.back().place;
            result.problems.append(
                {line, QStringLiteral("a source has at most %1 records").arg(maximumRecords)});
            break;
        }
    }
    return result;
}

} // namespace

ExpandedRules expandRules(const ModeSource &source)
{
    // Rules that begin with a mark are generated for the forms that others leave, and leave forms
    // themselves; there are few forms, so this settles after some rounds.
    KnownForms forms;
    for (;;) {
        const size_t known = forms.size();
        ExpandedRules result = expandOnce(source, forms);
        if (forms.size() == known)
            return result;
    }
}
