#include "PageView.h"

#include "PageRendering.h"
#include "PictureBox.h"
#include "appearance/ColorNumbers.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "document/PluNumberIndex.h"

#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>

using namespace PageRendering;

namespace {

// Rows stand at a fixed pitch so that a group picture can reach down over the rows it covers.
constexpr int RowPitch = 25;
constexpr int RowBoxHeight = RowPitch - 1; // the page shows through between the rows, as ruled lines
constexpr int Margin = 12;
constexpr int SideWidth = 430;
constexpr int SideHeaderHeight = 44;
constexpr int SideHeight = SideHeaderHeight + PageView::Rows * RowPitch + 12;
constexpr int HeadingTop = 36;
constexpr int SideTop = 58;
constexpr int ButtonSize = 22;
constexpr int ButtonGutter = 2 * ButtonSize + 16;

constexpr int FrontLeft = Margin;
constexpr int BackLeft = FrontLeft + SideWidth + ButtonGutter;
constexpr int TextLeft = 10;
constexpr int TextWidth = 330;
constexpr int PriceLeft = TextLeft + TextWidth + 2;
constexpr int PriceWidth = SideWidth - 10 - PriceLeft;
constexpr int BackPictureWidth = 120;
constexpr int BackTextLeft = TextLeft + BackPictureWidth + 2;
constexpr int BackTextWidth = SideWidth - 10 - BackTextLeft;

constexpr int BackRowPointSize = 9;
constexpr int MagnetSize = 36;

int rowTop(int row)
{
    return SideHeaderHeight + row * RowPitch;
}

QString arrayName(QStringView name, int row)
{
    return QString(name + u'_' + QString::number(row));
}

QLineEdit* rowBox(QWidget* parent, QStringView name, int row, QRect geometry)
{
    auto* box = new QLineEdit(parent);
    box->setObjectName(arrayName(name, row));
    box->setFrame(false);
    box->setBackgroundRole(QPalette::Base);
    box->setAutoFillBackground(true);
    box->setGeometry(geometry);
    return box;
}

QToolButton* rowButton(
    QWidget* parent, QStringView name, int row, const QString& face, const QString& toolTip, int left)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(arrayName(name, row));
    button->setText(face);
    button->setToolTip(toolTip);
    button->setAutoRaise(true);
    button->setGeometry(left, SideTop + rowTop(row) + (RowPitch - ButtonSize) / 2, ButtonSize, ButtonSize);
    return button;
}

QLabel* heading(QWidget* parent, const QString& objectName, const QString& caption, int left)
{
    auto* label = new QLabel(caption, parent);
    label->setObjectName(objectName);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setGeometry(left, HeadingTop, SideWidth, 20);
    return label;
}

void setColors(QWidget* widget, std::int32_t back, std::int32_t fore)
{
    QPalette colors = widget->palette();
    colors.setColor(QPalette::Base, colorOfNumber(back));
    colors.setColor(QPalette::Text, colorOfNumber(fore));
    widget->setPalette(colors);
}

void setRowFont(QWidget* widget, const QString& family, int pointSize)
{
    QFont font = widget->font();
    font.setFamily(family);
    if (pointSize > 0) {
        font.setPointSize(pointSize);
    }
    widget->setFont(font);
}

} // namespace

PageView::PageView(MenuDocument& document, QWidget* parent)
    : QWidget(parent)
    , m_document(document)
{
    setObjectName(QStringLiteral("PageView"));

    auto* pageText = new QLabel(QStringLiteral("Page"), this);
    pageText->setObjectName(QStringLiteral("Page_text"));
    pageText->setGeometry(Margin, 8, 40, 22);
    m_page = new QLabel(QStringLiteral("1"), this);
    m_page->setObjectName(QStringLiteral("Page"));
    QFont pageFont = m_page->font();
    pageFont.setBold(true);
    pageFont.setPointSize(pageFont.pointSize() + 3);
    m_page->setFont(pageFont);
    m_page->setGeometry(Margin + 44, 8, 40, 22);

    heading(this, QStringLiteral("FrontHeading"), QStringLiteral("Front"), FrontLeft);
    heading(this, QStringLiteral("BackHeading"), QStringLiteral("Back"), BackLeft);

    buildFront();
    buildBack();
    setMinimumSize(sizeHint());
}

void PageView::buildFront()
{
    m_picture1 = new PictureBox(PictureBox::Fit::Fill, this);
    m_picture1->setObjectName(QStringLiteral("Picture1"));
    m_picture1->setGeometry(FrontLeft, SideTop, SideWidth, SideHeight);

    m_magnet = new QLabel(m_picture1);
    m_magnet->setObjectName(QStringLiteral("Magnet"));
    m_magnet->setAlignment(Qt::AlignCenter);
    m_magnet->setFrameShape(QFrame::Box);
    QFont magnetFont = m_magnet->font();
    magnetFont.setPointSize(22);
    magnetFont.setBold(true);
    m_magnet->setFont(magnetFont);
    m_magnet->setGeometry(
        SideWidth - 10 - MagnetSize, (SideHeaderHeight - MagnetSize) / 2, MagnetSize, MagnetSize);

    const QString bindTip = QStringLiteral("Put the product selected in the catalogue on this row");
    const QString removeTip = QStringLiteral("Delete or move this row");
    const int buttonsLeft = FrontLeft + SideWidth + 6;
    for (int r = 0; r < Rows; ++r) {
        Row& row = m_rows[static_cast<std::size_t>(r)];
        row.Linhas = rowBox(m_picture1, u"Linhas", r, QRect(TextLeft, rowTop(r), TextWidth, RowBoxHeight));
        row.Linhas->setProperty("tag", QString());
        row.Price = rowBox(m_picture1, u"Price", r, QRect(PriceLeft, rowTop(r), PriceWidth, RowBoxHeight));
        row.Price->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        row.Command12 = rowButton(this, u"Command12", r, QStringLiteral("\u25C0"), bindTip, buttonsLeft);
        row.Remove = rowButton(
            this, u"Remove", r, QStringLiteral("\u21C5"), removeTip, buttonsLeft + ButtonSize + 2);
    }
}

void PageView::buildBack()
{
    m_picture2 = new PictureBox(PictureBox::Fit::Fill, this);
    m_picture2->setObjectName(QStringLiteral("Picture2"));
    m_picture2->setGeometry(BackLeft, SideTop, SideWidth, SideHeight);

    for (int r = 0; r < Rows; ++r) {
        Row& row = m_rows[static_cast<std::size_t>(r)];
        row.Imagem = new PictureBox(PictureBox::Fit::KeepAspect, m_picture2);
        row.Imagem->setObjectName(arrayName(u"Imagem", r));
        row.Imagem->setGeometry(TextLeft, rowTop(r), BackPictureWidth, RowPitch);
        row.Imagem->setProperty("tag", QString());
        row.LinhasVerso = rowBox(
            m_picture2, u"LinhasVerso", r, QRect(BackTextLeft, rowTop(r), BackTextWidth, RowBoxHeight));
    }
}

// The two sides lie on the window like sheets on a desk.
void PageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (const PictureBox* side : { m_picture1, m_picture2 }) {
        const QRect sheet = side->geometry();
        painter.fillRect(sheet.translated(3, 3), QColor(0, 0, 0, 40));
        painter.setPen(QColor(120, 120, 120));
        painter.drawRect(sheet.adjusted(-1, -1, 0, 0));
    }
}

QSize PageView::sizeHint() const
{
    return QSize(BackLeft + SideWidth + Margin, SideTop + SideHeight + Margin);
}

int PageView::currentPage() const
{
    return NumberText::int32Value(m_page->text());
}

void PageView::setCurrentPage(int page)
{
    m_page->setText(QString::number(page));
}

void PageView::Update_Page()
{
    const int page = currentPage();
    QImage loaded;
    const PictureLoader load = [&](const QString& path) {
        loaded = m_pictureFiles.load(path);
        return !loaded.isNull();
    };

    for (const auto& [side, box] :
        { std::pair { Side::Front, m_picture1 }, std::pair { Side::Back, m_picture2 } }) {
        loaded = QImage();
        const SideView view = describeSide(m_document, page, side, load);
        storeSide(m_document, page, side, view);
        box->setColor(colorOfNumber(view.color));
        box->setPicture(loaded);
    }

    if (const auto letter = magnetLetter(page, m_document.PagesVersion, LastUsedPage(m_document))) {
        m_magnet->setText(*letter);
    }

    const PluNumberIndex catalogue(m_document);
    for (int r = 0; r < Rows; ++r) {
        loaded = QImage();
        const RowView view = describeRow(m_document, catalogue, page, r, load);
        storeRow(m_document, page, r, view);
        Row& row = m_rows[static_cast<std::size_t>(r)];
        showRow(row, view);
        row.Imagem->setPicture(loaded);
    }
}

void PageView::showRow(Row& row, const RowView& view)
{
    const QString& family = m_document.PrintSettings.FontName;

    // The tag goes first: whoever reacts to the text changing finds the row's product already there.
    row.Linhas->setProperty("tag", view.tag);
    row.Linhas->setText(view.text);
    row.Price->setText(view.price);
    // Kinds the view does not know keep the size and colours the row had before.
    const int frontPointSize = view.front ? view.front->pointSize : 0;
    setRowFont(row.Linhas, family, frontPointSize);
    setRowFont(row.Price, family, frontPointSize);
    if (view.front) {
        setColors(row.Linhas, view.front->backColor, view.front->foreColor);
        setColors(row.Price, view.front->backColor, view.front->foreColor);
    }

    row.LinhasVerso->setText(view.backText);
    setColors(row.LinhasVerso, view.backBackColor, view.backForeColor);
    setRowFont(row.LinhasVerso, family, BackRowPointSize);

    const int pictureRows = std::max(view.pictureRows, 1);
    row.Imagem->resize(BackPictureWidth, pictureRows * RowPitch);
    if (view.pictureRows > 0) {
        row.Imagem->setProperty("tag", view.pictureTag);
    }
    row.Imagem->setVisible(view.pictureBoxVisible);
}
