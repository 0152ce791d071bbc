#pragma once

#include "PictureFiles.h"

#include <QWidget>

#include <array>

class MenuDocument;
class PictureBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace PageRendering {
struct RowView;
} // namespace PageRendering

// The current menu page as the magnet sheet shows it: the front side with its rows, prices and magnet
// letter beside the back side with its group titles and pictures. The view keeps nothing of its own
// but the page number in the label `Page`; every redraw reads the document afresh.
class PageView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Rows = 24;

    explicit PageView(MenuDocument& document, QWidget* parent = nullptr);

    // Redraws both sides of the current page. A page colour that was empty is stored as the pale
    // yellow it shows, and picture paths are stored as they were found.
    void Update_Page();

    int currentPage() const;
    void setCurrentPage(int page);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Row
    {
        QLineEdit* Linhas = nullptr;
        QLineEdit* Price = nullptr;
        QToolButton* Command12 = nullptr;
        QToolButton* Remove = nullptr;
        QLineEdit* LinhasVerso = nullptr;
        PictureBox* Imagem = nullptr;
    };

    void buildFront();
    void buildBack();
    void showRow(Row& row, const PageRendering::RowView& view);

    MenuDocument& m_document;
    PictureFiles m_pictureFiles;
    QLabel* m_page = nullptr;
    QLabel* m_magnet = nullptr;
    PictureBox* m_picture1 = nullptr;
    PictureBox* m_picture2 = nullptr;
    std::array<Row, Rows> m_rows;
};
