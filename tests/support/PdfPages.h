#pragma once

#include <QImage>
#include <QString>

// What a PDF file shows, read with the poppler tools.
namespace PdfPages {

int pageCount(const QString& pdf);

// The text of one page (from 1) with its layout kept: a printed row is a line.
QString text(const QString& pdf, int page);

// One page as an image of the given resolution.
QImage image(const QString& pdf, int page, int dotsPerInch);

// The colour at a point given in millimetres from the page's top left corner.
QColor colorAt(const QImage& page, int dotsPerInch, double xMillimetres, double yMillimetres);

} // namespace PdfPages
