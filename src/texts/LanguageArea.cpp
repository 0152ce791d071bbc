#include "LanguageArea.h"

#include "TranslationProgress.h"
#include "TranslationSource.h"
#include "Translator.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

#include <span>

namespace {

QStringList offeredLanguages()
{
    return { QStringLiteral("English"), QStringLiteral("Portugues"), QStringLiteral("Espanol"),
        QStringLiteral("Italiano"), QStringLiteral("Frances"), QStringLiteral("Deutsch") };
}

} // namespace

LanguageArea::LanguageArea(MenuDocument& document, UserPrompts& prompts, Translator& translator,
    const QString& translateAllName, QWidget* parent)
    : QGroupBox(QStringLiteral("Languages"), parent)
    , GuardedHandlers(prompts)
    , m_document(document)
    , m_translator(translator)
{
    setObjectName(QStringLiteral("Frame4"));
    auto* layout = new QGridLayout(this);
    for (int row = 0; row < Rows; ++row) {
        buildRow(row);
        const Row& controls = m_rows[static_cast<std::size_t>(row)];
        layout->addWidget(controls.Lingua, row, 0);
        layout->addWidget(controls.Text3, row, 1);
        layout->addWidget(controls.Command4, row, 2);
    }
    layout->setColumnStretch(1, 1);

    m_editLanguageNames = new QCheckBox(QStringLiteral("Edit language names"), this);
    m_editLanguageNames->setObjectName(QStringLiteral("Check1"));
    m_translateAll = new QPushButton(QStringLiteral("Translate All"), this);
    m_translateAll->setObjectName(translateAllName);
    m_translateAll->setAutoDefault(false);
    layout->addWidget(m_editLanguageNames, Rows, 0, 1, 2);
    layout->addWidget(m_translateAll, Rows, 2);

    connect(m_editLanguageNames, &QCheckBox::toggled, this, &LanguageArea::Check1_Click);
    connect(m_translateAll, &QPushButton::clicked, this, &LanguageArea::TranslateAll_Click);
    Check1_Click();
}

void LanguageArea::buildRow(int index)
{
    Row& row = m_rows[static_cast<std::size_t>(index)];
    row.Lingua = new QComboBox(this);
    row.Lingua->setObjectName(arrayName(u"Lingua", index));
    row.Lingua->setEditable(true);
    row.Lingua->setInsertPolicy(QComboBox::NoInsert);
    row.Lingua->addItems(offeredLanguages());
    row.Text3 = new QLineEdit(this);
    row.Text3->setObjectName(arrayName(u"Text3", index));
    row.Text3->setMinimumWidth(320);
    row.Command4 = new QPushButton(QStringLiteral("Auto"), this);
    row.Command4->setObjectName(arrayName(u"Command4", index));
    row.Command4->setAutoDefault(false);
    connect(row.Command4, &QPushButton::clicked, this, [this, index] { Command4_Click(index); });
}

void LanguageArea::load(const Texts& texts)
{
    for (int row = 0; row < Rows; ++row) {
        const Row& controls = m_rows[static_cast<std::size_t>(row)];
        controls.Lingua->setCurrentText(m_document.LanguageTable.at(TextKey::LanguageNames, row + 1));
        controls.Text3->setText(texts[static_cast<std::size_t>(row)]);
    }
    connectRows();
}

// Connected only once the rows are loaded: showing a stored text is not an edit.
void LanguageArea::connectRows()
{
    for (int index = 0; index < Rows; ++index) {
        const Row& row = m_rows[static_cast<std::size_t>(index)];
        connect(row.Lingua, &QComboBox::currentTextChanged, this, [this, index] { Lingua_Change(index); });
        connect(row.Text3, &QLineEdit::textChanged, this,
            [this, index](const QString& text) { emit textChanged(index, text); });
    }
}

void LanguageArea::setOtherLanguagesLocked(bool locked, const QString& hint)
{
    for (const Row& row : std::span(m_rows).subspan(1)) {
        if (locked) {
            row.Text3->clear();
        }
        row.Text3->setEnabled(!locked);
        row.Text3->setPlaceholderText(locked ? hint : QString());
        row.Command4->setEnabled(!locked);
    }
    m_translateAll->setEnabled(!locked);
}

QString LanguageArea::text(int row) const
{
    return textBox(row)->text();
}

QLineEdit* LanguageArea::textBox(int row) const
{
    return m_rows[static_cast<std::size_t>(row)].Text3;
}

QString LanguageArea::languageName(int row) const
{
    return m_rows[static_cast<std::size_t>(row)].Lingua->currentText();
}

void LanguageArea::Check1_Click()
{
    const bool unlocked = m_editLanguageNames->isChecked();
    for (const Row& row : m_rows) {
        row.Lingua->setEnabled(unlocked);
    }
}

void LanguageArea::Lingua_Change(int row)
{
    guarded([&] { m_document.LanguageTable.at(TextKey::LanguageNames, row + 1) = languageName(row); });
}

void LanguageArea::Command4_Click(int row)
{
    guarded([&] {
        QStringList told;
        translateInto(row, told);
    });
}

// Row 0 is the line's own text: it is only ever translated on its own button. A reason that stops
// one language usually stops them all, so each is told once.
void LanguageArea::TranslateAll_Click()
{
    guarded([&] {
        QStringList told;
        for (int row = 1; row < Rows; ++row) {
            if (!translateInto(row, told)) {
                return; // cancelled: the languages left keep their texts
            }
        }
    });
}

// The row counts as empty while the source is chosen, so that it can never be its own source. A
// translation replaces its text; when none came back, the text the user had stays. Returns false when
// the user cancelled.
bool LanguageArea::translateInto(int row, QStringList& told)
{
    QStringList names;
    QStringList texts;
    for (int index = 0; index < Rows; ++index) {
        names.append(languageName(index));
        texts.append(index == row ? QString() : text(index));
    }
    const int source = translationSource(names, texts);
    // With nothing to translate from, "Auto" has always left its row empty.
    if (source < 0) {
        textBox(row)->clear();
        return true;
    }
    QString sourceLanguage = names[source];
    TranslationProgress progress(window(), texts[source], names[row]);
    const Translation translation
        = m_translator.TranslateUnicode(texts[source], sourceLanguage, names[row], &progress);
    tellOnce(translation.messages, told);
    if (translation.text) {
        textBox(row)->setText(*translation.text);
    }
    return !translation.cancelled;
}

void LanguageArea::tellOnce(const QStringList& messages, QStringList& told)
{
    for (const QString& message : messages) {
        if (!told.contains(message)) {
            told.append(message);
            m_prompts.showMessage(message);
        }
    }
}
