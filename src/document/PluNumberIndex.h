#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

class MenuDocument;

// The catalogue's PLU numbers converted once and sorted, for code that looks up many numbers in a row
// (loading, saving, drawing a page, listing the placed products). Its answers are those of the linear
// scans in MenuDocument; it goes stale as soon as a product's Code or the PLU count changes.
class PluNumberIndex
{
public:
    explicit PluNumberIndex(const MenuDocument& document);

    int FindPluIndex(double n) const;
    int findLinePlu(std::int32_t n) const;
    // The last index 0 to PluCount - 1 with the number n, or -1: the product a page row shows.
    int lastPluIndex(double n) const;

    // Every index 0 to PluCount - 1 with the number n, in catalogue order.
    template<typename Visit>
    void forEachIndexOf(double n, Visit&& visit) const
    {
        for (const auto& entry : entriesOf(n)) {
            visit(entry.second);
        }
    }

private:
    using Entry = std::pair<double, int>; // number, index

    std::span<const Entry> entriesOf(double n) const;

    std::vector<Entry> m_sorted; // by number, then index
    int m_pluCount = 0;
    bool m_scanLeavesTable = false; // the catalogue is full: a scan one past its end leaves the table
    double m_numberPastEnd = 0; // the number of the unused record right after the last product
};
