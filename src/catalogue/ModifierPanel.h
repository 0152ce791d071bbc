#pragma once

#include "ui/GuardedHandlers.h"

#include <QGroupBox>

class CataloguePanel;
class MenuDocument;
class QCheckBox;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

// The modifier area of the main window: the products with modifiers, the lists attached to the
// selected one with their limits, every modifier list, and the options of a list with the default
// choices ticked.
class ModifierPanel : public QGroupBox, private GuardedHandlers
{
    Q_OBJECT

public:
    ModifierPanel(
        MenuDocument& document, UserPrompts& prompts, CataloguePanel& catalogue, QWidget* parent = nullptr);

    // Lists the products with modifiers and every modifier list again from the document.
    void rebuildLists();
    // Empties all four lists.
    void clearLists();
    // Entries of the products with modifiers that showed the old description show the new one.
    void renameProductEntries(const QString& oldDescription, const QString& newDescription);
    // Selects the product with modifiers of this description, if there is one, and shows its lists.
    void selectProduct(const QString& description);

public slots:
    void Command5_Click(); // New list
    void Command6_Click(); // Delete list
    void Command2_Click(); // Remove option
    void AddOption_Click();
    void Command3_Click(); // Add product
    void Command4_Click(); // Remove product
    void Command8_Click(); // Attach
    void Command7_Click(); // Detach
    void List1_Click();
    void Lista_def_complementos_Click();
    void Lista_Todos_Def_Comp_Click();
    void Lista_Complementos_ItemCheck(QListWidgetItem* item);
    void Lista_Complementos_Click();
    void minimo_Change();
    void maximo_Change();
    void Mandatory_Click();

signals:
    void refreshRequested();

private:
    void buildControls();
    QListWidget* addList(const QString& name, const QString& caption);
    void addButtonRow(QPushButton* left, QPushButton* right);
    void buildLimits();

    static QString selectedText(const QListWidget* list);
    int currentAssignment() const;
    int attachedRow() const;
    bool attachedListSelected() const;
    QString shownListName() const;
    void showAssignment();
    void showOptions(const QString& listName);
    void rebuildProducts();
    void setLimit(std::int32_t& target, const QLineEdit* box);

    MenuDocument& m_document;
    CataloguePanel& m_catalogue;
    QListWidget* m_products = nullptr;
    QListWidget* m_attached = nullptr;
    QListWidget* m_allLists = nullptr;
    QListWidget* m_options = nullptr;
    QWidget* m_limits = nullptr;
    QLineEdit* m_minimum = nullptr;
    QLineEdit* m_maximum = nullptr;
    QCheckBox* m_mandatory = nullptr;
};
