#pragma once

#include "document/MenuDocument.h"
#include "ui/GuardedHandlers.h"

#include <QObject>
#include <QString>

#include <array>
#include <cstddef>

class CataloguePanel;
class ModifierPanel;
class PageView;
class QLineEdit;
class QToolButton;

// What the line editor starts from when a front row is opened: the row, and the PLU number and price
// of the product on it with the catalogue list's current entry.
struct LineEditRequest
{
    int row = -1;
    QString pluNumber;
    QString price;
    int pluListRow = -1;

    bool operator==(const LineEditRequest&) const = default;
};

// The event handlers of the page's live rows: typing a product, a title or a price into a front row,
// a group title into a back row, binding the catalogue's selected product with the button beside a
// row, and opening a row in its editor.
class RowHandlers : public QObject, private GuardedHandlers
{
    Q_OBJECT

public:
    RowHandlers(MenuDocument& document, UserPrompts& prompts, PageView& page, CataloguePanel& catalogue,
        ModifierPanel& modifiers, QObject* parent = nullptr);

public slots:
    void Linhas_Change(int row);
    void Linhas_LostFocus(int row);
    void Linhas_Click(int row);
    void Linhas_DblClick(int row);
    void LinhasVerso_Change(int row);
    void LinhasVerso_DblClick(int row);
    void Price_Change(int row);
    void Command12_Click(int row);

signals:
    void lineEditorRequested(const LineEditRequest& request);
    void groupTitleEditorRequested(int row, const QString& backText);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Row
    {
        QLineEdit* frontText = nullptr;
        QLineEdit* price = nullptr;
        QLineEdit* backText = nullptr;
        QToolButton* bindProduct = nullptr;
    };

    Row& rowAt(int row) { return m_rows[static_cast<std::size_t>(row)]; }
    const Row& rowAt(int row) const { return m_rows[static_cast<std::size_t>(row)]; }

    void connectRow(int index);
    static void nameTyping(const QLineEdit* box);
    void commit(int row);
    int slotOf(int row) const;
    QString tagOf(int row) const;

    MenuDocument& m_document;
    PageView& m_page;
    CataloguePanel& m_catalogue;
    ModifierPanel& m_modifiers;
    std::array<Row, Limits::RowsPerPage> m_rows;
};
