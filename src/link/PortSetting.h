#pragma once

#include <QString>

#include <cstdint>

// The serial port of the radio link, as the user types it in "ComPort" and as it is kept between runs.
namespace PortSetting {

// The port text saved last; empty when it was never saved.
QString saved();
// Throws a Fault when the setting could not be stored.
void save(const QString& portText);

// The number handed to the link: the text's leading numeric part, 0 when there is none.
std::int32_t portNumber(const QString& portText);

} // namespace PortSetting
