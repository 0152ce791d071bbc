#pragma once

#include "ui/GuardedHandlers.h"

#include <QDialog>

class ColorButton;
class MenuDocument;
class PictureBox;
class QLineEdit;

// "Background effects": the background colour and picture of one side of the current page. The side's
// area on the page view takes a new colour at once; everything is stored in the menu as it is chosen.
class BackgroundEffectsDialog : public QDialog, private GuardedHandlers
{
    Q_OBJECT

public:
    // side: 1 front, 2 back; area: that side on the page view.
    BackgroundEffectsDialog(MenuDocument& document, int page, int side, PictureBox& area,
        UserPrompts& prompts, QWidget* parent = nullptr);

public slots:
    void Command1_Click(); // Backgound Color
    void Command2_Click(); // Browse
    void Text1_Change(const QString& text);

private:
    QString& storedColor();
    QString& storedPicture();

    MenuDocument& m_document;
    int m_page;
    int m_side;
    PictureBox& m_area;
    ColorButton* m_backColor = nullptr;
    QLineEdit* m_picturePath = nullptr;
};
