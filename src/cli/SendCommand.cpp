#include "SendCommand.h"

#include "CheckCommand.h"
#include "CliCommand.h"
#include "document/MenuDocument.h"
#include "document/WorkingCopy.h"
#include "link/DravlinkLibrary.h"
#include "link/MenuTransmission.h"
#include "link/PortSetting.h"

int runSend(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("send"),
        QStringLiteral("Loads the component files under PREFIX, keeps them as the working copy (the "
                       "products sent last) and sends the whole menu through the radio link."));
    parser.addPositional(QStringLiteral("PREFIX"), QStringLiteral("Prefix of the files to send"));
    parser.addOption({ QStringLiteral("port"), QStringLiteral("Serial port number of the radio link."),
        QStringLiteral("N") });
    parser.addOption({ QStringLiteral("thirteen-pages"),
        QStringLiteral("Keys follow pages 1 to 13 as they are (\"13 Pages from 1 - 13\").") });
    parser.addOption({ QStringLiteral("old-firmware"),
        QStringLiteral("Send the first language only (\"Old firmware without language option\").") });
    parser.addOption({ QStringLiteral("force"),
        QStringLiteral("Send even when the menu check finds problems (see 'quorvel-cli check').") });
    if (!parser.parse(arguments)) {
        return 0;
    }
    const QString portText = parser.requiredValue(QStringLiteral("port"));

    MenuDocument document;
    loadComponentFiles(document, parser.positional(0));
    document.OldFirmware = parser.isSet(QStringLiteral("old-firmware"));
    if (const qsizetype problems = printMenuProblems(document);
        problems > 0 && !parser.isSet(QStringLiteral("force"))) {
        printToStderr(
            QStringLiteral("quorvel-cli: send: the menu check found %1 problem(s); nothing was sent "
                           "(--force sends anyway)")
                .arg(problems));
        return ProblemsFound;
    }
    requireWritten(WorkingCopy::save(document));
    PortSetting::save(portText);
    const MenuTransmission transmission(document, { parser.isSet(QStringLiteral("thirteen-pages")), {}, {} });
    DravlinkLibrary link;
    const std::int32_t port = PortSetting::portNumber(portText);
    if (const std::int32_t opened = transmission.send(link, port); opened > 0) {
        throw CliError(
            QStringLiteral("the radio link did not open port %1 (it answered %2); nothing was sent")
                .arg(port)
                .arg(opened));
    }
    return 0;
}
