#include "PluNumberIndex.h"

#include "MenuDocument.h"

PluNumberIndex::PluNumberIndex(const MenuDocument& document)
    : m_pluCount(document.PluCount)
    , m_scanLeavesTable(document.PluCount >= Limits::PluCapacity)
{
    m_positions.reserve(document.PluCount);
    for (int i = 0; i < document.PluCount; ++i) {
        Positions& positions = m_positions[pluNumber(document.Plus[i])];
        if (positions.first < 0) {
            positions.first = i;
        }
        positions.last = i;
    }
    if (!m_scanLeavesTable) {
        m_numberPastEnd = pluNumber(document.Plus[document.PluCount]);
    }
}

int PluNumberIndex::FindPluIndex(double n) const
{
    const auto found = m_positions.constFind(n);
    if (found != m_positions.cend() && found->first >= 0) {
        return found->first;
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
    const auto found = m_positions.constFind(n);
    return found != m_positions.cend() ? found->last : -1;
}
