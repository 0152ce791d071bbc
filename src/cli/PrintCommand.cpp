#include "PrintCommand.h"

#include "CliCommand.h"
#include "CliPrompts.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "printing/PrintJob.h"
#include "printing/PrintPreferences.h"

#include <cstring>

namespace {

using PrintSelection::Pages;

int numberIn(const CommandParser& parser, const QString& option, int first, int last)
{
    const QString text = parser.value(option);
    const double value = NumberText::numericValue(text);
    if (value < first || value > last || value != static_cast<int>(value)) {
        throw CliError(QStringLiteral("print: --%1 takes a number from %2 to %3, not '%4'")
                           .arg(option)
                           .arg(first)
                           .arg(last)
                           .arg(text));
    }
    return static_cast<int>(value);
}

Pages chosenPages(const CommandParser& parser)
{
    const std::pair<const char16_t*, Pages> choices[] = { { u"current", Pages::Current },
        { u"all", Pages::All }, { u"front", Pages::AllFronts }, { u"back", Pages::AllBacks } };
    int given = 0;
    Pages pages = Pages::Current;
    for (const auto& [option, choice] : choices) {
        if (parser.isSet(QString::fromUtf16(option))) {
            ++given;
            pages = choice;
        }
    }
    if (given > 1) {
        throw CliError(QStringLiteral("print: give one of --current, --all, --front and --back"));
    }
    return pages;
}

} // namespace

bool needsGraphics(int argc, char* argv[])
{
    return argc > 1 && std::strcmp(argv[1], "print") == 0;
}

int runPrint(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("print"),
        QStringLiteral("Loads the component files under PREFIX and prints page sides into a PDF file, one "
                       "side a sheet, as the Print dialog does."));
    parser.addPositional(QStringLiteral("PREFIX"), QStringLiteral("Prefix of the files to print"));
    parser.addOption(
        { QStringLiteral("pdf"), QStringLiteral("The PDF file to write."), QStringLiteral("FILE") });
    parser.addOption({ QStringLiteral("current"),
        QStringLiteral("Print page N, front and back (\"Print current page\"; page 1 by default)."),
        QStringLiteral("N") });
    parser.addOption({ QStringLiteral("all"), QStringLiteral("Print pages 1 to 13, front and back.") });
    parser.addOption({ QStringLiteral("front"), QStringLiteral("Print the fronts of pages 1 to 13.") });
    parser.addOption({ QStringLiteral("back"), QStringLiteral("Print the backs of pages 1 to 13.") });
    parser.addOption({ QStringLiteral("language"),
        QStringLiteral("Language column 1 to 5 whose texts are printed (1 by default)."),
        QStringLiteral("K") });
    if (!parser.parse(arguments)) {
        return 0;
    }
    const QString pdf = parser.requiredValue(QStringLiteral("pdf"));
    const Pages pages = chosenPages(parser);
    const int currentPage = parser.isSet(QStringLiteral("current"))
        ? numberIn(parser, QStringLiteral("current"), 1, Limits::PageCount)
        : 1;
    const int language = parser.isSet(QStringLiteral("language"))
        ? numberIn(parser, QStringLiteral("language"), 1, Limits::LanguageCount)
        : 1;

    MenuDocument document;
    loadComponentFiles(document, parser.positional(0));
    const PrintJob::Request request { pages, currentPage,
        SideLayout::of(
            document, language, PrintPreferences::calibration(PrintPreferences::pdfPrinterName())) };
    CliPrompts prompts;
    QStringList missingPictures;
    const std::optional<WriteFailure> failure
        = PrintJob::printPdf(document, request, pdf, prompts, &missingPictures);
    if (failure) {
        throw CliError(QStringLiteral("print: cannot write '%1': %2").arg(failure->path, failure->reason));
    }
    for (const QString& picture : missingPictures) {
        printToStderr(QStringLiteral(
            "quorvel-cli: print: cannot find the picture '%1'; the sheets are printed without it")
                          .arg(picture));
    }
    return 0;
}
