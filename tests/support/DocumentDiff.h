#pragma once

#include "document/MenuDocument.h"

#include <QString>

// The first field in which two documents differ, named and with both values ("Plus[3].Price: '1' / '2'"),
// or an empty text when they are equal. Counters, every table entry and every setting are compared.
QString firstDifference(const MenuDocument& expected, const MenuDocument& actual);
