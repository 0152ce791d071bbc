#include "TranslationSource.h"

int translationSource(const QStringList& languageNames, const QStringList& texts)
{
    const auto rows = static_cast<int>(texts.size());
    for (int row = 0; row < rows; ++row) {
        if (languageNames.value(row) == u"English" && !texts[row].isEmpty()) {
            return row;
        }
    }
    for (int row = 0; row < rows; ++row) {
        if (!texts[row].isEmpty()) {
            return row;
        }
    }
    return -1;
}
