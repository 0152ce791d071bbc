#include "PageView.h"

#include "PageOperations.h"
#include "PageRendering.h"
#include "PictureBox.h"
#include "RowDialog.h"
#include "document/ColorNumbers.h"
#include "document/MenuDocument.h"
#include "document/PluNumberIndex.h"
#include "ui/ChangeNames.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"

#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
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
constexpr int HeaderTop = 4; // paging, then the page operations with the side headings
constexpr int HeaderRowHeight = 28;
constexpr int HeaderRowGap = 4;
constexpr int SecondRowTop = HeaderTop + HeaderRowHeight + HeaderRowGap;
constexpr int HeadingTop = SecondRowTop + 4;
constexpr int SideTop = SecondRowTop + HeaderRowHeight + 6;
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

// The room the front rows get while designing. The amounts are in twips, 15 to a pixel; the row text
// and its price together take all the room the side gains.
constexpr int pixels(int twips)
{
    return (2 * twips + 15) / 30;
}
constexpr int SideRoom = pixels(3000);
constexpr int RowTextRoom = pixels(2300);
constexpr int PriceRoom = pixels(700);
static_assert(RowTextRoom + PriceRoom == SideRoom);

const QString& designCaption()
{
    static const QString caption = QStringLiteral("Design the Menu");
    return caption;
}

const QString& configureCaption()
{
    static const QString caption = QStringLiteral("Configure the Modifiers");
    return caption;
}

int rowTop(int row)
{
    return SideHeaderHeight + row * RowPitch;
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
    label->setAlignment(Qt::AlignCenter);
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

PageView::PageView(MenuDocument& document, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent)
    , GuardedHandlers(prompts)
    , m_document(document)
{
    setObjectName(QStringLiteral("PageView"));

    m_pageCaption = new QLabel(QStringLiteral("Page"), this);
    m_pageCaption->setObjectName(QStringLiteral("Page_text"));
    m_pageCaption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_pageNumber = new QLabel(QStringLiteral("1"), this);
    m_pageNumber->setObjectName(QStringLiteral("Page"));
    QFont pageFont = m_pageNumber->font();
    pageFont.setBold(true);
    pageFont.setPointSize(pageFont.pointSize() + 3);
    m_pageNumber->setFont(pageFont);

    m_frontHeading = heading(this, QStringLiteral("FrontHeading"), QStringLiteral("Front"), FrontLeft);
    m_backHeading = heading(this, QStringLiteral("BackHeading"), QStringLiteral("Back"), BackLeft);

    buildFront();
    buildBack();
    buildCommands();
    setMinimumSize(sizeHint());
}

void PageView::buildFront()
{
    m_frontSide = new PictureBox(PictureBox::Fit::Fill, this);
    m_frontSide->setObjectName(QStringLiteral("Picture1"));
    m_frontSide->setGeometry(FrontLeft, SideTop, SideWidth, SideHeight);

    m_magnetLetter = new QLabel(m_frontSide);
    m_magnetLetter->setObjectName(QStringLiteral("Magnet"));
    m_magnetLetter->setAlignment(Qt::AlignCenter);
    m_magnetLetter->setFrameShape(QFrame::Box);
    QFont magnetFont = m_magnetLetter->font();
    magnetFont.setPointSize(22);
    magnetFont.setBold(true);
    m_magnetLetter->setFont(magnetFont);
    m_magnetLetter->setGeometry(
        SideWidth - 10 - MagnetSize, (SideHeaderHeight - MagnetSize) / 2, MagnetSize, MagnetSize);

    const QString bindTip = QStringLiteral("Put the product selected in the catalogue on this row");
    const QString removeTip = QStringLiteral("Delete or move this row");
    const int buttonsLeft = FrontLeft + SideWidth + 6;
    for (int r = 0; r < Rows; ++r) {
        Row& row = rowAt(r);
        row.frontText
            = rowBox(m_frontSide, u"Linhas", r, QRect(TextLeft, rowTop(r), TextWidth, RowBoxHeight));
        row.frontText->setProperty("tag", QString());
        row.price = rowBox(m_frontSide, u"Price", r, QRect(PriceLeft, rowTop(r), PriceWidth, RowBoxHeight));
        row.price->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        row.bindProduct = rowButton(this, u"Command12", r, QStringLiteral("\u25C0"), bindTip, buttonsLeft);
        row.moveOrDelete = rowButton(
            this, u"Remove", r, QStringLiteral("\u21C5"), removeTip, buttonsLeft + ButtonSize + 2);
    }
}

void PageView::buildBack()
{
    m_backSide = new PictureBox(PictureBox::Fit::Fill, this);
    m_backSide->setObjectName(QStringLiteral("Picture2"));
    m_backSide->setGeometry(BackLeft, SideTop, SideWidth, SideHeight);

    for (int r = 0; r < Rows; ++r) {
        Row& row = rowAt(r);
        row.groupPicture = new PictureBox(PictureBox::Fit::KeepAspect, m_backSide);
        row.groupPicture->setObjectName(arrayName(u"Imagem", r));
        row.groupPicture->setGeometry(TextLeft, rowTop(r), BackPictureWidth, RowPitch);
        row.groupPicture->setProperty("tag", QString());
        row.backText = rowBox(
            m_backSide, u"LinhasVerso", r, QRect(BackTextLeft, rowTop(r), BackTextWidth, RowBoxHeight));
    }
}

// The two sides lie on the window like sheets on a desk.
void PageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (const PictureBox* side : { m_frontSide, m_backSide }) {
        const QRect sheet = side->geometry();
        painter.fillRect(sheet.translated(3, 3), QColor(0, 0, 0, 40));
        painter.setPen(QColor(120, 120, 120));
        painter.drawRect(sheet.adjusted(-1, -1, 0, 0));
    }
}

QSize PageView::sizeHint() const
{
    // The back side moves right while designing; the view grows with it.
    const QRect back = m_backSide->geometry();
    return QSize(back.right() + 1 + Margin, back.bottom() + 1 + Margin);
}

void PageView::setCurrentPage(int page)
{
    m_currentPage = page;
    m_pageNumber->setText(QString::number(page));
}

QString PageView::frontRowText(int row) const
{
    return rowAt(row).frontText->text();
}

QString PageView::frontRowTag(int row) const
{
    return rowAt(row).frontText->property("tag").toString();
}

void PageView::focusRow(int row)
{
    rowAt(row).frontText->setFocus();
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
        { std::pair { Side::Front, m_frontSide }, std::pair { Side::Back, m_backSide } }) {
        loaded = QImage();
        const SideView view = describeSide(m_document, page, side, load);
        storeSide(m_document, page, side, view);
        box->setColor(colorOfNumber(view.color));
        box->setPicture(loaded);
    }

    if (const auto letter = magnetLetter(page, m_document.PagesVersion, LastUsedPage(m_document))) {
        m_magnetLetter->setText(*letter);
    }

    const PluNumberIndex catalogue(m_document);
    for (int r = 0; r < Rows; ++r) {
        loaded = QImage();
        const RowView view = describeRow(m_document, catalogue, page, r, load);
        storeRow(m_document, page, r, view);
        Row& row = rowAt(r);
        showRow(row, view);
        row.groupPicture->setPicture(loaded);
    }
}

void PageView::showRow(Row& row, const RowView& view)
{
    const QString& family = m_document.PrintSettings.FontName;

    // The tag goes first: whoever reacts to the text changing finds the row's product already there.
    row.frontText->setProperty("tag", view.tag);
    row.frontText->setText(view.text);
    row.price->setText(view.price);
    // Kinds the view does not know keep the size and colours the row had before.
    const int frontPointSize = view.front ? view.front->pointSize : 0;
    setRowFont(row.frontText, family, frontPointSize);
    setRowFont(row.price, family, frontPointSize);
    if (view.front) {
        setColors(row.frontText, view.front->backColor, view.front->foreColor);
        setColors(row.price, view.front->backColor, view.front->foreColor);
    }

    row.backText->setText(view.backText);
    setColors(row.backText, view.backBackColor, view.backForeColor);
    setRowFont(row.backText, family, BackRowPointSize);

    const int pictureRows = std::max(view.pictureRows, 1);
    row.groupPicture->resize(BackPictureWidth, pictureRows * RowPitch);
    if (view.pictureRows > 0) {
        row.groupPicture->setProperty("tag", view.pictureTag);
    }
    row.groupPicture->setVisible(view.pictureBoxVisible);
}

// Two lines above the front: paging with the page number between Previous and Next, then Insert and
// Delete on either side of the front's heading. Next and Delete keep to the front's right edge when it
// widens. The mode switch stands above the back side and stays put, under the pointer, when clicked.
void PageView::buildCommands()
{
    const auto button = [this](const QString& name, const QString& caption, const QString& toolTip) {
        auto* pushButton = new QPushButton(caption, this);
        pushButton->setObjectName(name);
        pushButton->setToolTip(toolTip);
        pushButton->setAutoDefault(false);
        return pushButton;
    };
    m_previousPage = button(QStringLiteral("Command14"), QStringLiteral("Previous Page"),
        QStringLiteral("Page Up, or Ctrl+Page Up anywhere in the window"));
    m_previousPage->setIcon(style()->standardIcon(QStyle::SP_ArrowLeft));
    m_nextPage = button(QStringLiteral("Command15"), QStringLiteral("Next Page"),
        QStringLiteral("Page Down, or Ctrl+Page Down anywhere in the window"));
    m_nextPage->setIcon(style()->standardIcon(QStyle::SP_ArrowRight));
    m_nextPage->setLayoutDirection(Qt::RightToLeft); // the arrow after the caption
    m_insertPage = button(QStringLiteral("InsertPage"), QStringLiteral("Insert Page"),
        QStringLiteral("An empty page here: this page and the ones after it move one page on, and the "
                       "content of page 14 is lost"));
    m_deletePage = button(QStringLiteral("DeletePage"), QStringLiteral("Delete Page"),
        QStringLiteral("Takes this page out: the pages after it move one page forward"));
    m_workModeSwitch = button(QStringLiteral("Expand"), designCaption(),
        QStringLiteral("Switches between designing the menu with wide rows and configuring the modifiers"));

    const auto place = [](QPushButton* command, int left, int top) {
        command->setGeometry(left, top, command->sizeHint().width(), HeaderRowHeight);
    };
    const int frontRight = FrontLeft + SideWidth;
    place(m_previousPage, FrontLeft, HeaderTop);
    place(m_nextPage, frontRight - m_nextPage->sizeHint().width(), HeaderTop);
    place(m_insertPage, FrontLeft, SecondRowTop);
    place(m_deletePage, frontRight - m_deletePage->sizeHint().width(), SecondRowTop);
    // Wide enough for either caption, so that the button stays where it is when its caption changes.
    m_workModeSwitch->setText(configureCaption());
    const int expandWidth = m_workModeSwitch->sizeHint().width();
    m_workModeSwitch->setText(designCaption());
    m_workModeSwitch->setGeometry(
        BackLeft + SideWidth - expandWidth, HeaderTop, expandWidth, HeaderRowHeight);

    // "Page" and its number stand together in the middle of the front.
    const int textWidth = m_pageCaption->sizeHint().width();
    const int numberWidth = m_pageNumber->fontMetrics().horizontalAdvance(QStringLiteral("00")) + 4;
    const int pageLeft = FrontLeft + (SideWidth - textWidth - 4 - numberWidth) / 2;
    m_pageCaption->setGeometry(pageLeft, HeaderTop, textWidth, HeaderRowHeight);
    m_pageNumber->setGeometry(pageLeft + textWidth + 4, HeaderTop, numberWidth, HeaderRowHeight);

    connect(m_previousPage, &QPushButton::clicked, this, &PageView::Command14_Click);
    connect(m_nextPage, &QPushButton::clicked, this, &PageView::Command15_Click);
    connect(m_insertPage, &QPushButton::clicked, this, &PageView::InsertPage_Click);
    connect(m_deletePage, &QPushButton::clicked, this, &PageView::DeletePage_Click);
    connect(m_workModeSwitch, &QPushButton::clicked, this, &PageView::Expand_Click);
    connect(m_frontSide, &PictureBox::clicked, this, &PageView::Picture1_Click);
    connect(m_backSide, &PictureBox::clicked, this, &PageView::Picture2_Click);

    // Page Up and Page Down turn the pages while the page has the focus; the lists beside it keep
    // those keys for scrolling, so from there Ctrl is needed.
    const auto pageKey = [this](QPushButton* command, const QKeySequence& key, Qt::ShortcutContext context) {
        auto* shortcut = new QShortcut(key, this);
        shortcut->setContext(context);
        // Focus moves to the button first, as with a click, so that a row being typed in is left first.
        connect(shortcut, &QShortcut::activated, command, [command] {
            command->setFocus(Qt::ShortcutFocusReason);
            command->click();
        });
    };
    pageKey(m_previousPage, QKeySequence(Qt::Key_PageUp), Qt::WidgetWithChildrenShortcut);
    pageKey(m_nextPage, QKeySequence(Qt::Key_PageDown), Qt::WidgetWithChildrenShortcut);
    pageKey(m_previousPage, QKeySequence(Qt::CTRL | Qt::Key_PageUp), Qt::WindowShortcut);
    pageKey(m_nextPage, QKeySequence(Qt::CTRL | Qt::Key_PageDown), Qt::WindowShortcut);

    for (int r = 0; r < Rows; ++r) {
        const Row& row = rowAt(r);
        connect(row.moveOrDelete, &QToolButton::clicked, this, [this, r] { Remove_Click(r); });
        m_designMoves.push_back({ row.frontText, 0, RowTextRoom });
        m_designMoves.push_back({ row.price, RowTextRoom, PriceRoom });
        m_designMoves.push_back({ row.bindProduct, SideRoom, 0 });
        m_designMoves.push_back({ row.moveOrDelete, SideRoom, 0 });
    }
    // The gutter, the back side and its heading keep their distance from the wider front; the magnet
    // letter keeps to the front's corner.
    for (QWidget* follower : std::initializer_list<QWidget*> {
             m_magnetLetter, m_nextPage, m_deletePage, m_backSide, m_backHeading }) {
        m_designMoves.push_back({ follower, SideRoom, 0 });
    }
    m_designMoves.push_back({ m_frontSide, 0, SideRoom });
    m_designMoves.push_back({ m_frontHeading, 0, SideRoom });
    m_designMoves.push_back({ m_pageCaption, SideRoom / 2, 0 });
    m_designMoves.push_back({ m_pageNumber, SideRoom / 2, 0 });
}

void PageView::Command14_Click()
{
    guarded(sender(), [this] {
        const int page = currentPage();
        if (page > 1) {
            setCurrentPage(page - 1);
        }
        Update_Page();
    });
}

void PageView::Command15_Click()
{
    guarded(sender(), [this] {
        const int page = currentPage();
        if (page < Limits::PageCount) {
            setCurrentPage(page + 1);
        }
        Update_Page();
    });
}

void PageView::InsertPage_Click()
{
    guarded(sender(), [this] {
        PageOperations::InsertPage(m_document, currentPage());
        Update_Page();
    });
}

void PageView::DeletePage_Click()
{
    guarded(sender(), [this] {
        PageOperations::DeletePage(m_document, currentPage());
        Update_Page();
    });
}

PictureBox& PageView::sideArea(int side) const
{
    return side == 1 ? *m_frontSide : *m_backSide;
}

// The caption names the mode a click switches to. The amounts are fixed: a window resized in between
// is not measured again, so two clicks always give back the layout they started from.
void PageView::Expand_Click()
{
    guarded(sender(), [this] {
        m_designing = !m_designing;
        m_workModeSwitch->setText(m_designing ? configureCaption() : designCaption());
        emit workModeChanged(m_designing);
        applyDesignMoves(m_designing ? 1 : -1);
    });
}

void PageView::applyDesignMoves(int direction)
{
    for (const DesignMove& move : m_designMoves) {
        const QRect geometry = move.widget->geometry();
        move.widget->setGeometry(geometry.x() + direction * move.right, geometry.y(),
            geometry.width() + direction * move.wider, geometry.height());
    }
    setMinimumSize(sizeHint());
    resize(sizeHint());
    updateGeometry();
    update();
}

void PageView::Picture1_Click()
{
    guarded(sender(), [this] { emit backgroundDialogRequested(1); });
}

void PageView::Picture2_Click()
{
    guarded(sender(), [this] { emit backgroundDialogRequested(2); });
}

void PageView::Remove_Click(int row)
{
    guarded(sender(), [this, row] {
        m_selectedRow = row;
        RowDialog dialog(m_document, *this, m_prompts, this);
        dialog.exec();
    });
}
