#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// A translation that puts the texts of one context between brackets; installed while it lives.
class BracketTranslator final : public QTranslator
{
public:
    explicit BracketTranslator(const char *context) : context_(context)
    {
        if (!QCoreApplication::installTranslator(this))
            qFatal("cannot install a translator");
    }

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char *context, const char *text, const char * /*note*/,
                                    int /*number*/) const override
    {
        const bool isMeant = qstrcmp(context, context_) == 0;
        return isMeant ? u'[' + QString::fromUtf8(text) + u']' : QString();
    }

private:
    const char *context_;
};
