#include "PrintSelection.h"

namespace PrintSelection {

QList<Sheet> sheetsOf(Pages pages, int currentPage)
{
    if (pages == Pages::Current) {
        return { { currentPage, Side::Front }, { currentPage, Side::Back } };
    }
    QList<Sheet> sheets;
    for (int page = 1; page <= LastPageOfAll; ++page) {
        if (pages != Pages::AllBacks) {
            sheets.append({ page, Side::Front });
        }
        if (pages != Pages::AllFronts) {
            sheets.append({ page, Side::Back });
        }
    }
    return sheets;
}

QString sheetPrompt(Pages pages)
{
    switch (pages) {
    case Pages::AllFronts:
        return QStringLiteral("Please insert pages type 'PAGE A' on the printer");
    case Pages::AllBacks:
        return QStringLiteral("Please insert pages type 'PAGE B' on the printer");
    default:
        return {};
    }
}

} // namespace PrintSelection
