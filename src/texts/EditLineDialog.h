#pragma once

#include "LineEditing.h"
#include "ui/GuardedHandlers.h"

#include <QDialog>

#include <cstdint>

class CataloguePanel;
class ColorButton;
class LanguageArea;
class MenuDocument;
struct LineLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QStackedWidget;
class Translator;

// "Edit Line": the kind of one line of the current page, its texts in the five languages, its colours
// and, for a product, its code and price. Texts and colours are stored as they are edited; the kind
// and the product binding when the dialog closes, however it is closed. Enter anywhere closes it.
class EditLineDialog : public QDialog, private GuardedHandlers
{
    Q_OBJECT

public:
    EditLineDialog(MenuDocument& document, const LineEditing::Opening& opening, CataloguePanel& catalogue,
        Translator& translator, UserPrompts& prompts, QWidget* parent = nullptr);

    void done(int result) override;

public slots:
    void Option_Click(); // Option1 to Option3
    void Command1_Click(); // background colour
    void Command2_Click(); // text colour
    void Text3_Change(int row, const QString& text);
    void Command3_Click(); // Close Window

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    QWidget* buildKindArea();
    QWidget* buildColorArea();
    void load();
    void showColors();
    void pickColor(ColorButton* button, QString LineLayout::*lineColor);
    bool hasTextsOfItsOwn() const;
    void showLanguageLock();
    void showPreviews();
    std::int32_t chosenKind() const;
    QString previewText() const;
    void closeOnEnterEverywhere();

    MenuDocument& m_document;
    LineEditing::Opening m_opening;
    LineEditing::Start m_start;
    CataloguePanel& m_catalogue;
    QRadioButton* m_productKind = nullptr;
    QRadioButton* m_titleKind = nullptr;
    QRadioButton* m_noteKind = nullptr;
    QStackedWidget* m_kindFrames = nullptr;
    QGroupBox* m_productFrame = nullptr;
    QGroupBox* m_titleFrame = nullptr;
    QGroupBox* m_noteFrame = nullptr;
    QLineEdit* m_pluCode = nullptr;
    QLineEdit* m_price = nullptr;
    QLabel* m_titlePreview = nullptr;
    QLabel* m_notePreview = nullptr;
    ColorButton* m_backColor = nullptr;
    ColorButton* m_textColor = nullptr;
    QLabel* m_colorPreview = nullptr;
    LanguageArea* m_languages = nullptr;
    bool m_writtenBack = false;
};
