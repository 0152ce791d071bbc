#pragma once

#include <QHash>

#include <cstdint>

class MenuDocument;

// The catalogue's PLU numbers hashed once, for code that looks up many numbers in a row (loading,
// saving, drawing a page). Its answers are those of the linear scans in MenuDocument; it goes stale
// as soon as a product's Code or the PLU count changes.
class PluNumberIndex
{
public:
    explicit PluNumberIndex(const MenuDocument& document);

    int FindPluIndex(double n) const;
    int findLinePlu(std::int32_t n) const;
    // The last index 0 to PluCount - 1 with the number n, or -1: the product a page row shows.
    int lastPluIndex(double n) const;

private:
    struct Positions
    {
        int first = -1; // over 0 .. PluCount - 1
        int last = -1;
    };

    QHash<double, Positions> m_positions;
    int m_pluCount = 0;
    bool m_scanLeavesTable = false; // the catalogue is full: a scan one past its end leaves the table
    double m_numberPastEnd = 0; // the number of the unused record right after the last product
};
