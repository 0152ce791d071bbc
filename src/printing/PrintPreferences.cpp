#include "PrintPreferences.h"

#include "document/MenuDocument.h"

#include <QSettings>
#include <QUrl>

#include <algorithm>

namespace PrintPreferences {

namespace {

QSettings settings()
{
    return QSettings(QStringLiteral("QUORVEL"), QStringLiteral("QUORVEL"));
}

// Printer names may hold "/" and "\", which a settings key would take for groups.
QString calibrationKey(const QString& printerName, QStringView axis)
{
    return QStringLiteral("PrintCalibration/") + QString::fromLatin1(QUrl::toPercentEncoding(printerName))
        + u'/' + axis;
}

} // namespace

QString pdfPrinterName()
{
    return QStringLiteral("PDF file");
}

int language()
{
    return std::clamp(
        settings().value(QStringLiteral("Print/Language"), 1).toInt(), 1, Limits::LanguageCount);
}

void saveLanguage(int language)
{
    settings().setValue(QStringLiteral("Print/Language"), language);
}

QString lastPrinter()
{
    return settings().value(QStringLiteral("Print/Printer")).toString();
}

void saveLastPrinter(const QString& printerName)
{
    settings().setValue(QStringLiteral("Print/Printer"), printerName);
}

Offset calibration(const QString& printerName)
{
    const QSettings stored = settings();
    return { stored.value(calibrationKey(printerName, u"x"), 0.0).toDouble(),
        stored.value(calibrationKey(printerName, u"y"), 0.0).toDouble() };
}

void saveCalibration(const QString& printerName, const Offset& offset)
{
    QSettings stored = settings();
    stored.setValue(calibrationKey(printerName, u"x"), offset.x);
    stored.setValue(calibrationKey(printerName, u"y"), offset.y);
}

} // namespace PrintPreferences
