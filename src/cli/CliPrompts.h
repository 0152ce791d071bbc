#pragma once

#include "ui/UserPrompts.h"

// The prompts of a program without a window: each message goes to standard error as one line, and
// nobody is there to answer a question, so every question is cancelled.
class CliPrompts : public UserPrompts
{
public:
    void showMessage(const QString& text) override;
    QString askText(const QString& title) override;
    QString askOpenFile(const QString& preset) override;
    QString askSaveFile(const QString& preset) override;
    std::optional<std::int32_t> askColor(std::int32_t initialColor) override;
};
