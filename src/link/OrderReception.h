#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

class RadioLink;

// Orders that come back from the terminals over the radio link, as the reception monitor shows them.
namespace OrderReception {

// How often the monitor asks the link for an order.
constexpr int PollIntervalMs = 250;

// The most products one order carries: the 8-character fields that fill a 512-character buffer.
constexpr std::int32_t MaxProducts = 64;

struct OrderedProduct
{
    std::int32_t plu = 0;
    std::int32_t quantity = 0;

    friend bool operator==(const OrderedProduct&, const OrderedProduct&) = default;
};

struct ReceivedOrder
{
    std::int32_t terminal = 0;
    std::int32_t table = 0;
    QList<OrderedProduct> products;
};

// Saves the port text as the user's setting, then opens that port for listening. False when the link
// refused to open it.
bool openPort(RadioLink& link, const QString& portText);

// Asks the link once for an order; nothing when none has come.
std::optional<ReceivedOrder> receiveOrder(RadioLink& link);

// The heading "PLU                  QTY", then one line per product with its number and quantity under
// the heading's two columns.
QStringList productListLines(const ReceivedOrder& order);

// The same lines as the list box holds them, each ended by CR LF.
QString productListText(const ReceivedOrder& order);

} // namespace OrderReception
