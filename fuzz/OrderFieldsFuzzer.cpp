// An order as the radio library could hand it over: any bytes in the two field buffers, any terminal,
// table and product count.
#include "document/Fault.h"
#include "link/OrderReception.h"
#include "support/IdleLink.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::size_t BufferSize = OrderReception::MaxProducts * 8;

// Hands out the input: the PLU buffer, the quantity buffer, then terminal, table and product count.
class InputLink : public IdleLink
{
public:
    InputLink(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_size(size)
    { }

    std::int32_t menu_receive(char* pluFields, char* qtyFields, std::int32_t* terminal, std::int32_t* table,
        std::int32_t* productCount, std::int32_t) override
    {
        take(pluFields, BufferSize);
        take(qtyFields, BufferSize);
        take(terminal, sizeof *terminal);
        take(table, sizeof *table);
        take(productCount, sizeof *productCount);
        return 0;
    }

private:
    void take(void* target, std::size_t count)
    {
        const std::size_t available = std::min(count, m_size - m_used);
        if (available == 0) {
            return;
        }
        std::memcpy(target, m_data + m_used, available);
        m_used += available;
    }

    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_used = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    InputLink link(data, size);
    try {
        if (const auto order = OrderReception::receiveOrder(link)) {
            OrderReception::productListText(*order);
        }
    } catch (const Fault&) {
        // A field too large for a number is the reception window's message, not a crash.
    }
    return 0;
}
