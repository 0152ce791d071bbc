#include "ScriptedPrompts.h"

void ScriptedPrompts::showMessage(const QString& text)
{
    messages.append(text);
}
