#include "DefaultColorsDialog.h"

#include "designer/PageRendering.h"
#include "document/MenuDocument.h"
#include "ui/ColorButton.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

DefaultColorsDialog::DefaultColorsDialog(MenuDocument& document, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , GuardedHandlers(prompts)
    , m_document(document)
{
    setObjectName(QStringLiteral("DefaultColors"));
    setWindowTitle(QStringLiteral("Default Colors"));
    setModal(true);

    auto* frames = new QHBoxLayout;
    frames->addWidget(buildKindFrame(0, QStringLiteral("Frame1"), QStringLiteral("&Text Colors")));
    frames->addWidget(buildKindFrame(1, QStringLiteral("Frame2"), QStringLiteral("T&itle Colors")));
    frames->addWidget(buildKindFrame(2, QStringLiteral("Frame3"), QStringLiteral("&Note Colors")));

    auto* close = named(new QPushButton(QStringLiteral("Close &Window"), this), QStringLiteral("Command1"));
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* commands = new QHBoxLayout;
    commands->addStretch();
    commands->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(frames);
    layout->addLayout(buildPageAndFont());
    layout->addLayout(commands);
    guarded([this] { load(); });
}

// The first frame's labels are the named ones; the others repeat their captions.
QWidget* DefaultColorsDialog::buildKindFrame(int kind, const QString& name, const QString& caption)
{
    auto* frame = named(new QGroupBox(caption, this), name);
    auto* back
        = named(new ColorButton(QString(), m_prompts, frame), arrayName(QStringLiteral("Command3"), kind));
    auto* fore
        = named(new ColorButton(QString(), m_prompts, frame), arrayName(QStringLiteral("Command4"), kind));
    m_backColors[static_cast<std::size_t>(kind)] = back;
    m_textColors[static_cast<std::size_t>(kind)] = fore;
    auto* backLabel = new QLabel(QStringLiteral("TextBackColor"), frame);
    auto* foreLabel = new QLabel(QStringLiteral("TextColor"), frame);
    if (kind == 0) {
        backLabel->setObjectName(QStringLiteral("Label7"));
        foreLabel->setObjectName(QStringLiteral("Label5"));
    }
    auto* form = new QFormLayout(frame);
    form->addRow(backLabel, back);
    form->addRow(foreLabel, fore);
    connect(back, &QPushButton::clicked, this, [this, kind] { Command3_Click(kind); });
    connect(fore, &QPushButton::clicked, this, [this, kind] { Command4_Click(kind); });
    return frame;
}

QLayout* DefaultColorsDialog::buildPageAndFont()
{
    m_pageColor = named(new ColorButton(QString(), m_prompts, this), QStringLiteral("Command5"));
    m_pageColor->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); // a swatch, like the kinds' buttons
    m_fontName = named(new QComboBox(this), QStringLiteral("Combo1"));
    // A font the printer does not list can still be typed in.
    m_fontName->setEditable(true);
    m_fontName->setInsertPolicy(QComboBox::NoInsert);
    m_currencySymbol = named(new QLineEdit(this), QStringLiteral("Text3"));
    m_fontSample = named(new QLabel(QStringLiteral("Font test. FONT TEST"), this), QStringLiteral("Label1"));
    m_fontSample->setMinimumHeight(32);

    auto* form = new QFormLayout;
    form->addRow(
        buddyLabel(this, QStringLiteral("Label6"), QStringLiteral("&BackColor"), m_pageColor), m_pageColor);
    form->addRow(buddyLabel(this, QStringLiteral("Label4"), QStringLiteral("&Font"), m_fontName), m_fontName);
    form->addRow(buddyLabel(this, QStringLiteral("Label3"), QStringLiteral("&Currency"), m_currencySymbol),
        m_currencySymbol);
    form->addRow(m_fontSample);

    connect(m_pageColor, &QPushButton::clicked, this, &DefaultColorsDialog::Command5_Click);
    connect(m_fontName, &QComboBox::currentTextChanged, this, &DefaultColorsDialog::Combo1_Click);
    connect(m_currencySymbol, &QLineEdit::textChanged, this, &DefaultColorsDialog::Text3_Change);
    return form;
}

// Showing the stored values is not an edit: the font and currency handlers stay quiet meanwhile.
void DefaultColorsDialog::load()
{
    const PrintSettings& print = m_document.PrintSettings;
    {
        const QSignalBlocker blockFont(m_fontName);
        const QSignalBlocker blockCurrency(m_currencySymbol);
        m_fontName->addItems(QFontDatabase::families());
        m_currencySymbol->setText(print.CurrencySymbol);
        m_fontName->setCurrentText(print.FontName);
    }
    m_fontSample->setFont(QFont(print.FontName));
    for (int kind : { 1, 2, 0 }) {
        const auto i = static_cast<std::size_t>(kind);
        m_backColors[i]->setColorNumber(PageRendering::colorNumber(print.ColorBack[kind]));
        m_textColors[i]->setColorNumber(PageRendering::colorNumber(print.ColorFore[kind]));
    }
    m_pageColor->setColorNumber(PageRendering::colorNumber(print.DefaultPageColor));
}

void DefaultColorsDialog::pickColor(ColorButton* button, QString& stored)
{
    guarded([&] {
        if (button->askColor()) {
            stored = QString::number(button->colorNumber());
        }
    });
}

void DefaultColorsDialog::Command3_Click(int kind)
{
    pickColor(m_backColors[static_cast<std::size_t>(kind)], m_document.PrintSettings.ColorBack[kind]);
}

void DefaultColorsDialog::Command4_Click(int kind)
{
    pickColor(m_textColors[static_cast<std::size_t>(kind)], m_document.PrintSettings.ColorFore[kind]);
}

void DefaultColorsDialog::Command5_Click()
{
    pickColor(m_pageColor, m_document.PrintSettings.DefaultPageColor);
}

// The font and the currency are stored together, as the two boxes show them.
void DefaultColorsDialog::Combo1_Click()
{
    Text3_Change();
}

void DefaultColorsDialog::Text3_Change()
{
    guarded([this] {
        PrintSettings& print = m_document.PrintSettings;
        print.CurrencySymbol = m_currencySymbol->text();
        print.FontName = m_fontName->currentText();
        m_fontSample->setFont(QFont(print.FontName));
    });
}
