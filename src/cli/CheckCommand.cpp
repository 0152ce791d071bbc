#include "CheckCommand.h"

#include "CliCommand.h"
#include "document/MenuDocument.h"
#include "link/MenuCheck.h"

#include <cstdio>

qsizetype printMenuProblems(const MenuDocument& document)
{
    const QList<MenuCheck::Problem> problems = MenuCheck::check(document);
    for (const MenuCheck::Problem& problem : problems) {
        std::fputs(qPrintable(MenuCheck::line(problem) + u'\n'), stdout);
    }
    return problems.size();
}

int runCheck(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("check"),
        QStringLiteral("Loads the component files under PREFIX and prints what the terminals would get "
                       "wrong, one line a problem: kind, page, side, row, PLU number and message, "
                       "separated by tabs. Exits with 3 when it finds anything."));
    parser.addPositional(QStringLiteral("PREFIX"), QStringLiteral("Prefix of the files to check"));
    if (!parser.parse(arguments)) {
        return 0;
    }
    MenuDocument document;
    loadComponentFiles(document, parser.positional(0));
    return printMenuProblems(document) == 0 ? 0 : ProblemsFound;
}
