#pragma once

#include "Fault.h"

#include <algorithm>
#include <cstddef>
#include <vector>

// A table whose size is fixed when the document is made. Reaching outside it raises a RangeFault
// instead of touching memory that is not the table's.
template<typename T, int Size>
class FixedTable
{
    static_assert(Size > 0);

public:
    FixedTable()
        : m_items(static_cast<std::size_t>(Size))
    { }

    static constexpr int size() { return Size; }

    T& operator[](int index) { return m_items[checked(index)]; }
    const T& operator[](int index) const { return m_items[checked(index)]; }

    void fill(const T& value) { std::fill(m_items.begin(), m_items.end(), value); }

    bool operator==(const FixedTable&) const = default;

private:
    static std::size_t checked(int index)
    {
        if (index < 0 || index >= Size) {
            throw RangeFault();
        }
        return static_cast<std::size_t>(index);
    }

    std::vector<T> m_items;
};
