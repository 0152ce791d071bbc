#include "ImportCommand.h"

#include "CliCommand.h"
#include "catalogue/ProductImport.h"
#include "document/MenuDocument.h"
#include "document/Project.h"
#include "document/WorkingPaths.h"

namespace {

// Runs the import of the given kind; false when its text source could not be opened.
bool runKind(ProductImport& import, const QString& kind, const QString& file)
{
    if (kind == u"csv") {
        return import.fromCsv(file);
    }
    if (kind == u"xls") {
        return import.fromPluSheet(file);
    }
    if (kind == u"fenwar") {
        return import.fromBackOffice(file);
    }
    if (kind == u"last") {
        return import.fromLastSent();
    }
    throw CliError(QStringLiteral("import: unknown kind '%1'; expected csv, xls, fenwar or last").arg(kind));
}

} // namespace

int runImport(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("import"),
        QStringLiteral("Fills an empty menu's catalogue from FILE and writes all component files under "
                       "OUT_PREFIX. KIND csv: \"PLUCODE\",\"DESCRIPTION\",\"PRICE\" lines; xls: a workbook "
                       "with the columns PLUCODE, DESCRIPTION and PRICE; fenwar: the back office's family "
                       "sheet, with its PLU.XLS beside it; last: the products last sent to the terminals "
                       "(FILE is ignored). The spreadsheets pass through the working root's pludata.txt."));
    parser.addPositional(QStringLiteral("KIND"), QStringLiteral("csv, xls, fenwar or last"));
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("The file to import"));
    parser.addPositional(QStringLiteral("OUT_PREFIX"), QStringLiteral("Prefix of the files to write"));
    if (!parser.parse(arguments)) {
        return 0;
    }

    const QString kind = parser.positional(0);
    MenuDocument document;
    // The command has its own document: the working copy of a running designer is left alone.
    ProductImport import(document, [&document] { Project::clearTables(document); });
    if (!runKind(import, kind, parser.positional(1))) {
        const QString source = kind == u"last" ? WorkingPaths::exchangeFile() : parser.positional(1);
        throw CliError(QStringLiteral("cannot open '%1'").arg(source));
    }
    saveComponentFiles(document, parser.positional(2));
    return 0;
}
