#pragma once

#include <QDialog>

class MenuDocument;
class PageView;
class UserPrompts;

// The small dialog of a page row's Remove button: delete the row's product, or close the gap at the
// row by moving the rows below it up, or open a gap there by moving the rows from it down. It acts on
// the page view's selected row of the current page when a button is clicked; each button redraws the
// page and closes the dialog, and Escape closes it without a change.
class RowDialog : public QDialog
{
    Q_OBJECT

public:
    RowDialog(MenuDocument& document, PageView& view, UserPrompts& prompts, QWidget* parent = nullptr);

public slots:
    void Command1_Click(); // DELETE
    void Command2_Click(); // MOVE UP
    void Command3_Click(); // MOVE DOWN

private:
    using Operation = void (*)(MenuDocument&, int page, int row);
    void apply(Operation operation);

    MenuDocument& m_document;
    PageView& m_view;
    UserPrompts& m_prompts;
};
