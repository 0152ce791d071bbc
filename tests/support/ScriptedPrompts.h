#pragma once

#include "app/UserPrompts.h"

#include <QStringList>

#include <functional>

// Answers the program's prompts from prepared answers without showing anything, and records every
// prompt in `asked` ("message: ...", "text: TITLE", "open: PRESET", "save: PRESET"). A prompt with no
// answer left gets the cancel answer, the empty text.
class ScriptedPrompts : public UserPrompts
{
public:
    void showMessage(const QString& text) override;
    QString askText(const QString& title) override;
    QString askOpenFile(const QString& preset) override;
    QString askSaveFile(const QString& preset) override;

    QStringList messages;
    QStringList asked;
    QStringList answers; // taken in order by the text and file prompts
    std::function<void()> whilePrompting; // runs while each prompt is open, to look at the program then

private:
    void record(const QString& prompt);
};
