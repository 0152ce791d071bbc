#include "RowHandlers.h"

#include "PageView.h"
#include "RowEditing.h"
#include "catalogue/CataloguePanel.h"
#include "catalogue/ModifierPanel.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "ui/EnterKey.h"
#include "ui/HandlerGuard.h"

#include <QEvent>
#include <QLineEdit>
#include <QToolButton>

using namespace RowEditing;

namespace {

template<typename Control>
Control* rowControl(PageView& page, const char* name, int row)
{
    auto* control = page.findChild<Control*>(QLatin1StringView(name) + u'_' + QString::number(row));
    Q_ASSERT(control);
    return control;
}

} // namespace

RowHandlers::RowHandlers(MenuDocument& document, UserPrompts& prompts, PageView& page,
    CataloguePanel& catalogue, ModifierPanel& modifiers, QObject* parent)
    : QObject(parent)
    , GuardedHandlers(prompts)
    , m_document(document)
    , m_page(page)
    , m_catalogue(catalogue)
    , m_modifiers(modifiers)
{
    for (int row = 0; row < PageView::Rows; ++row) {
        connectRow(row);
    }
}

void RowHandlers::connectRow(int index)
{
    Row& row = rowAt(index);
    row.frontText = rowControl<QLineEdit>(m_page, "Linhas", index);
    row.price = rowControl<QLineEdit>(m_page, "Price", index);
    row.backText = rowControl<QLineEdit>(m_page, "LinhasVerso", index);
    row.bindProduct = rowControl<QToolButton>(m_page, "Command12", index);
    // Only what the user types counts: the page's redraw sets the same boxes.
    connect(row.frontText, &QLineEdit::textEdited, this, [this, index] { Linhas_Change(index); });
    connect(row.price, &QLineEdit::textEdited, this, [this, index] { Price_Change(index); });
    connect(row.backText, &QLineEdit::textEdited, this, [this, index] { LinhasVerso_Change(index); });
    connect(row.bindProduct, &QToolButton::clicked, this, [this, index] { Command12_Click(index); });
    row.frontText->installEventFilter(this);
    row.backText->installEventFilter(this);
}

bool RowHandlers::eventFilter(QObject* watched, QEvent* event)
{
    for (int index = 0; index < PageView::Rows; ++index) {
        const Row& row = rowAt(index);
        if (watched == row.frontText) {
            switch (event->type()) {
            case QEvent::FocusOut:
                Linhas_LostFocus(index);
                break;
            case QEvent::MouseButtonPress:
                Linhas_Click(index);
                break;
            case QEvent::MouseButtonDblClick:
                Linhas_DblClick(index);
                return true;
            default:
                if (isEnterPress(event)) {
                    Linhas_Click(index);
                    Linhas_DblClick(index);
                    return true;
                }
            }
        } else if (watched == row.backText
            && (event->type() == QEvent::MouseButtonDblClick || isEnterPress(event))) {
            LinhasVerso_DblClick(index);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

int RowHandlers::slotOf(int row) const
{
    return lineSlot(m_page.currentPage(), row);
}

QString RowHandlers::tagOf(int row) const
{
    return rowAt(row).frontText->property("tag").toString();
}

// Typing in one box is one change to undo, from the first key to leaving the box.
void RowHandlers::nameTyping(const QLineEdit* box)
{
    HandlerGuard::nameChange(tr("Typing"), box);
}

void RowHandlers::Linhas_Change(int row)
{
    nameTyping(rowAt(row).frontText);
    guarded([&] {
        const QString tag = tagOf(row);
        if (isBlankTag(tag)) {
            return; // a new product is made only when the row is left
        }
        PluRecord& plu = m_document.Plus[positionOfTag(tag)];
        const QString oldDescription = plu.Description;
        plu.Description = rowAt(row).frontText->text();
        m_catalogue.renameEntry(NumberText::int32Value(plu.Code), plu.Description);
        m_modifiers.renameProductEntries(oldDescription, plu.Description);
    });
}

void RowHandlers::Linhas_LostFocus(int row)
{
    nameTyping(rowAt(row).frontText);
    guarded([&] { commit(row); });
}

void RowHandlers::commit(int row)
{
    Row& boxes = rowAt(row);
    const CommittedRow committed = commitRow(m_document, slotOf(row), boxes.frontText->text(), tagOf(row));
    boxes.frontText->setProperty("tag", committed.tag);
    if (committed.priceChanged) {
        boxes.price->setText(committed.price);
    }
}

void RowHandlers::Linhas_Click(int row)
{
    guarded([&] { m_catalogue.selectEntryWithText(rowAt(row).frontText->text()); });
}

void RowHandlers::Linhas_DblClick(int row)
{
    guarded([&] {
        commit(row);
        LineEditRequest request { row, {}, {}, m_catalogue.currentRow() };
        if (const QString tag = tagOf(row); !isBlankTag(tag)) {
            const PluRecord& plu = m_document.Plus[positionOfTag(tag)];
            request.pluNumber = plu.Code;
            request.price = plu.Price;
        }
        emit lineEditorRequested(request);
    });
}

void RowHandlers::LinhasVerso_Change(int row)
{
    nameTyping(rowAt(row).backText);
    guarded([&] { m_document.LineLayouts[slotOf(row)].backText = rowAt(row).backText->text(); });
}

void RowHandlers::LinhasVerso_DblClick(int row)
{
    guarded([&] { emit groupTitleEditorRequested(row, rowAt(row).backText->text()); });
}

void RowHandlers::Price_Change(int row)
{
    nameTyping(rowAt(row).price);
    guarded([&] {
        const QString tag = tagOf(row);
        if (!isBlankTag(tag)) {
            m_document.Plus[positionOfTag(tag)].Price
                = NumberText::withDecimalPoint(rowAt(row).price->text());
        }
    });
}

void RowHandlers::Command12_Click(int row)
{
    HandlerGuard::nameChange(tr("Place Product"));
    guarded([&] {
        const int selected = m_catalogue.selectedRow();
        if (selected < 0) {
            return;
        }
        const int slot = slotOf(row);
        m_document.LinePlu[slot] = m_catalogue.numberAt(selected);
        m_document.LineLayouts[slot].kind = ProductLine;
        // Clicking down the page lays out the catalogue's products one after another.
        m_catalogue.selectNextRow();
        if (row + 1 < PageView::Rows) {
            rowAt(row + 1).bindProduct->setFocus();
        }
        m_page.Update_Page();
    });
}
