#pragma once

#include "ui/UserPrompts.h"

#include <QStringList>

#include <functional>

// Answers the program's prompts from prepared answers without showing anything, and records every
// prompt in `asked` ("message: ...", "text: TITLE", "open: PRESET", "save: PRESET", "color: INITIAL"). A
// prompt with no answer left gets the cancel answer: the empty text, no colour.
class ScriptedPrompts : public UserPrompts
{
public:
    void showMessage(const QString& text) override;
    QString askText(const QString& title) override;
    QString askOpenFile(const QString& preset) override;
    QString askSaveFile(const QString& preset) override;
    // The answer is the colour's decimal number; an empty answer cancels.
    std::optional<std::int32_t> askColor(std::int32_t initialColor) override;

    QStringList messages;
    QStringList asked;
    QStringList answers; // taken in order by the text, file and colour prompts
    std::function<void()> whilePrompting; // runs while each prompt is open, to look at the program then

private:
    void record(const QString& prompt);
};
