#include "GroupTitleDialog.h"

#include "GroupTitles.h"
#include "LanguageArea.h"
#include "designer/PageRendering.h"
#include "document/ColorNumbers.h"
#include "document/MenuDocument.h"
#include "document/PicturePaths.h"
#include "ui/ColorButton.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace GroupTitles;

GroupTitleDialog::GroupTitleDialog(MenuDocument& document, int page, int row, const QString& title,
    Translator& translator, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , GuardedHandlers(prompts)
    , m_document(document)
    , m_slot(lineSlot(page, row))
{
    setObjectName(QStringLiteral("GroupTitle"));
    setWindowTitle(QStringLiteral("Group Title"));
    setModal(true);
    m_languages = new LanguageArea(document, prompts, translator, QStringLiteral("Command8"), this);
    buildControls();
    guarded([&] { load(title); });
}

void GroupTitleDialog::buildControls()
{
    m_titlePreview = named(new QLabel(this), QStringLiteral("Label1"));
    m_titlePreview->setTextFormat(Qt::PlainText);
    m_titlePreview->setAutoFillBackground(true);
    m_titlePreview->setMinimumHeight(32);
    m_titlePreview->setMargin(6);
    m_visibleOnLeft = new QCheckBox(QStringLiteral("Visible on left page also."), this);
    m_visibleOnLeft->setObjectName(QStringLiteral("VisibleOnLeft"));
    connect(m_languages, &LanguageArea::textChanged, this, &GroupTitleDialog::Text3_Change);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_titlePreview);
    layout->addLayout(buildColorRows());
    layout->addWidget(m_visibleOnLeft);
    layout->addWidget(m_languages);
    layout->addLayout(buildCommandRow());
}

QLayout* GroupTitleDialog::buildColorRows()
{
    m_textColor = named(new ColorButton(QString(), m_prompts, this), QStringLiteral("Command2"));
    m_backColor = named(new ColorButton(QString(), m_prompts, this), QStringLiteral("Command1"));
    m_picturePath = named(new QLineEdit(this), QStringLiteral("Text1"));
    // The picture is chosen with Browse, which also stores it.
    m_picturePath->setReadOnly(true);
    auto* browse = commandButton(this, QStringLiteral("Command5"), QStringLiteral("Browse"));
    connect(m_backColor, &QPushButton::clicked, this, &GroupTitleDialog::Command1_Click);
    connect(m_textColor, &QPushButton::clicked, this, &GroupTitleDialog::Command2_Click);
    connect(browse, &QPushButton::clicked, this, &GroupTitleDialog::Command5_Click);

    auto* grid = new QGridLayout;
    grid->addWidget(
        buddyLabel(this, QStringLiteral("Label2"), QStringLiteral("Text Color"), m_textColor), 0, 0);
    grid->addWidget(m_textColor, 0, 1, Qt::AlignLeft);
    grid->addWidget(
        buddyLabel(this, QStringLiteral("Label3"), QStringLiteral("Back Color"), m_backColor), 1, 0);
    grid->addWidget(m_backColor, 1, 1, Qt::AlignLeft);
    grid->addWidget(
        buddyLabel(this, QStringLiteral("Label4"), QStringLiteral("Background picture"), m_picturePath), 2,
        0);
    grid->addWidget(m_picturePath, 2, 1);
    grid->addWidget(browse, 2, 2);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* GroupTitleDialog::buildCommandRow()
{
    auto* create = commandButton(this, QStringLiteral("Command3"), QStringLiteral("Create group title"));
    auto* remove = commandButton(this, QStringLiteral("Command7"), QStringLiteral("Remove group title"));
    auto* close = commandButton(this, QStringLiteral("Command6"), QStringLiteral("Close Window"));
    connect(create, &QPushButton::clicked, this, &GroupTitleDialog::Command3_Click);
    connect(remove, &QPushButton::clicked, this, &GroupTitleDialog::Command7_Click);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* row = new QHBoxLayout;
    row->addWidget(create);
    row->addWidget(remove);
    row->addStretch();
    row->addWidget(close);
    return row;
}

void GroupTitleDialog::load(const QString& title)
{
    m_titlePreview->setText(title);
    m_visibleOnLeft->setChecked(hasGroupColors(m_document, m_slot));
    fillDefaultGroupColors(m_document, m_slot);
    const LineLayout& line = m_document.LineLayouts[m_slot];
    m_backColor->setColorNumber(PageRendering::colorNumber(line.backBackColor));
    m_textColor->setColorNumber(PageRendering::colorNumber(line.backForeColor));
    showColors();
    m_picturePath->setText(line.picturePath);

    LanguageArea::Texts texts;
    for (int row = 0; row < LanguageArea::Rows; ++row) {
        texts[static_cast<std::size_t>(row)] = m_document.LanguageTable.at(textKey(m_slot), row + 1);
    }
    m_languages->load(texts);
}

void GroupTitleDialog::showColors()
{
    QPalette colors = m_titlePreview->palette();
    colors.setColor(QPalette::Window, colorOfNumber(m_backColor->colorNumber()));
    colors.setColor(QPalette::WindowText, colorOfNumber(m_textColor->colorNumber()));
    m_titlePreview->setPalette(colors);
}

void GroupTitleDialog::Command1_Click()
{
    pickColor(m_backColor, &LineLayout::backBackColor);
}

void GroupTitleDialog::Command2_Click()
{
    pickColor(m_textColor, &LineLayout::backForeColor);
}

// The title's back row takes a group colour only while the box is ticked.
void GroupTitleDialog::pickColor(ColorButton* button, QString LineLayout::*groupColor)
{
    guarded([&] {
        if (!button->askColor()) {
            return;
        }
        showColors();
        if (m_visibleOnLeft->isChecked()) {
            m_document.LineLayouts[m_slot].*groupColor = QString::number(button->colorNumber());
        }
    });
}

void GroupTitleDialog::Command5_Click()
{
    guarded([this] {
        const QString path = m_prompts.askOpenFile(QStringLiteral("*.JPG"));
        if (path.isEmpty()) {
            return;
        }
        m_picturePath->setText(PicturePaths::relativePicturePath(path, m_document.ProjectFolder));
        m_document.LineLayouts[m_slot].picturePath = m_picturePath->text();
    });
}

// The preview shows the title as it is typed, so that creating the group keeps the last text.
void GroupTitleDialog::Text3_Change(int row, const QString& text)
{
    guarded([&] {
        storeText(m_document, m_slot, row, text);
        if (row == 0) {
            m_titlePreview->setText(text);
        }
    });
}

void GroupTitleDialog::Command3_Click()
{
    const bool done = guarded([this] {
        createGroup(m_document, m_slot,
            { m_titlePreview->text(), m_backColor->colorNumber(), m_textColor->colorNumber(),
                m_picturePath->text(), m_visibleOnLeft->isChecked() });
    });
    if (done) {
        accept();
    }
}

void GroupTitleDialog::Command7_Click()
{
    const bool done = guarded([this] { removeGroup(m_document, m_slot, m_titlePreview->text()); });
    if (done) {
        accept();
    }
}
