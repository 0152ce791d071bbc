#include "ScriptedPrompts.h"

namespace {

QString takeAnswer(QStringList& answers)
{
    return answers.isEmpty() ? QString() : answers.takeFirst();
}

} // namespace

void ScriptedPrompts::record(const QString& prompt)
{
    asked.append(prompt);
    if (whilePrompting) {
        whilePrompting();
    }
}

void ScriptedPrompts::showMessage(const QString& text)
{
    messages.append(text);
    record(QStringLiteral("message: ") + text);
}

QString ScriptedPrompts::askText(const QString& title)
{
    record(QStringLiteral("text: ") + title);
    return takeAnswer(answers);
}

QString ScriptedPrompts::askOpenFile(const QString& preset)
{
    record(QStringLiteral("open: ") + preset);
    return takeAnswer(answers);
}

QString ScriptedPrompts::askSaveFile(const QString& preset)
{
    record(QStringLiteral("save: ") + preset);
    return takeAnswer(answers);
}

std::optional<std::int32_t> ScriptedPrompts::askColor(std::int32_t initialColor)
{
    record(QStringLiteral("color: ") + QString::number(initialColor));
    const QString answer = takeAnswer(answers);
    if (answer.isEmpty()) {
        return std::nullopt;
    }
    return answer.toInt();
}
