#include "ResaveCommand.h"

#include "CliCommand.h"
#include "document/MenuDocument.h"

int runResave(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("resave"),
        QStringLiteral("Loads the component files under IN_PREFIX into a fresh document and writes all "
                       "component files under OUT_PREFIX."));
    parser.addPositional(
        QStringLiteral("IN_PREFIX"), QStringLiteral("Prefix of the files to read, e.g. menus/summer"));
    parser.addPositional(QStringLiteral("OUT_PREFIX"), QStringLiteral("Prefix of the files to write"));
    if (!parser.parse(arguments)) {
        return 0;
    }

    MenuDocument document;
    loadComponentFiles(document, parser.positional(0));
    saveComponentFiles(document, parser.positional(1));
    return 0;
}
