#include "ScriptedPrompts.h"

namespace {

QString takeAnswer(QStringList& answers)
{
    return answers.isEmpty() ? QString() : answers.takeFirst();
}

} // namespace

void ScriptedPrompts::showMessage(const QString& text)
{
    messages.append(text);
    asked.append(QStringLiteral("message: ") + text);
}

QString ScriptedPrompts::askText(const QString& title)
{
    asked.append(QStringLiteral("text: ") + title);
    return takeAnswer(answers);
}

QString ScriptedPrompts::askOpenFile(const QString& preset)
{
    asked.append(QStringLiteral("open: ") + preset);
    return takeAnswer(answers);
}

QString ScriptedPrompts::askSaveFile(const QString& preset)
{
    asked.append(QStringLiteral("save: ") + preset);
    return takeAnswer(answers);
}
