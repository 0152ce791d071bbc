#pragma once

#include "catalogue/PluList.h"
#include "ui/GuardedHandlers.h"

#include <QWidget>

#include <cstdint>

class MenuDocument;
class QCheckBox;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

// The catalogue at the left of the main window: the PLU list with its search box, find and filter,
// adding and deleting products. The list part of the window's refresh is rebuildPluList(); the panel
// asks for that refresh with refreshRequested() instead of rebuilding on its own.
class CataloguePanel : public QWidget, private GuardedHandlers
{
    Q_OBJECT

public:
    CataloguePanel(MenuDocument& document, UserPrompts& prompts, QWidget* parent = nullptr);

    // Lists the products on page lines when "Only Defined plus" is checked, else every product above 0.
    // Raises the document's faults; the caller runs it inside its handler guard.
    void rebuildPluList();
    void clearPluList();

    QSize sizeHint() const override;

    // The entry the rows bind: the current entry when it is selected, else the topmost selected one;
    // -1 when none is selected.
    int selectedRow() const;
    int currentRow() const;
    // The text of the selected entry; empty when none is selected.
    QString selectedText() const;
    std::int32_t numberAt(int row) const;
    // Selects only the entry after the selected one, if there is one.
    void selectNextRow();
    // Selects the first entry showing exactly this text, if there is one.
    void selectEntryWithText(const QString& text);
    // The first entry of the number shows the text from now on.
    void renameEntry(std::int32_t number, const QString& text);

public slots:
    void Command10_Click(); // FILTER
    void Command11_Click(); // FIND
    void Command16_Click(); // Add
    void Command9_Click(); // Delete
    void Check1_Click();
    void Lista_plus_DblClick();

signals:
    void refreshRequested();
    // An entry was picked by a click, or selected for the text of a page row.
    void entryPicked(const QString& text);
    // The entry the user chose to place on the current line: its row, its number and its price.
    void pluChosen(int listRow, int pluNumber, const QString& price);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void fillPluList(const QList<PluListEntry>& entries);
    void selectOnly(int row);

    MenuDocument& m_document;
    QListWidget* m_list = nullptr;
    QLineEdit* m_text = nullptr;
    QCheckBox* m_onlyDefined = nullptr;
};
