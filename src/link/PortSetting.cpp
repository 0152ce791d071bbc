#include "PortSetting.h"

#include "document/NumberText.h"
#include "document/SafeWrite.h"

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
    QSettings stored = settings();
    stored.setValue(Key, portText);
    SafeWrite::storeSettings(stored);
}

std::int32_t portNumber(const QString& portText)
{
    return NumberText::int32Value(portText);
}

} // namespace PortSetting
