#pragma once

#include "PictureFiles.h"
#include "document/MenuDocument.h"
#include "ui/GuardedHandlers.h"

#include <QString>
#include <QWidget>

#include <array>
#include <cstddef>
#include <vector>

class PictureBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace PageRendering {
struct RowView;
} // namespace PageRendering

// The current menu page as the magnet sheet shows it: the front side with its rows, prices and magnet
// letter beside the back side with its group titles and pictures. The view keeps nothing of its own
// but the page number and the work mode; every redraw reads the document afresh.
//
// Above the sides stand the page commands: paging, inserting and deleting pages, and the switch
// between configuring the modifiers and designing the menu, which gives the front rows more room.
class PageView : public QWidget, private GuardedHandlers
{
    Q_OBJECT

public:
    static constexpr int Rows = Limits::RowsPerPage;

    PageView(MenuDocument& document, UserPrompts& prompts, QWidget* parent = nullptr);

    // Redraws both sides of the current page. A page colour that was empty is stored as the pale
    // yellow it shows, and picture paths are stored as they were found.
    void Update_Page();

    int currentPage() const { return m_currentPage; }
    void setCurrentPage(int page);

    // What the front row shows, and the tag of the product on it, as the user left them.
    QString frontRowText(int row) const;
    QString frontRowTag(int row) const;
    // Puts the keyboard on a row's front text (0 to 23).
    void focusRow(int row);

    QSize sizeHint() const override;

    // The row whose Remove button was clicked last (0 to 23); the row dialog acts on it.
    int selectedRow() const { return m_selectedRow; }

    // The area of side 1 (front) or 2 (back), whose colour the Background effects dialog sets.
    PictureBox& sideArea(int side) const;

    // True while the page has the modifier panel's room.
    bool designing() const { return m_designing; }

public slots:
    void Command14_Click(); // Previous Page
    void Command15_Click(); // Next Page
    void InsertPage_Click();
    void DeletePage_Click();
    void Expand_Click();
    void Picture1_Click();
    void Picture2_Click();
    void Remove_Click(int row);

signals:
    // The Background effects dialog is wanted for side 1 (front) or 2 (back) of the current page.
    void backgroundDialogRequested(int side);
    // Expand switched the work mode: while designing, the modifier panel gives the page its room.
    void workModeChanged(bool designing);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Row
    {
        QLineEdit* frontText = nullptr;
        QLineEdit* price = nullptr;
        QToolButton* bindProduct = nullptr;
        QToolButton* moveOrDelete = nullptr;
        QLineEdit* backText = nullptr;
        PictureBox* groupPicture = nullptr;
    };

    const Row& rowAt(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    Row& rowAt(int row) { return m_rows[static_cast<std::size_t>(row)]; }

    void buildFront();
    void buildBack();
    void buildCommands();
    void showRow(Row& row, const PageRendering::RowView& view);

    // What Expand moves, and by how much in pixels, when the page takes the modifier panel's room.
    struct DesignMove
    {
        QWidget* widget;
        int right;
        int wider;
    };
    void applyDesignMoves(int direction);

    MenuDocument& m_document;
    PictureFiles m_pictureFiles;
    int m_currentPage = 1;
    bool m_designing = false;
    QLabel* m_pageCaption = nullptr;
    QLabel* m_pageNumber = nullptr;
    QLabel* m_magnetLetter = nullptr;
    PictureBox* m_frontSide = nullptr;
    PictureBox* m_backSide = nullptr;
    std::array<Row, Rows> m_rows;

    QPushButton* m_previousPage = nullptr;
    QPushButton* m_nextPage = nullptr;
    QPushButton* m_insertPage = nullptr;
    QPushButton* m_deletePage = nullptr;
    QPushButton* m_workModeSwitch = nullptr;
    QLabel* m_frontHeading = nullptr;
    QLabel* m_backHeading = nullptr;
    std::vector<DesignMove> m_designMoves;
    int m_selectedRow = 0;
};
