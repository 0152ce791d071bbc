#pragma once

#include "document/SafeWrite.h"

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

// Ends a subcommand with a one-line message on standard error and exit status 1.
class CliError
{
public:
    explicit CliError(QString message)
        : m_message(std::move(message))
    { }
    const QString& message() const { return m_message; }

private:
    QString m_message;
};

// The arguments of one subcommand: its positional arguments, in order, and its options.
class CommandParser
{
public:
    CommandParser(const QString& command, const QString& description);

    void addPositional(const QString& name, const QString& description);
    void addOption(const QCommandLineOption& option) { m_parser.addOption(option); }

    // Checks the arguments (the subcommand's name first). Returns false when --help was given: the
    // usage has been printed and the command has nothing more to do. Throws CliError on bad arguments.
    bool parse(const QStringList& arguments);

    QString positional(int index) const { return m_parser.positionalArguments().at(index); }
    bool isSet(const QString& option) const { return m_parser.isSet(option); }
    // The value of an option the command cannot do without; throws CliError when it was not given.
    QString requiredValue(const QString& option) const;
    QString value(const QString& option) const { return m_parser.value(option); }

private:
    QString m_command;
    QCommandLineParser m_parser;
    QStringList m_positionalNames;
};

class MenuDocument;

// Loads the component files under the prefix into the document, which starts as a fresh one does.
// Throws CliError when there are none.
void loadComponentFiles(MenuDocument& document, const QString& prefix);

// Writes all component files of the document under the prefix. Throws CliError naming the first
// file that could not be written and why.
void saveComponentFiles(MenuDocument& document, const QString& prefix);

// Throws CliError naming the first failure, if any.
void requireWritten(const WriteFailures& failures);

// Messages that a window would show in a box, for standard error.
void printToStderr(const QString& line);
