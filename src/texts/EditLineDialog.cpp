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
    m_option1 = named(new QRadioButton(QStringLiteral("PLU Code"), area), QStringLiteral("Option1"));
    m_option2 = named(new QRadioButton(QStringLiteral("Title"), area), QStringLiteral("Option2"));
    m_option3 = named(new QRadioButton(QStringLiteral("Note"), area), QStringLiteral("Option3"));
    for (QRadioButton* option : { m_option1, m_option2, m_option3 }) {
        connect(option, &QRadioButton::clicked, this, &EditLineDialog::Option_Click);
    }

    m_frame1 = named(new QGroupBox(QStringLiteral("PLU Code"), area), QStringLiteral("Frame1"));
    m_text1 = named(new QLineEdit(m_frame1), QStringLiteral("Text1"));
    m_text2 = named(new QLineEdit(m_frame1), QStringLiteral("Text2"));
    auto* codeLayout = new QFormLayout(m_frame1);
    codeLayout->addRow(QStringLiteral("&Code"), m_text1);
    codeLayout->addRow(QStringLiteral("&Price"), m_text2);
    m_label4 = previewLabel(area, QStringLiteral("Label4"));
    m_label5 = previewLabel(area, QStringLiteral("Label5"));
    m_frame2 = previewFrame(area, QStringLiteral("Frame2"), QStringLiteral("Title"), m_label4);
    m_frame3 = previewFrame(area, QStringLiteral("Frame3"), QStringLiteral("Note"), m_label5);
    // One frame shows at a time, in the same place.
    m_frames = new QStackedWidget(area);
    for (QGroupBox* frame : { m_frame1, m_frame2, m_frame3 }) {
        m_frames->addWidget(frame);
    }

    auto* options = new QVBoxLayout;
    options->addWidget(m_option1);
    options->addWidget(m_option2);
    options->addWidget(m_option3);
    options->addStretch();
    auto* layout = new QHBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(options);
    layout->addWidget(m_frames, 1);
    return area;
}

QWidget* EditLineDialog::buildColorArea()
{
    auto* area = new QWidget(this);
    m_command1
        = named(new ColorButton(QStringLiteral("Back Color"), m_prompts, area), QStringLiteral("Command1"));
    m_command2
        = named(new ColorButton(QStringLiteral("Text Color"), m_prompts, area), QStringLiteral("Command2"));
    m_label1 = previewLabel(area, QStringLiteral("Label1"));
    m_label1->setAutoFillBackground(true);
    m_label1->setMargin(4);
    connect(m_command1, &QPushButton::clicked, this, &EditLineDialog::Command1_Click);
    connect(m_command2, &QPushButton::clicked, this, &EditLineDialog::Command2_Click);

    auto* layout = new QHBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_command1);
    layout->addWidget(m_command2);
    layout->addWidget(m_label1, 1);
    return area;
}

void EditLineDialog::load()
{
    m_start = startOf(m_document, m_opening);
    m_text1->setText(m_start.code);
    m_text2->setText(m_start.price);
    QRadioButton* options[] = { m_option1, m_option2, m_option3 };
    options[m_start.kind - 1]->setChecked(true);
    // A colour belongs to a line: an empty row gets none.
    m_command1->setEnabled(m_start.holdsLine);
    m_command2->setEnabled(m_start.holdsLine);

    LanguageArea::Texts texts;
    texts[0] = m_start.mainText;
    const int key = textKey(m_start.kind, m_start.slot, m_start.code);
    for (int row = 1; key != TextKey::LanguageNames && row < LanguageArea::Rows; ++row) {
        texts[static_cast<std::size_t>(row)] = m_document.LanguageTable.at(key, row + 1);
    }
    m_languages->load(texts);
    connect(m_text1, &QLineEdit::textChanged, this, &EditLineDialog::showLanguageLock);
    Option_Click();
}

// A row without a product has the key of the menu's language names, which only their own boxes
// change: its texts wait for a code, a title or a note.
bool EditLineDialog::hasTextsOfItsOwn() const
{
    return textKey(chosenKind(), m_start.slot, m_text1->text()) != TextKey::LanguageNames;
}

void EditLineDialog::showLanguageLock()
{
    m_languages->setOtherLanguagesLocked(
        !hasTextsOfItsOwn(), QStringLiteral("Choose a PLU code, title or note first"));
}

std::int32_t EditLineDialog::chosenKind() const
{
    if (m_option2->isChecked()) {
        return TitleLine;
    }
    return m_option3->isChecked() ? NoteLine : ProductLine;
}

QString EditLineDialog::previewText() const
{
    switch (chosenKind()) {
    case TitleLine:
        return m_label4->text();
    case NoteLine:
        return m_label5->text();
    default:
        return m_label1->text();
    }
}

void EditLineDialog::Option_Click()
{
    QGroupBox* frames[] = { m_frame1, m_frame2, m_frame3 };
    m_frames->setCurrentWidget(frames[chosenKind() - 1]);
    showLanguageLock();
    showPreviews();
    showColors();
}

// The previews show the first language's text, which is the line's own. The title and note previews
// are what a line becomes on closing, so they stay empty on a row without a line.
void EditLineDialog::showPreviews()
{
    const QString text = m_languages->text(0);
    m_label1->setText(text);
    if (m_start.holdsLine) {
        m_label4->setText(text);
        m_label5->setText(text);
    }
}

// A line without colours of its own is shown in the defaults of its kind, as the page shows it.
void EditLineDialog::showColors()
{
    using PageRendering::GetColor;
    const LineLayout& line = m_document.LineLayouts[m_start.slot];
    const PrintSettings& defaults = m_document.PrintSettings;
    const int index = defaultColorIndex(chosenKind());
    m_command1->setColorNumber(
        PageRendering::colorNumber(GetColor(line.backColor, defaults.ColorBack[index])));
    m_command2->setColorNumber(
        PageRendering::colorNumber(GetColor(line.foreColor, defaults.ColorFore[index])));
    QPalette colors = m_label1->palette();
    colors.setColor(QPalette::Window, colorOfNumber(m_command1->colorNumber()));
    colors.setColor(QPalette::WindowText, colorOfNumber(m_command2->colorNumber()));
    m_label1->setPalette(colors);
}

void EditLineDialog::Command1_Click()
{
    pickColor(m_command1, &LineLayout::backColor);
}

void EditLineDialog::Command2_Click()
{
    pickColor(m_command2, &LineLayout::foreColor);
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
            storeText(m_document, textKey(kind, m_start.slot, m_text1->text()), row, text);
        }
        if (row != 0) {
            return;
        }
        showPreviews();
        // The PLU list shows the first language only.
        if (kind == ProductLine) {
            m_catalogue.renameEntry(NumberText::int32Value(m_text1->text()), text);
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
            { m_start.slot, m_start.holdsLine, chosenKind(), m_text1->text(), m_text2->text(), previewText(),
                m_opening.tag, m_opening.selectedEntryText });
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
