#include "TranslationService.h"

#include "document/SafeWrite.h"

#include <QSettings>
#include <QUrl>

namespace {

const QString Key = QStringLiteral("Translation/Host");

QSettings settings()
{
    return QSettings(QStringLiteral("QUORVEL"), QStringLiteral("QUORVEL"));
}

// "http://host/" names the same service as "http://host"; the page is appended after it.
QString withoutTrailingSlashes(QString address)
{
    while (address.endsWith(u'/')) {
        address.chop(1);
    }
    return address;
}

} // namespace

namespace TranslationService {

QString address()
{
    const QString fromEnvironment = qEnvironmentVariable("QUORVEL_TRANSLATE_URL").trimmed();
    return withoutTrailingSlashes(fromEnvironment.isEmpty() ? savedAddress() : fromEnvironment);
}

QString savedAddress()
{
    return settings().value(Key).toString();
}

void saveAddress(const QString& address)
{
    QSettings stored = settings();
    if (address.isEmpty()) {
        stored.remove(Key);
    } else {
        stored.setValue(Key, address);
    }
    SafeWrite::storeSettings(stored);
}

bool isValidAddress(const QString& address)
{
    const QUrl url(withoutTrailingSlashes(address), QUrl::StrictMode);
    return url.isValid() && (url.scheme() == u"http" || url.scheme() == u"https") && !url.host().isEmpty()
        && url.userInfo().isEmpty() && url.path().isEmpty() && !url.hasQuery() && !url.hasFragment();
}

} // namespace TranslationService
