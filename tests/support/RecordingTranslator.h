#pragma once

#include "texts/Translator.h"

#include <QStringList>

// Translates nothing: records each call as "SOURCE>TARGET:TEXT" and answers "TARGET:TEXT", so that a
// test sees which row served as the source of which.
class RecordingTranslator : public Translator
{
public:
    QString TranslateUnicode(
        const QString& text, QString& sourceLanguage, const QString& targetLanguage) override
    {
        calls.append(sourceLanguage + u'>' + targetLanguage + u':' + text);
        return targetLanguage + u':' + text;
    }

    QStringList calls;
};
