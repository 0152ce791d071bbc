#include "PortSetting.h"

#include "document/NumberText.h"

#include <QSettings>

namespace {

const QString Key = QStringLiteral("COM/ComPort");

QSettings settings()
{
    return QSettings(QStringLiteral("QUORVEL"), QStringLiteral("QUORVEL"));
}

} // namespace

namespace PortSetting {

QString saved()
{
    return settings().value(Key).toString();
}

void save(const QString& portText)
{
    settings().setValue(Key, portText);
}

std::int32_t portNumber(const QString& portText)
{
    return NumberText::int32Value(portText);
}

} // namespace PortSetting
