#pragma once

#include <QStringList>

// The row "Auto" translates from: the first row named exactly "English" that holds a text, else the
// first row that holds a text; -1 when every row is empty. English is the preferred pivot whatever
// its row, because the service translates from it best. The two lists run in parallel, row by row.
int translationSource(const QStringList& languageNames, const QStringList& texts);
