#include "MainWindow.h"
#include "QtUserPrompts.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quorvel"));
    QApplication::setApplicationDisplayName(QStringLiteral("Orvik Quorvel"));
    QApplication::setApplicationVersion(QStringLiteral(QUORVEL_VERSION));
    QApplication::setOrganizationName(QStringLiteral("QUORVEL"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Designer of the menus of handheld radio ordering terminals"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(app);

    QtUserPrompts prompts;
    MainWindow window(prompts);
    prompts.setParentWindow(&window);
    window.show();
    return QApplication::exec();
}
