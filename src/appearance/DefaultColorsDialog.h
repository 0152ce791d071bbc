#pragma once

#include "ui/GuardedHandlers.h"

#include <QDialog>

#include <array>

class ColorButton;
class MenuDocument;
class QComboBox;
class QLabel;
class QLineEdit;

// "Default Colors": the background and text colours of text lines, titles and notes, the default page
// background, the menu's font and the currency symbol. Every change is stored in the menu at once;
// there is nothing to cancel.
class DefaultColorsDialog : public QDialog, private GuardedHandlers
{
    Q_OBJECT

public:
    static constexpr int Kinds = 3; // 0 text lines, 1 titles, 2 notes

    DefaultColorsDialog(MenuDocument& document, UserPrompts& prompts, QWidget* parent = nullptr);

public slots:
    void Command3_Click(int kind); // background colour of the kind
    void Command4_Click(int kind); // text colour of the kind
    void Command5_Click(); // default page background
    void Combo1_Click();
    void Text3_Change();

private:
    QWidget* buildKindFrame(int kind, const QString& name, const QString& caption);
    QLayout* buildPageAndFont();
    void load();
    void pickColor(ColorButton* button, QString& stored);

    MenuDocument& m_document;
    std::array<ColorButton*, Kinds> m_backColors {};
    std::array<ColorButton*, Kinds> m_textColors {};
    ColorButton* m_pageColor = nullptr;
    QComboBox* m_fontName = nullptr;
    QLineEdit* m_currencySymbol = nullptr;
    QLabel* m_fontSample = nullptr;
};
