#include "MainWindow.h"
#include "ui/QtUserPrompts.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>

#include <cstring>

namespace {

void describeApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("quorvel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUORVEL_VERSION));
    QCoreApplication::setOrganizationName(QStringLiteral("QUORVEL"));
}

// Parses the command line; --help and --version print and end the program here.
void processArguments(const QCoreApplication& app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Designer of the menus of handheld radio ordering terminals"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(app);
}

// --help and --version need no screen: they are answered before a window system is looked for.
bool asksOnlyForText(int argc, char* argv[])
{
    for (int i = 1; i < argc; ++i) {
        for (const char* option : { "-h", "--help", "-v", "--version" }) {
            if (std::strcmp(argv[i], option) == 0) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

int main(int argc, char* argv[])
{
    if (asksOnlyForText(argc, argv)) {
        QCoreApplication app(argc, argv);
        describeApplication();
        processArguments(app);
    }
    QApplication app(argc, argv);
    describeApplication();
    QApplication::setApplicationDisplayName(QStringLiteral("Orvik Quorvel"));
    QApplication::setDesktopFileName(QStringLiteral("quorvel"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/quorvel.png")));
    processArguments(app);

    QtUserPrompts prompts;
    MainWindow window(prompts);
    prompts.setParentWindow(&window);
    window.show();
    return QApplication::exec();
}
