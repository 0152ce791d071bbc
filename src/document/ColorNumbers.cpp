#include "ColorNumbers.h"

QColor colorOfNumber(std::int32_t number)
{
    const auto bgr = static_cast<std::uint32_t>(number);
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
        static_cast<int>((bgr >> 16) & 0xFF));
}

std::int32_t numberOfColor(const QColor& color)
{
    return color.red() | (color.green() << 8) | (color.blue() << 16);
}
