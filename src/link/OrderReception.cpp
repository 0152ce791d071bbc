#include "OrderReception.h"

#include "PortSetting.h"
#include "RadioLink.h"
#include "document/AnsiCodec.h"
#include "document/Blanks.h"
#include "document/NumberText.h"

#include <algorithm>

namespace OrderReception {

namespace {

constexpr std::int32_t ListeningMode = 1;
constexpr std::int32_t ListeningFlag = 65000;
constexpr qsizetype FieldWidth = 8;
constexpr qsizetype FieldBufferSize = MaxProducts * FieldWidth;

const QString Heading = QStringLiteral("PLU                  QTY");
const qsizetype QuantityColumn = Heading.indexOf(u"QTY");

// Field k of a buffer the library filled, as a number.
std::int32_t fieldValue(const QByteArray& fields, qsizetype k)
{
    const QString text = AnsiCodec::decode(QByteArrayView(fields).sliced(k * FieldWidth, FieldWidth));
    return NumberText::int32Value(trimBlanks(text));
}

} // namespace

bool openPort(RadioLink& link, const QString& portText)
{
    PortSetting::save(portText);
    return link.radio_init(PortSetting::portNumber(portText), ListeningMode, ListeningFlag) <= 0;
}

std::optional<ReceivedOrder> receiveOrder(RadioLink& link)
{
    // A QByteArray keeps a zero byte after its blanks, so the library may also read them as C strings.
    QByteArray pluFields(FieldBufferSize, ' ');
    QByteArray quantityFields(FieldBufferSize, ' ');
    ReceivedOrder order;
    std::int32_t productCount = 0;
    if (link.menu_receive(pluFields.data(), quantityFields.data(), &order.terminal, &order.table,
            &productCount, MaxProducts)
        != 0) {
        return std::nullopt;
    }
    // A count the buffers cannot hold is the library's fault; read no further than they reach.
    const std::int32_t products = std::clamp<std::int32_t>(productCount, 0, MaxProducts);
    for (qsizetype k = 0; k < products; ++k) {
        order.products.append({ fieldValue(pluFields, k), fieldValue(quantityFields, k) });
    }
    return order;
}

QStringList productListLines(const ReceivedOrder& order)
{
    QStringList lines { Heading };
    for (const OrderedProduct& product : order.products) {
        lines.append(
            QString::number(product.plu).leftJustified(QuantityColumn) + QString::number(product.quantity));
    }
    return lines;
}

QString productListText(const ReceivedOrder& order)
{
    QString text;
    for (const QString& line : productListLines(order)) {
        text += line + u"\r\n";
    }
    return text;
}

} // namespace OrderReception
