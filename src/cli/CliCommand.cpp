#include "CliCommand.h"

#include "document/ComponentFiles.h"
#include "document/MenuDocument.h"

#include <QFileInfo>

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

QString CommandParser::requiredValue(const QString& option) const
{
    if (!m_parser.isSet(option)) {
        throw CliError(QStringLiteral("%1: --%2 is required; see '%1 --help'").arg(m_command, option));
    }
    return m_parser.value(option);
}

void loadComponentFiles(MenuDocument& document, const QString& prefix)
{
    // Pictures stored by their name are looked for beside the files, as the window looks for them in
    // the project's folder.
    document.ProjectFolder = QFileInfo(prefix).absolutePath() + u'/';
    document.FilePrefix = prefix;
    if (ComponentFiles::load(document) == 0) {
        throw CliError(QStringLiteral("no component files found under '%1'").arg(prefix));
    }
}

void saveComponentFiles(MenuDocument& document, const QString& prefix)
{
    document.FilePrefix = prefix;
    requireWritten(ComponentFiles::save(document));
}

void requireWritten(const WriteFailures& failures)
{
    if (!failures.isEmpty()) {
        const WriteFailure& first = failures.first();
        throw CliError(QStringLiteral("cannot write '%1': %2").arg(first.path, first.reason));
    }
}

void printToStderr(const QString& line)
{
    std::fputs(qPrintable(line + u'\n'), stderr);
}
