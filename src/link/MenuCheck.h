#pragma once

#include <QList>
#include <QString>

#include <cstdint>

class MenuDocument;

// What the terminals would get wrong in a menu: rows bound to products that are not there, products
// the transmission cannot send or sends wrongly, modifier lists a waiter cannot satisfy, texts the
// terminals cut or cannot show. Reads the document only.
namespace MenuCheck {

enum class Side
{
    None,
    Front,
    Back
};

struct Problem
{
    QString kind; // "missing-product", "code-range", ...
    int page = 0; // 1 to 14, 0 for none
    Side side = Side::None;
    int row = 0; // 1 to 24, 0 for none
    QString plu; // the PLU number as stored, empty for none
    QString message;

    bool operator==(const Problem&) const = default;
};

// Every problem: the rows in page order, the empty pages, then the catalogue, the modifier lists and
// the language names.
QList<Problem> check(const MenuDocument& document);

// One problem as a line of tab-separated fields: kind, page, side, row, PLU number, message; "-" for a
// field that does not apply.
QString line(const Problem& problem);

} // namespace MenuCheck
