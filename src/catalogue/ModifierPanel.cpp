#include "ModifierPanel.h"

#include "CataloguePanel.h"
#include "ModifierEditing.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"
#include "ui/UserPrompts.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace ModifierEditing;

ModifierPanel::ModifierPanel(
    MenuDocument& document, UserPrompts& prompts, CataloguePanel& catalogue, QWidget* parent)
    : QGroupBox(parent)
    , GuardedHandlers(prompts)
    , m_document(document)
    , m_catalogue(catalogue)
{
    setObjectName(QStringLiteral("Frame2"));
    buildControls();
    setMinimumWidth(240);
}

void ModifierPanel::buildControls()
{
    new QVBoxLayout(this);
    m_products = addList(QStringLiteral("List1"), QStringLiteral("Plus with modifiers"));
    addButtonRow(connectedButton(this, QStringLiteral("Command3"), QStringLiteral("Add product"),
                     &ModifierPanel::Command3_Click),
        connectedButton(this, QStringLiteral("Command4"), QStringLiteral("Remove product"),
            &ModifierPanel::Command4_Click));

    m_attached = addList(QStringLiteral("Lista_def_complementos"), QStringLiteral("Modifiers Definition"));
    addButtonRow(connectedButton(this, QStringLiteral("Command8"), QStringLiteral("Attach"),
                     &ModifierPanel::Command8_Click),
        connectedButton(
            this, QStringLiteral("Command7"), QStringLiteral("Detach"), &ModifierPanel::Command7_Click));
    buildLimits();

    m_allLists = addList(QStringLiteral("Lista_Todos_Def_Comp"), QStringLiteral("All Modifiers"));
    addButtonRow(connectedButton(this, QStringLiteral("Command5"), QStringLiteral("New list"),
                     &ModifierPanel::Command5_Click),
        connectedButton(
            this, QStringLiteral("Command6"), QStringLiteral("Delete list"), &ModifierPanel::Command6_Click));

    m_options = addList(QStringLiteral("Lista_Complementos"), QStringLiteral("Modifiers"));
    addButtonRow(connectedButton(this, QStringLiteral("AddOption"), QStringLiteral("Add option"),
                     &ModifierPanel::AddOption_Click),
        connectedButton(this, QStringLiteral("Command2"), QStringLiteral("Remove option"),
            &ModifierPanel::Command2_Click));
    m_options->setToolTip(tr("Tick the options chosen by default"));

    connect(m_products, &QListWidget::itemClicked, this, &ModifierPanel::List1_Click);
    connect(m_attached, &QListWidget::itemClicked, this, &ModifierPanel::Lista_def_complementos_Click);
    connect(m_allLists, &QListWidget::itemClicked, this, &ModifierPanel::Lista_Todos_Def_Comp_Click);
    connect(m_options, &QListWidget::itemChanged, this, &ModifierPanel::Lista_Complementos_ItemCheck);
}

void ModifierPanel::buildLimits()
{
    m_limits = new QWidget(this);
    m_limits->setObjectName(QStringLiteral("Frame1"));
    auto* form = new QFormLayout(m_limits);
    form->setContentsMargins(0, 0, 0, 0);
    m_minimum = new QLineEdit(m_limits);
    m_minimum->setObjectName(QStringLiteral("minimo"));
    m_maximum = new QLineEdit(m_limits);
    m_maximum->setObjectName(QStringLiteral("maximo"));
    m_mandatory = new QCheckBox(QStringLiteral("Mandatory"), m_limits);
    m_mandatory->setObjectName(QStringLiteral("Mandatory"));
    form->addRow(QStringLiteral("Minimum"), m_minimum);
    form->addRow(QStringLiteral("Maximum"), m_maximum);
    form->addRow(m_mandatory);
    m_limits->hide(); // shown while an attached list is selected
    layout()->addWidget(m_limits);
    connect(m_minimum, &QLineEdit::textEdited, this, &ModifierPanel::minimo_Change);
    connect(m_maximum, &QLineEdit::textEdited, this, &ModifierPanel::maximo_Change);
    connect(m_mandatory, &QCheckBox::clicked, this, &ModifierPanel::Mandatory_Click);
}

QListWidget* ModifierPanel::addList(const QString& name, const QString& caption)
{
    auto* label = new QLabel(caption, this);
    auto* list = new QListWidget(this);
    list->setObjectName(name);
    list->setAccessibleName(caption);
    label->setBuddy(list);
    layout()->addWidget(label);
    layout()->addWidget(list);
    return list;
}

void ModifierPanel::addButtonRow(QPushButton* left, QPushButton* right)
{
    auto* row = new QHBoxLayout;
    row->addWidget(left);
    row->addWidget(right);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

QString ModifierPanel::selectedText(const QListWidget* list)
{
    const QListWidgetItem* item = list->currentItem();
    return item && item->isSelected() ? item->text() : QString();
}

int ModifierPanel::currentAssignment() const
{
    return m_products->currentItem() && m_products->currentItem()->isSelected()
        ? findAssignment(m_document, m_products->currentItem()->text())
        : -1;
}

int ModifierPanel::attachedRow() const
{
    const QListWidgetItem* item = m_attached->currentItem();
    return item && item->isSelected() ? m_attached->currentRow() : -1;
}

bool ModifierPanel::attachedListSelected() const
{
    return currentAssignment() >= 0 && attachedRow() >= 0;
}

// The list whose options are shown: the attached list selected, else the one selected among all.
QString ModifierPanel::shownListName() const
{
    return attachedRow() >= 0 ? selectedText(m_attached) : selectedText(m_allLists);
}

void ModifierPanel::rebuildLists()
{
    rebuildProducts();
    m_allLists->clear();
    for (int i = 0; i < m_document.ModifierListCount; ++i) {
        m_allLists->addItem(m_document.ModifierLists[i].Name);
    }
}

void ModifierPanel::rebuildProducts()
{
    m_products->clear();
    for (int i = 0; i < m_document.AssignmentCount; ++i) {
        m_products->addItem(m_document.Assignments[i].Key);
    }
}

void ModifierPanel::clearLists()
{
    m_products->clear();
    m_attached->clear();
    m_allLists->clear();
    m_options->clear();
}

void ModifierPanel::renameProductEntries(const QString& oldDescription, const QString& newDescription)
{
    for (QListWidgetItem* entry :
        m_products->findItems(oldDescription, Qt::MatchExactly | Qt::MatchCaseSensitive)) {
        entry->setText(newDescription);
    }
}

void ModifierPanel::selectProduct(const QString& description)
{
    const QList<QListWidgetItem*> found
        = m_products->findItems(description, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!found.isEmpty()) {
        m_products->setCurrentItem(found.first(), QItemSelectionModel::ClearAndSelect);
        List1_Click();
    }
}

void ModifierPanel::Command5_Click()
{
    guarded(sender(), [this] {
        newList(m_document, m_prompts.askText(QStringLiteral(" New Modifier")));
        emit refreshRequested();
    });
}

void ModifierPanel::Command6_Click()
{
    guarded(sender(), [this] {
        deleteList(m_document, selectedText(m_allLists));
        emit refreshRequested();
    });
}

void ModifierPanel::Command2_Click()
{
    guarded(sender(), [this] {
        const QString listName = shownListName();
        removeOption(m_document, listName, selectedText(m_options));
        showOptions(listName);
    });
}

void ModifierPanel::AddOption_Click()
{
    guarded(sender(), [this] {
        const int entry = m_catalogue.selectedRow();
        const QString listName = shownListName();
        if (entry < 0 || findDefinition(m_document, listName) < 0) {
            return;
        }
        addOption(m_document, listName, m_catalogue.numberAt(entry));
        showOptions(listName);
    });
}

void ModifierPanel::Command3_Click()
{
    guarded(sender(), [this] {
        const int known = m_document.AssignmentCount;
        const int product = addProduct(m_document, m_catalogue.selectedText());
        if (product < 0 || product < known) {
            return;
        }
        rebuildProducts();
        m_products->setCurrentRow(m_products->count() - 1, QItemSelectionModel::ClearAndSelect);
    });
}

void ModifierPanel::Command4_Click()
{
    guarded(sender(), [this] {
        removeProduct(m_document, selectedText(m_products));
        rebuildProducts();
        m_attached->clear();
    });
}

void ModifierPanel::Command8_Click()
{
    guarded(sender(), [this] {
        Command3_Click();
        const int product = currentAssignment();
        const QString listName = selectedText(m_allLists);
        if (product < 0 || listName.isEmpty()) {
            return;
        }
        attach(m_document, product, listName);
        showAssignment();
        const QList<QListWidgetItem*> attached
            = m_attached->findItems(listName, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (!attached.isEmpty()) {
            m_attached->setCurrentItem(attached.first(), QItemSelectionModel::ClearAndSelect);
        }
    });
}

void ModifierPanel::Command7_Click()
{
    guarded(sender(), [this] {
        const int product = currentAssignment();
        if (product < 0) {
            return;
        }
        detach(m_document, product, selectedText(m_attached));
        showAssignment();
    });
}

void ModifierPanel::List1_Click()
{
    guarded(sender(), [this] { showAssignment(); });
}

// The lists attached to the product at the selected place of the list of products with modifiers.
void ModifierPanel::showAssignment()
{
    m_attached->clear();
    m_options->clear();
    const int row = m_products->currentRow();
    if (row >= 0) {
        const ModifierAssignment& product = m_document.Assignments[row];
        for (int list = 0; list < product.ListCount; ++list) {
            m_attached->addItem(product.ListName[list]);
        }
    }
    m_limits->hide();
    m_minimum->clear();
    m_maximum->clear();
}

void ModifierPanel::Lista_def_complementos_Click()
{
    guarded(sender(), [this] {
        const int product = currentAssignment();
        const int list = attachedRow();
        if (product < 0 || list < 0) {
            return;
        }
        const ModifierAssignment& assignment = m_document.Assignments[product];
        m_limits->show();
        m_allLists->clearSelection();
        m_minimum->setText(NumberText::str(assignment.Minimum[list]));
        m_maximum->setText(NumberText::str(assignment.Maximum[list]));
        m_mandatory->setChecked(assignment.Mandatory[list] != 0);
        showOptions(selectedText(m_attached));
        const QSignalBlocker quiet(m_options);
        for (int option = 0; option < m_options->count(); ++option) {
            if (isDefault(assignment.Default[list], option)) {
                m_options->item(option)->setCheckState(Qt::Checked);
            }
        }
    });
}

void ModifierPanel::Lista_Todos_Def_Comp_Click()
{
    guarded(sender(), [this] {
        m_limits->hide();
        m_attached->clearSelection();
        showOptions(selectedText(m_allLists));
    });
}

void ModifierPanel::showOptions(const QString& listName)
{
    const QSignalBlocker quiet(m_options);
    m_options->clear();
    const int found = findDefinition(m_document, listName);
    if (found < 0) {
        return;
    }
    const ModifierDefinition& definition = m_document.ModifierLists[found];
    for (int option = 0; option < definition.EntryCount; ++option) {
        auto* item = new QListWidgetItem(definition.EntryText[option], m_options);
        item->setData(Qt::UserRole, definition.EntryPlu[option]);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
}

void ModifierPanel::Lista_Complementos_ItemCheck(QListWidgetItem* item)
{
    guarded(sender(), [&] {
        const QSignalBlocker quiet(m_options);
        // Defaults belong to an attached list, and no more of them than its maximum.
        if (m_limits->isHidden()) {
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
            return;
        }
        int checked = 0;
        for (int option = 0; option < m_options->count(); ++option) {
            checked += m_options->item(option)->checkState() == Qt::Checked ? 1 : 0;
        }
        if (item->checkState() == Qt::Checked && checked > NumberText::numericValue(m_maximum->text())) {
            item->setCheckState(Qt::Unchecked);
        }
    });
    Lista_Complementos_Click();
}

void ModifierPanel::Lista_Complementos_Click()
{
    guarded(sender(), [this] {
        if (!attachedListSelected()) {
            return;
        }
        QList<int> checked;
        for (int option = 0; option < m_options->count(); ++option) {
            if (m_options->item(option)->checkState() == Qt::Checked) {
                checked.append(option);
            }
        }
        m_document.Assignments[currentAssignment()].Default[attachedRow()] = defaultMask(checked);
    });
}

void ModifierPanel::setLimit(std::int32_t& target, const QLineEdit* box)
{
    target = NumberText::int32Value(box->text());
}

void ModifierPanel::minimo_Change()
{
    guarded(sender(), [this] {
        if (attachedListSelected()) {
            setLimit(m_document.Assignments[currentAssignment()].Minimum[attachedRow()], m_minimum);
        }
    });
}

void ModifierPanel::maximo_Change()
{
    guarded(sender(), [this] {
        if (attachedListSelected()) {
            setLimit(m_document.Assignments[currentAssignment()].Maximum[attachedRow()], m_maximum);
        }
    });
}

void ModifierPanel::Mandatory_Click()
{
    guarded(sender(), [this] {
        if (attachedListSelected()) {
            m_document.Assignments[currentAssignment()].Mandatory[attachedRow()]
                = m_mandatory->isChecked() ? 1 : 0;
        }
    });
}
