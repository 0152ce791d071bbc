#include "document/NumberText.h"

#include "document/Fault.h"
#include "support/QtPrinters.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace NumberText;

TEST(NumericValue, TakesTheLeadingNumberAndSkipsBlanks)
{
    EXPECT_EQ(numericValue(u"12abc"), 12);
    EXPECT_EQ(numericValue(u"  - 1 2.5 kg"), -12.5);
    EXPECT_EQ(numericValue(u"\t3\n4"), 34);
    EXPECT_EQ(numericValue(u"+7"), 7);
    EXPECT_EQ(numericValue(u".5"), 0.5);
    EXPECT_EQ(numericValue(u"-.5"), -0.5);
    EXPECT_EQ(numericValue(u"1,000"), 1);
    EXPECT_EQ(numericValue(u"1.2.3"), 1.2);
    EXPECT_EQ(numericValue(u"2,50"), 2);
}

TEST(NumericValue, IsZeroWithoutALeadingNumber)
{
    for (const char16_t* text : { u"", u" ", u"abc", u"-", u".", u"-.", u"e5", u"x12", u"\r5" }) {
        EXPECT_EQ(numericValue(text), 0) << QString::fromUtf16(text).toStdString();
    }
}

TEST(NumericValue, ReadsExponentsOnlyWhenDigitsFollow)
{
    EXPECT_EQ(numericValue(u"1e3"), 1000);
    EXPECT_EQ(numericValue(u"2D2"), 200);
    EXPECT_EQ(numericValue(u"15E-1"), 1.5);
    EXPECT_EQ(numericValue(u"1e"), 1);
    EXPECT_EQ(numericValue(u"1e+"), 1);
    EXPECT_EQ(numericValue(u"7 e x"), 7);
}

TEST(NumericValue, OutOfRangeIsInfiniteOrZero)
{
    EXPECT_EQ(numericValue(u"1e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(numericValue(u"-1e400"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(numericValue(u"1e-400"), 0);
    EXPECT_EQ(numericValue(QString(u'9').repeated(400)), std::numeric_limits<double>::infinity());
    EXPECT_EQ(numericValue(QString(QStringLiteral("0.") + QString(u'0').repeated(400) + u'1')), 0);
    EXPECT_THROW(int32Value(u"1e400"), OverflowFault);
}

TEST(ToInt32, RoundsHalfToEvenAndFaultsOnOverflow)
{
    EXPECT_EQ(toInt32(2.5), 2);
    EXPECT_EQ(toInt32(3.5), 4);
    EXPECT_EQ(toInt32(-2.5), -2);
    EXPECT_EQ(toInt32(2.4999), 2);
    EXPECT_EQ(toInt32(2147483647.0), 2147483647);
    EXPECT_EQ(toInt32(-2147483648.0), -2147483647 - 1);
    EXPECT_THROW(toInt32(2147483647.5), OverflowFault);
    EXPECT_THROW(toInt32(-2147483649.0), OverflowFault);
    EXPECT_EQ(int32Value(u"12.5 units"), 12);
    EXPECT_THROW(toSingle(1e39), OverflowFault);
    EXPECT_EQ(toSingle(-1.5), -1.5F);
}

TEST(FileNumbers, HaveABlankForTheSignAndATrailingBlank)
{
    EXPECT_EQ(str(3), u" 3");
    EXPECT_EQ(str(-3), u"-3");
    EXPECT_EQ(str(0), u" 0");
    EXPECT_EQ(fileNumber(12), u" 12 ");
    EXPECT_EQ(fileNumber(-12), u"-12 ");
    EXPECT_EQ(QStringLiteral("minimo ") + str(12), u"minimo  12");
}

TEST(FileNumbers, FloatsAreShortestWithSevenDigitsAndNoLeadingZero)
{
    EXPECT_EQ(fileNumber(47.0F), u" 47 ");
    EXPECT_EQ(fileNumber(0.5F), u" .5 ");
    EXPECT_EQ(fileNumber(-0.5F), u"-.5 ");
    EXPECT_EQ(fileNumber(0.1F), u" .1 ");
    EXPECT_EQ(fileNumber(165.25F), u" 165.25 ");
    EXPECT_EQ(fileNumber(1234567.0F), u" 1234567 ");
    EXPECT_EQ(fileNumber(1.0e7F), u" 1E+07 ");
    EXPECT_EQ(fileNumber(1.5e-5F), u" 1.5E-05 ");
    EXPECT_EQ(fileNumber(-0.0F), u" 0 ");
    EXPECT_EQ(fileNumber(1.0F / 3.0F), u" .3333333 ");
}

TEST(FileNumbers, ReadBackToTheSameValue)
{
    for (float value : { 47.0F, 0.1F, -123.456F, 1234567.0F, 1.0e7F, 3.0e-6F }) {
        EXPECT_EQ(toSingle(numericValue(fileNumber(value))), value) << value;
    }
    for (std::int32_t value : { 0, 1, -1, 2147483647, -2147483647 - 1 }) {
        EXPECT_EQ(int32Value(fileNumber(value)), value);
    }
}

TEST(WholeSingle, TakesOnlyATextThatIsANumberAsAWhole)
{
    EXPECT_EQ(wholeSingle(u"47"), 47.0F);
    EXPECT_EQ(wholeSingle(u" -12.5 "), -12.5F);
    EXPECT_EQ(wholeSingle(u".5"), 0.5F);
    EXPECT_EQ(wholeSingle(u"15E-1"), 1.5F);
    for (const char16_t* text : { u"", u" ", u"12abc", u"1 2", u"1,5", u".", u"-", u"1e", u"abc" }) {
        EXPECT_THROW(wholeSingle(text), TypeFault) << QString::fromUtf16(text).toStdString();
    }
    EXPECT_THROW(wholeSingle(u"1e39"), OverflowFault);
}
