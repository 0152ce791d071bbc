#pragma once

#include <QColor>

#include <cstdint>

// The document keeps colours as numbers with red in the low byte (0x00BBGGRR).
QColor colorOfNumber(std::int32_t number);
std::int32_t numberOfColor(const QColor& color);
