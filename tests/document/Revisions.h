#pragma once

#include "document/MenuDocument.h"

// Two revisions of one document that differ in the catalogue, a page's prices, the print settings, the
// language texts and the pages version, so that every kind of file has two versions on disk.
inline void applyRevision(MenuDocument& document, int revision)
{
    const QString mark = QString::number(revision);
    document.PagesVersion = mark;
    document.Plus[0].Price = mark;
    document.Plus[0].Description = QStringLiteral("Revision ") + mark;
    document.PrintSettings.Value1 = static_cast<float>(revision);
    document.LanguageTable.at(1, 1) = QStringLiteral("Revision ") + mark;
}
