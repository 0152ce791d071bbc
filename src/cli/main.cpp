#include "CheckCommand.h"
#include "CliCommand.h"
#include "ImportCommand.h"
#include "PrintCommand.h"
#include "ReceiveCommand.h"
#include "ResaveCommand.h"
#include "SendCommand.h"
#include "TranslateCommand.h"
#include "document/Fault.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <cstdio>
#include <functional>
#include <memory>

namespace {

struct Command
{
    const char* name;
    const char* summary;
    std::function<int(const QStringList&)> run;
};

const Command Commands[] = {
    { "resave", "load a project's component files and write them under another prefix", runResave },
    { "import", "fill an empty menu's catalogue from a CSV file, a spreadsheet or the products last sent",
        runImport },
    { "send", "send a project's menu to the terminals through the radio link", runSend },
    { "receive", "open the radio link's port and print the orders the terminals send", runReceive },
    { "translate", "translate a text through the web translation service", runTranslate },
    { "print", "print a project's page sides into a PDF file", runPrint },
    { "check", "list what the terminals would get wrong in a project's menu", runCheck },
};

void printUsage()
{
    std::puts("Usage: quorvel-cli COMMAND [arguments]\n\nCommands:");
    for (const Command& command : Commands) {
        std::printf("  %-10s %s\n", command.name, command.summary);
    }
    std::puts("\nRun 'quorvel-cli COMMAND --help' for a command's arguments.");
}

int runCommand(const QStringList& arguments)
{
    if (arguments.size() < 2) {
        throw CliError(QStringLiteral("no command given; see 'quorvel-cli --help'"));
    }
    const QString& name = arguments.at(1);
    if (name == u"--help" || name == u"-h") {
        printUsage();
        return 0;
    }
    if (name == u"--version" || name == u"-v") {
        std::puts("quorvel-cli " QUORVEL_VERSION);
        return 0;
    }
    for (const Command& command : Commands) {
        if (name == QLatin1StringView(command.name)) {
            return command.run(arguments.mid(1));
        }
    }
    throw CliError(QStringLiteral("unknown command '%1'; see 'quorvel-cli --help'").arg(name));
}

// Only printing needs fonts and painting; without a display it draws offscreen.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char* argv[])
{
    if (!needsGraphics(argc, argv)) {
        return std::make_unique<QCoreApplication>(argc, argv);
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char* argv[])
{
    const auto app = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quorvel-cli"));
    QCoreApplication::setOrganizationName(QStringLiteral("QUORVEL"));
    try {
        return runCommand(QCoreApplication::arguments());
    } catch (const CliError& error) {
        printToStderr(QStringLiteral("quorvel-cli: ") + error.message());
    } catch (const Fault& fault) {
        printToStderr(QStringLiteral("quorvel-cli: ") + fault.message());
    }
    return 1;
}
