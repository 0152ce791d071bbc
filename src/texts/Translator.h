#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

class TranslationWaiting;

// What one translation gave: the translated text, or nothing. A translation that failed brings the
// messages that tell the user why; the caller shows them, so that a run over several languages can
// tell each reason once.
struct Translation
{
    static Translation translatedAs(QString text) { return { std::move(text), {}, false }; }
    static Translation failedWith(QStringList messages)
    {
        return { std::nullopt, std::move(messages), false };
    }
    static Translation cancelledByTheUser() { return { std::nullopt, {}, true }; }

    std::optional<QString> text;
    QStringList messages;
    bool cancelled = false; // the user stopped the request: nothing to tell, nothing more to ask
};

// Machine translation of one menu text, by the language names the menu uses ("English", "Deutsch",
// ...). The source language may be changed by the call: some targets are reached through another
// source. `waiting`, when given, hears of a request that keeps the user waiting.
class Translator
{
public:
    virtual ~Translator() = default;

    virtual Translation TranslateUnicode(const QString& text, QString& sourceLanguage,
        const QString& targetLanguage, TranslationWaiting* waiting)
        = 0;
};
