#pragma once

#include "document/MenuDocument.h"
#include "ui/GuardedHandlers.h"

#include <QGroupBox>

#include <array>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class Translator;

// The five language rows both text editors share: each row's language name, its text and its "Auto"
// button, with "Edit language names" and "Translate All". The names belong to the whole menu and are
// stored here; what a text is stored under is the editor's, which hears of every change of a text,
// typed or translated, through textChanged.
class LanguageArea : public QGroupBox, private GuardedHandlers
{
    Q_OBJECT

public:
    static constexpr int Rows = Limits::LanguageCount;
    using Texts = std::array<QString, Rows>;

    LanguageArea(MenuDocument& document, UserPrompts& prompts, Translator& translator,
        const QString& translateAllName, QWidget* parent = nullptr);

    // Shows the menu's language names and the texts; changes count from then on.
    void load(const Texts& texts);

    // Locked, the texts of the languages after the first are empty and cannot be typed or translated,
    // and the hint says why; the line's own text and the language names stay as editable as ever.
    void setOtherLanguagesLocked(bool locked, const QString& hint);

    QString text(int row) const;
    QLineEdit* textBox(int row) const;

public slots:
    void Command4_Click(int row); // Auto
    void TranslateAll_Click();
    void Check1_Click();
    void Lingua_Change(int row);

signals:
    void textChanged(int row, const QString& text);

private:
    struct Row
    {
        QComboBox* Lingua = nullptr;
        QLineEdit* Text3 = nullptr;
        QPushButton* Command4 = nullptr;
    };

    void buildRow(int index);
    void connectRows();
    bool translateInto(int row, QStringList& told);
    void tellOnce(const QStringList& messages, QStringList& told);
    QString languageName(int row) const;

    MenuDocument& m_document;
    Translator& m_translator;
    std::array<Row, Rows> m_rows;
    QCheckBox* m_editLanguageNames = nullptr;
    QPushButton* m_translateAll = nullptr;
};
