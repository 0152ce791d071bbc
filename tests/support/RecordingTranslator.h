#pragma once

#include "texts/Translator.h"

#include <QStringList>

// Translates nothing: records each call as "SOURCE>TARGET:TEXT" and answers "TARGET:TEXT", so that a
// test sees which row served as the source of which.
class RecordingTranslator : public Translator
{
public:
    Translation TranslateUnicode(const QString& text, QString& sourceLanguage, const QString& targetLanguage,
        TranslationWaiting*) override
    {
        calls.append(sourceLanguage + u'>' + targetLanguage + u':' + text);
        return Translation::translatedAs(targetLanguage + u':' + text);
    }

    QStringList calls;
};
