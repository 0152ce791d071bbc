#pragma once

#include "ui/GuardedHandlers.h"

#include <QDialog>

class ColorButton;
class LanguageArea;
class MenuDocument;
struct LineLayout;
class QCheckBox;
class QLabel;
class QLineEdit;
class Translator;

// "Group Title": makes a row of the current page the head of a group, with its title in the five
// languages, its colours and a background picture, or removes the group again. Texts and the picture
// are stored as they are edited; the colours go to the title's back row at once only while "Visible on
// left page also." is ticked, which it is on opening when the row already had group colours.
// Creating or removing closes the dialog.
class GroupTitleDialog : public QDialog, private GuardedHandlers
{
    Q_OBJECT

public:
    GroupTitleDialog(MenuDocument& document, int page, int row, const QString& title, Translator& translator,
        UserPrompts& prompts, QWidget* parent = nullptr);

public slots:
    void Command1_Click(); // Back Color
    void Command2_Click(); // Text Color
    void Command5_Click(); // Browse
    void Text3_Change(int row, const QString& text);
    void Command3_Click(); // Create group title
    void Command7_Click(); // Remove group title

private:
    void buildControls();
    QLayout* buildColorRows();
    QLayout* buildCommandRow();
    void load(const QString& title);
    void showColors();
    void pickColor(ColorButton* button, QString LineLayout::*groupColor);

    MenuDocument& m_document;
    int m_slot;
    QLabel* m_titlePreview = nullptr;
    ColorButton* m_backColor = nullptr;
    ColorButton* m_textColor = nullptr;
    QLineEdit* m_picturePath = nullptr;
    QCheckBox* m_visibleOnLeft = nullptr;
    LanguageArea* m_languages = nullptr;
};
