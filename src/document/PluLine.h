#pragma once

#include "MenuDocument.h"

#include <QStringView>

// The catalogue's line format: "st1,Code,AuxText,AltCode,Price,Description". The description comes
// last and may hold commas of its own.
namespace PluLine {

QString format(const PluRecord& plu);

// Splits at the first five commas; the leading tag is ignored, the price and the description are
// trimmed of blanks. Missing fields are empty.
PluRecord parse(QStringView line);

} // namespace PluLine
