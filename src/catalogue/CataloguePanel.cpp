#include "CataloguePanel.h"

#include "document/MenuDocument.h"
#include "ui/ChangeNames.h"
#include "ui/EnterKey.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Narrower than this, ordinary product descriptions no longer fit; the preferred width fits most.
constexpr int MinimumDescriptionChars = 36;
constexpr int PreferredDescriptionChars = 46;

// The average character width runs narrow for lower-case text, which descriptions mostly are.
int descriptionWidth(const QFontMetrics& metrics, int characters)
{
    return metrics.horizontalAdvance(u'n') * characters;
}

} // namespace

CataloguePanel::CataloguePanel(MenuDocument& document, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent)
    , GuardedHandlers(prompts)
    , m_document(document)
{
    setObjectName(QStringLiteral("CataloguePanel"));
    buildControls();
}

void CataloguePanel::buildControls()
{
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("Lista_plus"));
    // FIND marks every match; a click still picks one entry, with Ctrl and Shift for more.
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->installEventFilter(this);

    m_onlyDefined = new QCheckBox(QStringLiteral("Only Defined plus"), this);
    m_onlyDefined->setObjectName(QStringLiteral("Check1"));

    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("Text1"));
    m_text->setClearButtonEnabled(true);

    QPushButton* filter = commandButton(this, QStringLiteral("Command10"), QStringLiteral("FILTER"));
    QPushButton* find = commandButton(this, QStringLiteral("Command11"), QStringLiteral("FIND"));
    QPushButton* add = commandButton(this, QStringLiteral("Command16"), QStringLiteral("Add"));
    QPushButton* remove = commandButton(this, QStringLiteral("Command9"), QStringLiteral("Delete"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(buddyLabel(this, QStringLiteral("PlusLabel"), QStringLiteral("Plus"), m_list));
    layout->addWidget(m_list, 1);
    layout->addWidget(m_onlyDefined);
    layout->addSpacing(layout->spacing());
    layout->addWidget(
        buddyLabel(this, QStringLiteral("PluDescriptionLabel"), QStringLiteral("Plu Description"), m_text));
    layout->addWidget(m_text);
    auto* buttons = new QGridLayout;
    buttons->addWidget(filter, 0, 0);
    buttons->addWidget(find, 0, 1);
    buttons->addWidget(add, 1, 0);
    buttons->addWidget(remove, 1, 1);
    layout->addLayout(buttons);

    setTabOrder(m_list, m_onlyDefined);
    setTabOrder(m_onlyDefined, m_text);
    setTabOrder(m_text, filter);
    setTabOrder(filter, find);
    setTabOrder(find, add);
    setTabOrder(add, remove);

    setMinimumWidth(descriptionWidth(fontMetrics(), MinimumDescriptionChars));

    connect(filter, &QPushButton::clicked, this, &CataloguePanel::Command10_Click);
    connect(m_text, &QLineEdit::returnPressed, this, &CataloguePanel::Command10_Click);
    connect(find, &QPushButton::clicked, this, &CataloguePanel::Command11_Click);
    connect(add, &QPushButton::clicked, this, &CataloguePanel::Command16_Click);
    connect(remove, &QPushButton::clicked, this, &CataloguePanel::Command9_Click);
    connect(m_onlyDefined, &QCheckBox::toggled, this, &CataloguePanel::Check1_Click);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &CataloguePanel::Lista_plus_DblClick);
    connect(m_list, &QListWidget::itemClicked, this,
        [this](QListWidgetItem* item) { emit entryPicked(item->text()); });
}

QSize CataloguePanel::sizeHint() const
{
    const QSize hint = QWidget::sizeHint();
    return { std::max(hint.width(), descriptionWidth(fontMetrics(), PreferredDescriptionChars)),
        hint.height() };
}

void CataloguePanel::rebuildPluList()
{
    clearPluList();
    fillPluList(
        m_onlyDefined->isChecked() ? PluList::placedPlus(m_document) : PluList::definedPlus(m_document));
}

void CataloguePanel::clearPluList()
{
    m_list->clear();
}

void CataloguePanel::fillPluList(const QList<PluListEntry>& entries)
{
    m_list->setUpdatesEnabled(false);
    for (const PluListEntry& entry : entries) {
        auto* item = new QListWidgetItem(entry.description, m_list);
        item->setData(Qt::UserRole, entry.number);
    }
    m_list->setUpdatesEnabled(true);
}

void CataloguePanel::Command10_Click()
{
    guarded(sender(), [this] {
        clearPluList();
        fillPluList(PluList::filteredPlus(m_document, m_text->text()));
    });
}

void CataloguePanel::Command11_Click()
{
    guarded(sender(), [this] {
        const QString searchText = m_text->text();
        // One selection change for all matches: a long list would otherwise repaint once per entry.
        QItemSelection matches;
        int runStart = -1;
        const int count = m_list->count();
        for (int row = 0; row <= count; ++row) {
            const bool match
                = row < count && PluList::containsIgnoringCase(m_list->item(row)->text(), searchText);
            if (match && runStart < 0) {
                runStart = row;
            } else if (!match && runStart >= 0) {
                matches.select(m_list->model()->index(runStart, 0), m_list->model()->index(row - 1, 0));
                runStart = -1;
            }
        }
        if (matches.isEmpty()) {
            return;
        }
        m_list->selectionModel()->select(matches, QItemSelectionModel::Select);
        m_list->scrollTo(matches.first().topLeft());
    });
}

void CataloguePanel::Command16_Click()
{
    guarded(sender(), [this] {
        if (PluList::addPlu(m_document, m_prompts, m_text->text())) {
            m_text->clear();
            emit refreshRequested();
        }
    });
}

int CataloguePanel::selectedRow() const
{
    if (const QListWidgetItem* current = m_list->currentItem(); current && current->isSelected()) {
        return m_list->currentRow();
    }
    const QModelIndexList selected = m_list->selectionModel()->selectedRows();
    if (selected.isEmpty()) {
        return -1;
    }
    return std::min_element(selected.cbegin(), selected.cend())->row();
}

int CataloguePanel::currentRow() const
{
    return m_list->currentRow();
}

QString CataloguePanel::selectedText() const
{
    const int row = selectedRow();
    return row >= 0 ? m_list->item(row)->text() : QString();
}

std::int32_t CataloguePanel::numberAt(int row) const
{
    return m_list->item(row)->data(Qt::UserRole).toInt();
}

void CataloguePanel::selectOnly(int row)
{
    m_list->setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
    m_list->scrollToItem(m_list->item(row));
}

void CataloguePanel::selectNextRow()
{
    const int row = selectedRow();
    if (row >= 0 && row + 1 < m_list->count()) {
        selectOnly(row + 1);
    }
}

void CataloguePanel::selectEntryWithText(const QString& text)
{
    const QList<QListWidgetItem*> found = m_list->findItems(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!found.isEmpty()) {
        selectOnly(m_list->row(found.first()));
        emit entryPicked(text);
    }
}

void CataloguePanel::renameEntry(std::int32_t number, const QString& text)
{
    for (int row = 0; row < m_list->count(); ++row) {
        if (numberAt(row) == number) {
            m_list->item(row)->setText(text);
            return;
        }
    }
}

void CataloguePanel::Command9_Click()
{
    guarded(sender(), [this] {
        const int row = selectedRow();
        if (row < 0) {
            return;
        }
        m_document.DeletePluNumber(numberAt(row));
        // Only this entry goes: other entries of the same number stay until the next rebuild.
        delete m_list->takeItem(row);
        if (m_list->count() > 0) {
            selectOnly(0);
        }
    });
}

void CataloguePanel::Check1_Click()
{
    guarded(sender(), [this] { emit refreshRequested(); });
}

void CataloguePanel::Lista_plus_DblClick()
{
    guarded(sender(), [this] {
        const int row = m_list->currentRow();
        if (row < 0) {
            return;
        }
        const std::int32_t number = numberAt(row);
        emit pluChosen(row, number, PluList::priceOfPlu(m_document, number));
    });
}

bool CataloguePanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_list && isEnterPress(event)) {
        Lista_plus_DblClick();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
