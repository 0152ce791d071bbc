#include "ModifierPanel.h"

#include "document/MenuDocument.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

ModifierPanel::ModifierPanel(MenuDocument& document, QWidget* parent)
    : QGroupBox(parent)
    , m_document(document)
{
    setObjectName(QStringLiteral("Frame2"));
    new QVBoxLayout(this);
    m_products = addList(QStringLiteral("List1"), QStringLiteral("Plus with modifiers"));
    m_attached = addList(QStringLiteral("Lista_def_complementos"), QStringLiteral("Modifiers Definition"));

    auto* limits = new QWidget(this);
    limits->setObjectName(QStringLiteral("Frame1"));
    auto* form = new QFormLayout(limits);
    form->setContentsMargins(0, 0, 0, 0);
    for (const auto& [name, caption] :
        { std::pair { "minimo", "Minimum" }, std::pair { "maximo", "Maximum" } }) {
        auto* box = new QLineEdit(limits);
        box->setObjectName(QLatin1StringView(name));
        form->addRow(QLatin1StringView(caption), box);
    }
    limits->hide(); // shown while an attached list is selected
    layout()->addWidget(limits);

    m_allLists = addList(QStringLiteral("Lista_Todos_Def_Comp"), QStringLiteral("All Modifiers"));
    m_options = addList(QStringLiteral("Lista_Complementos"), QStringLiteral("Modifiers"));
    setMinimumWidth(220);
}

QListWidget* ModifierPanel::addList(const QString& name, const QString& caption)
{
    auto* label = new QLabel(caption, this);
    auto* list = new QListWidget(this);
    list->setObjectName(name);
    label->setBuddy(list);
    layout()->addWidget(label);
    layout()->addWidget(list);
    return list;
}

void ModifierPanel::rebuildLists()
{
    m_products->clear();
    for (int i = 0; i < m_document.AssignmentCount; ++i) {
        m_products->addItem(m_document.Assignments[i].Key);
    }
    m_allLists->clear();
    for (int i = 0; i < m_document.ModifierListCount; ++i) {
        m_allLists->addItem(m_document.ModifierLists[i].Name);
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
