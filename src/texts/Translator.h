#pragma once

#include <QString>

// Machine translation of one menu text, by the language names the menu uses ("English", "Deutsch",
// ...). The source language may be changed by the call: some targets are reached through another
// source. Returns the translated text; failures have been told to the user and give what the service
// gave, possibly nothing.
class Translator
{
public:
    virtual ~Translator() = default;

    virtual QString TranslateUnicode(
        const QString& text, QString& sourceLanguage, const QString& targetLanguage)
        = 0;
};
