#include "ColorNumbers.h"

QColor colorOfNumber(std::int32_t number)
{
    const auto bgr = static_cast<std::uint32_t>(number);
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
        static_cast<int>((bgr >> 16) & 0xFF));
}
