#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>

// Numbers as the menu's texts and files hold them.
namespace NumberText {

// The leading numeric part of a text (sign, digits, one decimal point, an exponent with E or D), with
// blanks, tabs and line feeds skipped wherever they stand; 0 when the text does not start with a number.
// "12abc" is 12, " - 1 2.5" is -12.5, "abc" and "" are 0. A number beyond the range of a double is
// infinite, so comparing never fails and storing it as an integer overflows.
double numericValue(QStringView text);

// Rounds half to even, as the conversion of a text's value to a stored integer does.
// Raises OverflowFault outside the 32-bit range.
std::int32_t toInt32(double value);

// Raises OverflowFault outside the range of a single-precision float.
float toSingle(double value);

// A text that must be a number as a whole (blanks around it allowed): its single-precision value.
// Raises TypeFault when it is not one, the empty text included, and OverflowFault beyond a float.
float wholeSingle(QStringView text);

// The numeric value of a text stored as a 32-bit integer.
std::int32_t int32Value(QStringView text);

// "Str": the decimal text with one leading blank in place of a plus sign (" 3", "-3").
QString str(std::int32_t value);
QString str(float value);

// A number as a component file line holds it: Str followed by one trailing blank (" 3 ", " .5 ").
QString fileNumber(std::int32_t value);
QString fileNumber(float value);

// A number as it is typed or imported, as the menu stores it: a decimal comma becomes a point ("4,50"
// is "4.50"). In a price a comma would split the product's line in the catalogue file.
QString withDecimalPoint(QString text);

} // namespace NumberText
