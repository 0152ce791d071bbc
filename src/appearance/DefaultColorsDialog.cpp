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
    m_command3[static_cast<std::size_t>(kind)] = back;
    m_command4[static_cast<std::size_t>(kind)] = fore;
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
    m_command5 = named(new ColorButton(QString(), m_prompts, this), QStringLiteral("Command5"));
    m_command5->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); // a swatch, like the kinds' buttons
    m_combo1 = named(new QComboBox(this), QStringLiteral("Combo1"));
    // A font the printer does not list can still be typed in.
    m_combo1->setEditable(true);
    m_combo1->setInsertPolicy(QComboBox::NoInsert);
    m_text3 = named(new QLineEdit(this), QStringLiteral("Text3"));
    m_label1 = named(new QLabel(QStringLiteral("Font test. FONT TEST"), this), QStringLiteral("Label1"));
    m_label1->setMinimumHeight(32);

    auto* form = new QFormLayout;
    form->addRow(
        buddyLabel(this, QStringLiteral("Label6"), QStringLiteral("&BackColor"), m_command5), m_command5);
    form->addRow(buddyLabel(this, QStringLiteral("Label4"), QStringLiteral("&Font"), m_combo1), m_combo1);
    form->addRow(buddyLabel(this, QStringLiteral("Label3"), QStringLiteral("&Currency"), m_text3), m_text3);
    form->addRow(m_label1);

    connect(m_command5, &QPushButton::clicked, this, &DefaultColorsDialog::Command5_Click);
    connect(m_combo1, &QComboBox::currentTextChanged, this, &DefaultColorsDialog::Combo1_Click);
    connect(m_text3, &QLineEdit::textChanged, this, &DefaultColorsDialog::Text3_Change);
    return form;
}

// Showing the stored values is not an edit: the font and currency handlers stay quiet meanwhile.
void DefaultColorsDialog::load()
{
    const PrintSettings& print = m_document.PrintSettings;
    {
        const QSignalBlocker blockCombo(m_combo1);
        const QSignalBlocker blockText(m_text3);
        m_combo1->addItems(QFontDatabase::families());
        m_text3->setText(print.CurrencySymbol);
        m_combo1->setCurrentText(print.FontName);
    }
    m_label1->setFont(QFont(print.FontName));
    for (int kind : { 1, 2, 0 }) {
        const auto i = static_cast<std::size_t>(kind);
        m_command3[i]->setColorNumber(PageRendering::colorNumber(print.ColorBack[kind]));
        m_command4[i]->setColorNumber(PageRendering::colorNumber(print.ColorFore[kind]));
    }
    m_command5->setColorNumber(PageRendering::colorNumber(print.DefaultPageColor));
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
    pickColor(m_command3[static_cast<std::size_t>(kind)], m_document.PrintSettings.ColorBack[kind]);
}

void DefaultColorsDialog::Command4_Click(int kind)
{
    pickColor(m_command4[static_cast<std::size_t>(kind)], m_document.PrintSettings.ColorFore[kind]);
}

void DefaultColorsDialog::Command5_Click()
{
    pickColor(m_command5, m_document.PrintSettings.DefaultPageColor);
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
        print.CurrencySymbol = m_text3->text();
        print.FontName = m_combo1->currentText();
        m_label1->setFont(QFont(print.FontName));
    });
}
