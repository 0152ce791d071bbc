#include "PageSideRenderer.h"

#include "designer/PageRendering.h"
#include "document/Blanks.h"
#include "document/ColorNumbers.h"
#include "document/MenuDocument.h"
#include "document/PluNumberIndex.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPaintDevice>
#include <QPainter>

#include <array>

using PageRendering::RowView;
using PrintSelection::Sheet;

namespace {

constexpr double MillimetresPerInch = 25.4;
constexpr double SideInset = 3; // the side's colour reaches this far beyond the texts and prices
constexpr double PriceGap = 2; // kept free between a row's text and its price
constexpr double BackTextGap = 1.5; // between the back column's pictures and the group titles
constexpr double BackPictureShare
    = 0.28; // the part of the side the back column's pictures take, as on screen
constexpr double RuleWidth = 0.2;
constexpr double BackPointSize = 9;
constexpr int DefaultPointSize = 13;

using Rows = std::array<RowView, Limits::RowsPerPage>;

// Millimetres on the painter's device.
class SheetScale
{
public:
    explicit SheetScale(const QPaintDevice& device)
        : m_x(device.logicalDpiX() / MillimetresPerInch)
        , m_y(device.logicalDpiY() / MillimetresPerInch)
        , m_sheetWidth(device.width() / m_x)
    { }

    QRectF rect(const QRectF& millimetres) const
    {
        return { millimetres.x() * m_x, millimetres.y() * m_y, millimetres.width() * m_x,
            millimetres.height() * m_y };
    }
    QPointF point(double x, double y) const { return { x * m_x, y * m_y }; }
    double sheetWidth() const { return m_sheetWidth; }
    double widthInMillimetres(double devicePixels) const { return devicePixels / m_x; }
    double widthOnDevice(double millimetres) const { return millimetres * m_x; }

private:
    double m_x;
    double m_y;
    double m_sheetWidth;
};

// The side's column on the sheet, in millimetres.
struct SideArea
{
    double left;
    double right;
    double top;
    double textLeft;
    double priceRight;

    SideArea(const SideLayout& layout, double sheetWidth)
        : left(layout.descriptionLeft - SideInset)
        , right(sheetWidth - layout.priceMargin + SideInset)
        , top(layout.bottom - Limits::RowsPerPage * PageSideRenderer::RowPitch)
        , textLeft(layout.descriptionLeft)
        , priceRight(sheetWidth - layout.priceMargin)
    { }

    double width() const { return right - left; }
    QRectF whole() const { return { left, top, width(), Limits::RowsPerPage * PageSideRenderer::RowPitch }; }
    QRectF rows(int first, int count) const
    {
        return { left, top + first * PageSideRenderer::RowPitch, width(),
            count * PageSideRenderer::RowPitch };
    }
    double backTextLeft() const { return left + width() * BackPictureShare + BackTextGap; }
};

// The text under the key in the language, or the line's own text when that is empty. A key outside
// the table (a PLU number beyond it) has no language texts.
QString textIn(const LanguageTable& texts, int key, int language, const QString& ownText)
{
    if (key <= TextKey::LanguageNames || key >= Limits::LanguageRowCount) {
        return ownText;
    }
    const QString& text = texts.at(key, language);
    return text.isEmpty() ? ownText : text;
}

QFont rowFont(const QString& family, double pointSize)
{
    QFont font(family);
    font.setPointSizeF(pointSize);
    return font;
}

class SideDrawing
{
public:
    SideDrawing(QPainter& painter, const MenuDocument& document, const Sheet& sheet, const SideLayout& layout)
        : m_painter(painter)
        , m_document(document)
        , m_sheet(sheet)
        , m_layout(layout)
        , m_scale(*painter.device())
        , m_area(layout, m_scale.sheetWidth())
    { }

    // The stored paths of the pictures the side should show and that could not be found.
    const QStringList& missingPictures() const { return m_missingPictures; }

    void draw()
    {
        m_painter.save();
        m_painter.translate(m_scale.point(m_layout.offset.x, m_layout.offset.y));
        const bool front = m_sheet.side == PrintSelection::Side::Front;
        drawBackground(front ? PageRendering::Side::Front : PageRendering::Side::Back);
        const Rows rows = describeRows();
        if (front) {
            drawFrontRows(rows);
        } else {
            drawBackRows(rows);
        }
        if (m_layout.lines) {
            drawRules();
        }
        m_painter.restore();
    }

private:
    PageRendering::PictureLoader loaderInto(QImage& picture) const
    {
        return [&picture](const QString& path) {
            picture = QImage(path);
            return !picture.isNull();
        };
    }

    void drawBackground(PageRendering::Side side)
    {
        QImage picture;
        const auto view = PageRendering::describeSide(m_document, m_sheet.page, side, loaderInto(picture));
        const QRectF area = m_scale.rect(m_area.whole());
        m_painter.fillRect(area, colorOfNumber(view.color));
        if (view.picture.loaded) {
            m_painter.drawImage(area, picture);
        } else {
            const PrintSettings& print = m_document.PrintSettings;
            noteMissing(side == PageRendering::Side::Front ? print.PageValueA[m_sheet.page]
                                                           : print.PageValueB[m_sheet.page]);
        }
    }

    void noteMissing(const QString& storedPath)
    {
        if (!isBlank(storedPath)) {
            m_missingPictures.append(storedPath);
        }
    }

    Rows describeRows()
    {
        const PluNumberIndex catalogue(m_document);
        Rows rows;
        for (int r = 0; r < Limits::RowsPerPage; ++r) {
            QImage picture;
            rows[static_cast<std::size_t>(r)]
                = PageRendering::describeRow(m_document, catalogue, m_sheet.page, r, loaderInto(picture));
            m_pictures[static_cast<std::size_t>(r)] = picture;
        }
        return rows;
    }

    const LineLayout& line(int row) const { return m_document.LineLayouts[lineSlot(m_sheet.page, row)]; }

    void drawFrontRows(const Rows& rows)
    {
        for (int r = 0; r < Limits::RowsPerPage; ++r) {
            const RowView& view = rows[static_cast<std::size_t>(r)];
            const LineLayout& layout = line(r);
            // Rows of an unknown kind print as text lines do, without a band.
            const PageRendering::FrontStyle style
                = view.front.value_or(PageRendering::FrontStyle { 0xFFFFFF, 0, DefaultPointSize });
            if (layout.kind != EmptyLine || !view.text.isEmpty()) {
                m_painter.fillRect(m_scale.rect(m_area.rows(r, 1)), colorOfNumber(style.backColor));
            }
            m_painter.setFont(rowFont(m_document.PrintSettings.FontName, style.pointSize));
            m_painter.setPen(colorOfNumber(style.foreColor));
            drawFrontTexts(r, frontText(r, view), printedPrice(view));
        }
    }

    QString frontText(int row, const RowView& view) const
    {
        const int slot = lineSlot(m_sheet.page, row);
        const std::int32_t kind = line(row).kind;
        if (kind == TitleLine || kind == NoteLine) {
            return textIn(
                m_document.LanguageTable, TextKey::LineTextBase + slot, m_layout.language, view.text);
        }
        if (view.tag.isEmpty()) {
            return view.text;
        }
        return textIn(m_document.LanguageTable, m_document.LinePlu[slot], m_layout.language, view.text);
    }

    QString printedPrice(const RowView& view) const
    {
        return view.price.isEmpty() ? QString() : view.price + u' ' + m_document.PrintSettings.CurrencySymbol;
    }

    // The price stands right-aligned at its margin; the text takes what room is left before it.
    void drawFrontTexts(int row, const QString& text, const QString& price)
    {
        const QFontMetricsF metrics(m_painter.font(), m_painter.device());
        const QRectF band = m_area.rows(row, 1);
        const QRectF priceRect(
            m_area.textLeft, band.top(), m_area.priceRight - m_area.textLeft, band.height());
        m_painter.drawText(m_scale.rect(priceRect), Qt::AlignRight | Qt::AlignVCenter, price);
        const double priceWidth
            = price.isEmpty() ? 0 : m_scale.widthInMillimetres(metrics.horizontalAdvance(price));
        const double textWidth = std::max(0.0, priceRect.width() - priceWidth - PriceGap);
        const QRectF textRect(m_area.textLeft, band.top(), textWidth, band.height());
        const QString fitted = metrics.elidedText(text, Qt::ElideRight, m_scale.rect(textRect).width());
        m_painter.drawText(m_scale.rect(textRect), Qt::AlignLeft | Qt::AlignVCenter, fitted);
    }

    // Group colours first, the pictures over them, the titles last, so that a picture reaching down
    // over the rows below its title is not painted over by their colours.
    void drawBackRows(const Rows& rows)
    {
        for (int r = 0; r < Limits::RowsPerPage; ++r) {
            if (!line(r).backBackColor.isEmpty()) {
                m_painter.fillRect(m_scale.rect(m_area.rows(r, 1)),
                    colorOfNumber(rows[static_cast<std::size_t>(r)].backBackColor));
            }
        }
        for (int r = 0; r < Limits::RowsPerPage; ++r) {
            const RowView& view = rows[static_cast<std::size_t>(r)];
            const QImage& picture = m_pictures[static_cast<std::size_t>(r)];
            if (view.pictureRows > 0 && picture.isNull()) {
                noteMissing(line(r).picturePath);
            } else if (view.pictureRows > 0) {
                QRectF box = m_area.rows(r, view.pictureRows);
                box.setWidth(m_area.width() * BackPictureShare);
                m_painter.drawImage(m_scale.rect(box), picture);
            }
        }
        m_painter.setFont(rowFont(m_document.PrintSettings.FontName, BackPointSize));
        for (int r = 0; r < Limits::RowsPerPage; ++r) {
            drawGroupTitle(r, rows[static_cast<std::size_t>(r)]);
        }
    }

    void drawGroupTitle(int row, const RowView& view)
    {
        if (view.backText.isEmpty()) {
            return;
        }
        const QString title = textIn(m_document.LanguageTable,
            TextKey::GroupTitleBase + lineSlot(m_sheet.page, row), m_layout.language, view.backText);
        const QRectF band = m_area.rows(row, 1);
        const QRectF textRect(m_area.backTextLeft(), band.top(),
            m_area.right - SideInset - m_area.backTextLeft(), band.height());
        const QRectF onSheet = m_scale.rect(textRect);
        m_painter.setPen(colorOfNumber(view.backForeColor));
        const QFontMetricsF metrics(m_painter.font(), m_painter.device());
        m_painter.drawText(onSheet, Qt::AlignLeft | Qt::AlignVCenter,
            metrics.elidedText(title, Qt::ElideRight, onSheet.width()));
    }

    void drawRules()
    {
        QPen rule(Qt::black);
        rule.setWidthF(m_scale.widthOnDevice(RuleWidth));
        m_painter.setPen(rule);
        for (int r = 0; r <= Limits::RowsPerPage; ++r) {
            const double y = m_area.top + r * PageSideRenderer::RowPitch;
            m_painter.drawLine(m_scale.point(m_area.left, y), m_scale.point(m_area.right, y));
        }
    }

    QPainter& m_painter;
    const MenuDocument& m_document;
    const Sheet& m_sheet;
    const SideLayout& m_layout;
    SheetScale m_scale;
    SideArea m_area;
    std::array<QImage, Limits::RowsPerPage> m_pictures;
    QStringList m_missingPictures;
};

} // namespace

SideLayout SideLayout::of(const MenuDocument& document, int language, const PrintPreferences::Offset& offset)
{
    const PrintSettings& print = document.PrintSettings;
    return { print.Value1, print.Value3, print.Value2, print.Value4 == 1, language, offset };
}

namespace PageSideRenderer {

QStringList draw(
    QPainter& painter, const MenuDocument& document, const Sheet& sheet, const SideLayout& layout)
{
    SideDrawing drawing(painter, document, sheet, layout);
    drawing.draw();
    return drawing.missingPictures();
}

} // namespace PageSideRenderer
