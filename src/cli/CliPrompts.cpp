#include "CliPrompts.h"

#include "CliCommand.h"

void CliPrompts::showMessage(const QString& text)
{
    printToStderr(QStringLiteral("quorvel-cli: ") + text);
}

QString CliPrompts::askText(const QString&)
{
    return {};
}

QString CliPrompts::askOpenFile(const QString&)
{
    return {};
}

QString CliPrompts::askSaveFile(const QString&)
{
    return {};
}

std::optional<std::int32_t> CliPrompts::askColor(std::int32_t)
{
    return std::nullopt;
}
