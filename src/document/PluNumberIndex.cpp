#include "PluNumberIndex.h"

#include "MenuDocument.h"

#include <algorithm>

PluNumberIndex::PluNumberIndex(const MenuDocument& document)
    : m_pluCount(document.PluCount)
    , m_scanLeavesTable(document.PluCount >= Limits::PluCapacity)
{
    m_sorted.reserve(static_cast<std::size_t>(std::max(document.PluCount, 0)));
    for (int i = 0; i < document.PluCount; ++i) {
        m_sorted.emplace_back(pluNumber(document.Plus[i]), i);
    }
    std::sort(m_sorted.begin(), m_sorted.end());
    if (!m_scanLeavesTable) {
        m_numberPastEnd = pluNumber(document.Plus[document.PluCount]);
    }
}

std::span<const PluNumberIndex::Entry> PluNumberIndex::entriesOf(double n) const
{
    const auto [first, last] = std::equal_range(m_sorted.cbegin(), m_sorted.cend(), Entry { n, 0 },
        [](const Entry& a, const Entry& b) { return a.first < b.first; });
    return { first, last };
}

int PluNumberIndex::FindPluIndex(double n) const
{
    const std::span<const Entry> found = entriesOf(n);
    if (!found.empty()) {
        return found.front().second;
    }
    if (m_scanLeavesTable) {
        throw RangeFault();
    }
    return m_numberPastEnd == n ? m_pluCount : 0;
}

int PluNumberIndex::findLinePlu(std::int32_t n) const
{
    const int last = lastPluIndex(n);
    return last >= 1 ? last : -1;
}

int PluNumberIndex::lastPluIndex(double n) const
{
    const std::span<const Entry> found = entriesOf(n);
    return found.empty() ? -1 : found.back().second;
}
