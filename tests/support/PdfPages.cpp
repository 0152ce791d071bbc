#include "PdfPages.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace PdfPages {

namespace {

QString run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitCode() != 0) {
        return {};
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

int pageCount(const QString& pdf)
{
    const QString info = run(QStringLiteral("pdfinfo"), { pdf });
    const QRegularExpressionMatch pages = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(info);
    return pages.hasMatch() ? pages.captured(1).toInt() : -1;
}

QString text(const QString& pdf, int page)
{
    const QString number = QString::number(page);
    return run(QStringLiteral("pdftotext"),
        { QStringLiteral("-layout"), QStringLiteral("-f"), number, QStringLiteral("-l"), number, pdf,
            QStringLiteral("-") });
}

QImage image(const QString& pdf, int page, int dotsPerInch)
{
    const QTemporaryDir folder;
    const QString number = QString::number(page);
    const QString stem = folder.filePath(QStringLiteral("page"));
    run(QStringLiteral("pdftoppm"),
        { QStringLiteral("-png"), QStringLiteral("-singlefile"), QStringLiteral("-r"),
            QString::number(dotsPerInch), QStringLiteral("-f"), number, QStringLiteral("-l"), number, pdf,
            stem });
    return QImage(stem + QStringLiteral(".png"));
}

QColor colorAt(const QImage& page, int dotsPerInch, double xMillimetres, double yMillimetres)
{
    const double perMillimetre = dotsPerInch / 25.4;
    return page.pixelColor(
        static_cast<int>(xMillimetres * perMillimetre), static_cast<int>(yMillimetres * perMillimetre));
}

} // namespace PdfPages
