#include "PluLine.h"

#include "Blanks.h"

namespace PluLine {

QString format(const PluRecord& plu)
{
    return QStringLiteral("st1,") + plu.Code + u',' + plu.AuxText + u',' + plu.AltCode + u',' + plu.Price
        + u',' + plu.Description;
}

PluRecord parse(QStringView line)
{
    QStringView fields[5];
    QStringView rest = line;
    for (QStringView& field : fields) {
        const qsizetype comma = rest.indexOf(u',');
        if (comma < 0) {
            field = rest;
            rest = {};
            break;
        }
        field = rest.first(comma);
        rest = rest.sliced(comma + 1);
    }
    PluRecord plu;
    plu.Code = fields[1].toString();
    plu.AuxText = fields[2].toString();
    plu.AltCode = fields[3].toString();
    plu.Price = trimBlanks(fields[4]).toString();
    plu.Description = trimBlanks(rest).toString();
    return plu;
}

} // namespace PluLine
