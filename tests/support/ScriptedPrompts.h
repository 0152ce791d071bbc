#pragma once

#include "app/UserPrompts.h"

#include <QStringList>

// Answers the program's prompts without showing anything, and records what was asked.
class ScriptedPrompts : public UserPrompts
{
public:
    void showMessage(const QString& text) override;

    QStringList messages;
};
