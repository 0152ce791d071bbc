#pragma once

#include <QGroupBox>

class MenuDocument;
class QListWidget;
class QLineEdit;

// The modifier area of the main window: the products with modifiers, the lists attached to the
// selected one, every modifier list, and the options of a list with the limits of an attachment.
class ModifierPanel : public QGroupBox
{
    Q_OBJECT

public:
    explicit ModifierPanel(MenuDocument& document, QWidget* parent = nullptr);

    // Lists the products with modifiers and every modifier list again from the document.
    void rebuildLists();
    // Empties all four lists.
    void clearLists();
    // Entries of the products with modifiers that showed the old description show the new one.
    void renameProductEntries(const QString& oldDescription, const QString& newDescription);

private:
    QListWidget* addList(const QString& name, const QString& caption);

    MenuDocument& m_document;
    QListWidget* m_products;
    QListWidget* m_attached;
    QListWidget* m_allLists;
    QListWidget* m_options;
};
