#include "link/OrderReception.h"

#include "support/IdleLink.h"
#include "support/QtPrinters.h"

#include <cstring>
#include <gtest/gtest.h>

using namespace OrderReception;

namespace {

// Answers menu_receive as a test prepares it; the other calls are not used here.
class FakeLink : public IdleLink
{
public:
    // Records what the caller handed over, then writes the prepared fields into its buffers.
    std::int32_t menu_receive(char* pluFields, char* qtyFields, std::int32_t* terminal, std::int32_t* table,
        std::int32_t* productCount, std::int32_t maxProducts) override
    {
        givenPluBuffer = QByteArray(pluFields, 513);
        givenQuantityBuffer = QByteArray(qtyFields, 513);
        givenMaxProducts = maxProducts;
        std::memcpy(pluFields, pluText.constData(), static_cast<std::size_t>(pluText.size()));
        std::memcpy(qtyFields, quantityText.constData(), static_cast<std::size_t>(quantityText.size()));
        *terminal = 17;
        *table = 230;
        *productCount = count;
        return receiveResult;
    }

    QByteArray pluText;
    QByteArray quantityText;
    std::int32_t count = 0;
    std::int32_t receiveResult = 0;
    QByteArray givenPluBuffer;
    QByteArray givenQuantityBuffer;
    std::int32_t givenMaxProducts = 0;
};

// All 64 fields filled, field k holding k + offset.
QByteArray fullFields(int offset)
{
    QByteArray fields;
    for (int k = 0; k < 64; ++k) {
        fields += QByteArray::number(k + offset).leftJustified(8, ' ');
    }
    return fields;
}

} // namespace

TEST(OrderReceptionTest, FieldsAreEightCharactersTrimmedAndTakenByValue)
{
    FakeLink link;
    link.pluText = "1001    "
                   "  42    "
                   "12345678"
                   "-7      "
                   "3x      ";
    link.quantityText = "2       "
                        "     10 "
                        "99999999"
                        "1       "
                        "0.6     ";
    link.count = 5;

    const auto order = receiveOrder(link);

    ASSERT_TRUE(order.has_value());
    EXPECT_EQ(order->terminal, 17);
    EXPECT_EQ(order->table, 230);
    const QList<OrderedProduct> expected
        = { { 1001, 2 }, { 42, 10 }, { 12345678, 99999999 }, { -7, 1 }, { 3, 1 } };
    EXPECT_EQ(order->products, expected);
    // Each call starts from 512 blanks and a closing zero byte, with room for 64 products.
    EXPECT_EQ(link.givenPluBuffer, QByteArray(512, ' ') + '\0');
    EXPECT_EQ(link.givenQuantityBuffer, QByteArray(512, ' ') + '\0');
    EXPECT_EQ(link.givenMaxProducts, 64);
}

TEST(OrderReceptionTest, AProductCountOutsideTheBuffersIsHeldToThem)
{
    FakeLink link;
    link.pluText = fullFields(1);
    link.quantityText = fullFields(100);

    link.count = 1000;
    const auto clamped = receiveOrder(link);
    ASSERT_EQ(clamped->products.size(), 64);
    EXPECT_EQ(clamped->products.last(), (OrderedProduct { 64, 163 }));

    link.count = -3;
    EXPECT_TRUE(receiveOrder(link)->products.isEmpty());

    link.count = 2;
    link.receiveResult = 1;
    EXPECT_FALSE(receiveOrder(link).has_value());
}

TEST(OrderReceptionTest, ProductListPutsNumbersUnderTheHeadingsColumns)
{
    const ReceivedOrder order { 1, 2, { { 1001, 2 }, { 12345678, 10 }, { -5, 0 } } };
    const QStringList lines = productListLines(order);

    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0], QStringLiteral("PLU                  QTY"));
    const qsizetype quantityColumn = lines[0].indexOf(u"QTY");
    EXPECT_EQ(lines[1], QStringLiteral("1001").leftJustified(quantityColumn) + QStringLiteral("2"));
    EXPECT_EQ(lines[2].indexOf(u"10"), quantityColumn);
    EXPECT_TRUE(lines[2].startsWith(u"12345678 "));
    EXPECT_EQ(lines[3], QStringLiteral("-5                   0"));

    EXPECT_EQ(productListText(order), lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n"));
    EXPECT_EQ(productListText(ReceivedOrder {}), QStringLiteral("PLU                  QTY\r\n"));
}
