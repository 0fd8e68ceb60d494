// SPDX-License-Identifier: MIT
// A translator that marks what it is asked for, to see which texts go through translation.
#pragma once

#include <QCoreApplication>
#include <QTranslator>

#include <functional>
#include <utility>

/// Puts an arrow before every text of one context while it lives.
class MarkingTranslator : public QTranslator {
public:
    /// 'whenAsked' gets each source text of the context before the form receives its translation.
    explicit MarkingTranslator(QByteArray ofContext,
                               std::function<void(const QString&)> whenAsked = nullptr)
        : context(std::move(ofContext)), asked(std::move(whenAsked))
    {
        QCoreApplication::installTranslator(this);
    }
    ~MarkingTranslator() override { QCoreApplication::removeTranslator(this); }
    Q_DISABLE_COPY_MOVE(MarkingTranslator)

    [[nodiscard]] static QString marked(const QString& text)
    {
        return text.isEmpty() ? text : QStringLiteral("->") + text;
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* textContext, const char* text, const char*,
                                    int) const override
    {
        if (context != textContext)
            return {};
        const QString source = QString::fromUtf8(text);
        if (asked)
            asked(source);
        return marked(source);
    }

private:
    QByteArray context;
    std::function<void(const QString&)> asked;
};
