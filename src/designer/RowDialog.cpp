#include "RowDialog.h"

#include "PageOperations.h"
#include "PageView.h"
#include "ui/ChangeNames.h"
#include "ui/HandlerGuard.h"

#include <QPushButton>
#include <QVBoxLayout>

RowDialog::RowDialog(MenuDocument& document, PageView& view, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , m_document(document)
    , m_view(view)
    , m_prompts(prompts)
{
    setObjectName(QStringLiteral("Form9"));
    // Rows are counted from 1 for the user, as on the printed sheet.
    setWindowTitle(tr("Page %1, row %2").arg(m_view.currentPage()).arg(m_view.selectedRow() + 1));

    auto* layout = new QVBoxLayout(this);
    const auto add = [&](const QString& name, const QString& caption, const QString& toolTip,
                         void (RowDialog::*handler)()) {
        auto* button = new QPushButton(caption, this);
        button->setObjectName(name);
        button->setToolTip(toolTip);
        button->setMinimumWidth(160);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, handler);
    };
    add(QStringLiteral("Command1"), QStringLiteral("DELETE"),
        tr("Takes the product off this row; the row stays where it is"), &RowDialog::Command1_Click);
    add(QStringLiteral("Command2"), QStringLiteral("MOVE UP"),
        tr("Deletes this row: the rows below it move up one"), &RowDialog::Command2_Click);
    add(QStringLiteral("Command3"), QStringLiteral("MOVE DOWN"),
        tr("Makes room at this row: it and the rows below move down one, and the last row is lost"),
        &RowDialog::Command3_Click);
}

void RowDialog::Command1_Click()
{
    apply(&PageOperations::DeleteRow);
}

void RowDialog::Command2_Click()
{
    apply(&PageOperations::MoveRowUp);
}

void RowDialog::Command3_Click()
{
    apply(&PageOperations::MoveRowDown);
}

// A fault leaves the dialog open, as any handler the guard ended.
void RowDialog::apply(Operation operation)
{
    nameChangeAfter(sender());
    const bool done = runGuarded(m_prompts, [&] {
        operation(m_document, m_view.currentPage(), m_view.selectedRow());
        m_view.Update_Page();
    });
    if (done) {
        accept();
    }
}
