#include "EditLineDialog.h"

#include "LanguageArea.h"
#include "catalogue/CataloguePanel.h"
#include "designer/PageRendering.h"
#include "document/ColorNumbers.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "ui/ColorButton.h"
#include "ui/EnterKey.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace LineEditing;

namespace {

QLabel* previewLabel(QWidget* parent, const QString& name)
{
    auto* label = named(new QLabel(parent), name);
    label->setMinimumHeight(28);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QGroupBox* previewFrame(QWidget* parent, const QString& name, const QString& caption, QLabel* preview)
{
    auto* frame = named(new QGroupBox(caption, parent), name);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(preview);
    return frame;
}

} // namespace

EditLineDialog::EditLineDialog(MenuDocument& document, const Opening& opening, CataloguePanel& catalogue,
    Translator& translator, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , GuardedHandlers(prompts)
    , m_document(document)
    , m_opening(opening)
    , m_catalogue(catalogue)
{
    setObjectName(QStringLiteral("EditLine"));
    setWindowTitle(QStringLiteral("Edit Line"));
    setModal(true);
    m_languages = new LanguageArea(document, prompts, translator, QStringLiteral("Command5"), this);
    buildControls();
    guarded([this] { load(); });
    closeOnEnterEverywhere();
}

void EditLineDialog::buildControls()
{
    auto* close = named(new QPushButton(QStringLiteral("Close Window"), this), QStringLiteral("Command3"));
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &EditLineDialog::Command3_Click);
    connect(m_languages, &LanguageArea::textChanged, this, &EditLineDialog::Text3_Change);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(buildKindArea());
    layout->addWidget(buildColorArea());
    layout->addWidget(m_languages);
    auto* closeRow = new QHBoxLayout;
    closeRow->addStretch();
    closeRow->addWidget(close);
    layout->addLayout(closeRow);
}

QWidget* EditLineDialog::buildKindArea()
{
    auto* area = new QWidget(this);
    m_productKind = named(new QRadioButton(QStringLiteral("PLU Code"), area), QStringLiteral("Option1"));
    m_titleKind = named(new QRadioButton(QStringLiteral("Title"), area), QStringLiteral("Option2"));
    m_noteKind = named(new QRadioButton(QStringLiteral("Note"), area), QStringLiteral("Option3"));
    for (QRadioButton* option : { m_productKind, m_titleKind, m_noteKind }) {
        connect(option, &QRadioButton::clicked, this, &EditLineDialog::Option_Click);
    }

    m_productFrame = named(new QGroupBox(QStringLiteral("PLU Code"), area), QStringLiteral("Frame1"));
    m_pluCode = named(new QLineEdit(m_productFrame), QStringLiteral("Text1"));
    connect(m_pluCode, &QLineEdit::textChanged, this, &EditLineDialog::showLanguageLock);
    m_price = named(new QLineEdit(m_productFrame), QStringLiteral("Text2"));
    auto* codeLayout = new QFormLayout(m_productFrame);
    codeLayout->addRow(QStringLiteral("&Code"), m_pluCode);
    codeLayout->addRow(QStringLiteral("&Price"), m_price);
    m_titlePreview = previewLabel(area, QStringLiteral("Label4"));
    m_notePreview = previewLabel(area, QStringLiteral("Label5"));
    m_titleFrame = previewFrame(area, QStringLiteral("Frame2"), QStringLiteral("Title"), m_titlePreview);
    m_noteFrame = previewFrame(area, QStringLiteral("Frame3"), QStringLiteral("Note"), m_notePreview);
    // One frame shows at a time, in the same place.
    m_kindFrames = new QStackedWidget(area);
    for (QGroupBox* frame : { m_productFrame, m_titleFrame, m_noteFrame }) {
        m_kindFrames->addWidget(frame);
    }

    auto* options = new QVBoxLayout;
    options->addWidget(m_productKind);
    options->addWidget(m_titleKind);
    options->addWidget(m_noteKind);
    options->addStretch();
    auto* layout = new QHBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(options);
    layout->addWidget(m_kindFrames, 1);
    return area;
}

QWidget* EditLineDialog::buildColorArea()
{
    auto* area = new QWidget(this);
    m_backColor
        = named(new ColorButton(QStringLiteral("Back Color"), m_prompts, area), QStringLiteral("Command1"));
    m_textColor
        = named(new ColorButton(QStringLiteral("Text Color"), m_prompts, area), QStringLiteral("Command2"));
    m_colorPreview = previewLabel(area, QStringLiteral("Label1"));
    m_colorPreview->setAutoFillBackground(true);
    m_colorPreview->setMargin(4);
    connect(m_backColor, &QPushButton::clicked, this, &EditLineDialog::Command1_Click);
    connect(m_textColor, &QPushButton::clicked, this, &EditLineDialog::Command2_Click);

    auto* layout = new QHBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_backColor);
    layout->addWidget(m_textColor);
    layout->addWidget(m_colorPreview, 1);
    return area;
}

void EditLineDialog::load()
{
    m_start = startOf(m_document, m_opening);
    m_pluCode->setText(m_start.code);
    m_price->setText(m_start.price);
    QRadioButton* options[] = { m_productKind, m_titleKind, m_noteKind };
    options[m_start.kind - 1]->setChecked(true);
    // A colour belongs to a line: an empty row gets none.
    m_backColor->setEnabled(m_start.holdsLine);
    m_textColor->setEnabled(m_start.holdsLine);

    LanguageArea::Texts texts;
    texts[0] = m_start.mainText;
    const int key = textKey(m_start.kind, m_start.slot, m_start.code);
    for (int row = 1; key != TextKey::LanguageNames && row < LanguageArea::Rows; ++row) {
        texts[static_cast<std::size_t>(row)] = m_document.LanguageTable.at(key, row + 1);
    }
    m_languages->load(texts);
    Option_Click();
}

// A row without a product has the key of the menu's language names, which only their own boxes
// change: its texts wait for a code, a title or a note.
bool EditLineDialog::hasTextsOfItsOwn() const
{
    return textKey(chosenKind(), m_start.slot, m_pluCode->text()) != TextKey::LanguageNames;
}

void EditLineDialog::showLanguageLock()
{
    m_languages->setOtherLanguagesLocked(
        !hasTextsOfItsOwn(), QStringLiteral("Choose a PLU code, title or note first"));
}

std::int32_t EditLineDialog::chosenKind() const
{
    if (m_titleKind->isChecked()) {
        return TitleLine;
    }
    return m_noteKind->isChecked() ? NoteLine : ProductLine;
}

QString EditLineDialog::previewText() const
{
    switch (chosenKind()) {
    case TitleLine:
        return m_titlePreview->text();
    case NoteLine:
        return m_notePreview->text();
    default:
        return m_colorPreview->text();
    }
}

void EditLineDialog::Option_Click()
{
    QGroupBox* frames[] = { m_productFrame, m_titleFrame, m_noteFrame };
    m_kindFrames->setCurrentWidget(frames[chosenKind() - 1]);
    showLanguageLock();
    showPreviews();
    showColors();
}

// The previews show the first language's text, which is the line's own. The title and note previews
// are what a line becomes on closing, so they stay empty on a row without a line.
void EditLineDialog::showPreviews()
{
    const QString text = m_languages->text(0);
    m_colorPreview->setText(text);
    if (m_start.holdsLine) {
        m_titlePreview->setText(text);
        m_notePreview->setText(text);
    }
}

// A line without colours of its own is shown in the defaults of its kind, as the page shows it.
void EditLineDialog::showColors()
{
    using PageRendering::GetColor;
    const LineLayout& line = m_document.LineLayouts[m_start.slot];
    const PrintSettings& defaults = m_document.PrintSettings;
    const int index = defaultColorIndex(chosenKind());
    m_backColor->setColorNumber(
        PageRendering::colorNumber(GetColor(line.backColor, defaults.ColorBack[index])));
    m_textColor->setColorNumber(
        PageRendering::colorNumber(GetColor(line.foreColor, defaults.ColorFore[index])));
    QPalette colors = m_colorPreview->palette();
    colors.setColor(QPalette::Window, colorOfNumber(m_backColor->colorNumber()));
    colors.setColor(QPalette::WindowText, colorOfNumber(m_textColor->colorNumber()));
    m_colorPreview->setPalette(colors);
}

void EditLineDialog::Command1_Click()
{
    pickColor(m_backColor, &LineLayout::backColor);
}

void EditLineDialog::Command2_Click()
{
    pickColor(m_textColor, &LineLayout::foreColor);
}

void EditLineDialog::pickColor(ColorButton* button, QString LineLayout::*lineColor)
{
    guarded([&] {
        if (button->askColor()) {
            m_document.LineLayouts[m_start.slot].*lineColor = QString::number(button->colorNumber());
            showColors();
        }
    });
}

void EditLineDialog::Text3_Change(int row, const QString& text)
{
    guarded([&] {
        const std::int32_t kind = chosenKind();
        if (hasTextsOfItsOwn()) {
            storeText(m_document, textKey(kind, m_start.slot, m_pluCode->text()), row, text);
        }
        if (row != 0) {
            return;
        }
        showPreviews();
        // The PLU list shows the first language only.
        if (kind == ProductLine) {
            m_catalogue.renameEntry(NumberText::int32Value(m_pluCode->text()), text);
        }
    });
}

void EditLineDialog::Command3_Click()
{
    close();
}

// Every way out writes the line back, as closing the window is the editor's only exit.
void EditLineDialog::done(int result)
{
    guarded([this] {
        writeBack(m_document,
            { m_start.slot, m_start.holdsLine, chosenKind(), m_pluCode->text(), m_price->text(),
                previewText(), m_opening.tag, m_opening.selectedEntryText });
    });
    QDialog::done(result);
}

void EditLineDialog::closeOnEnterEverywhere()
{
    installEventFilter(this);
    for (QWidget* child : findChildren<QWidget*>()) {
        child->installEventFilter(this);
    }
}

bool EditLineDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (isEnterPress(event)) {
        close();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
