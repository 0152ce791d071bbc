#include "CliCommand.h"

#include <cstdio>

CommandParser::CommandParser(const QString& command, const QString& description)
    : m_command(command)
{
    m_parser.setApplicationDescription(description);
    m_parser.addHelpOption();
}

void CommandParser::addPositional(const QString& name, const QString& description)
{
    m_parser.addPositionalArgument(name, description);
    m_positionalNames.append(name);
}

bool CommandParser::parse(const QStringList& arguments)
{
    if (!m_parser.parse(arguments)) {
        throw CliError(m_command + QStringLiteral(": ") + m_parser.errorText());
    }
    if (m_parser.isSet(QStringLiteral("help"))) {
        std::fputs(qPrintable(m_parser.helpText().replace(
                       QStringLiteral("[options]"), m_command + QStringLiteral(" [options]"))),
            stdout);
        return false;
    }
    const QStringList given = m_parser.positionalArguments();
    if (given.size() != m_positionalNames.size()) {
        throw CliError(QStringLiteral("%1: expected %2, got %3 argument(s); see '%1 --help'")
                           .arg(m_command, m_positionalNames.join(u' '))
                           .arg(given.size()));
    }
    return true;
}

void printToStderr(const QString& line)
{
    std::fputs(qPrintable(line + u'\n'), stderr);
}
