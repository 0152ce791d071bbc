#include "MenuCheckWindow.h"

#include "MenuCheck.h"
#include "ui/NamedWidgets.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPoint>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int PlaceRole = Qt::UserRole;

QString placeText(int number)
{
    return number == 0 ? QString() : QString::number(number);
}

QString sideText(MenuCheck::Side side)
{
    switch (side) {
    case MenuCheck::Side::Front:
        return QStringLiteral("Front");
    case MenuCheck::Side::Back:
        return QStringLiteral("Back");
    default:
        return {};
    }
}

} // namespace

MenuCheckWindow::MenuCheckWindow(const MenuDocument& document, QWidget* parent)
    : QDialog(parent)
    , m_document(document)
{
    setObjectName(QStringLiteral("CheckMenu"));
    setWindowTitle(QStringLiteral("Check Menu"));
    m_summary = named(new QLabel(this), QStringLiteral("Summary"));
    m_problems = named(new QTreeWidget(this), QStringLiteral("Problems"));
    m_problems->setRootIsDecorated(false);
    m_problems->setAlternatingRowColors(true);
    m_problems->setHeaderLabels({ QStringLiteral("Page"), QStringLiteral("Side"), QStringLiteral("Row"),
        QStringLiteral("PLU"), QStringLiteral("Kind"), QStringLiteral("Problem") });
    m_problems->header()->setStretchLastSection(true);
    m_problems->setAccessibleName(QStringLiteral("Problems"));
    m_summary->setBuddy(m_problems);
    connect(m_problems, &QTreeWidget::itemActivated, this, &MenuCheckWindow::showProblem);

    m_sendAnyway = commandButton(this, QStringLiteral("SendAnyway"), QStringLiteral("Send &anyway"));
    m_close = commandButton(this, QStringLiteral("Close"), QStringLiteral("Close"));
    connect(m_sendAnyway, &QPushButton::clicked, this, [this] {
        close();
        emit sendAnywayRequested();
    });
    connect(m_close, &QPushButton::clicked, this, &QDialog::close);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_sendAnyway);
    buttons->addWidget(m_close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_summary);
    layout->addWidget(m_problems, 1);
    layout->addLayout(buttons);
    resize(900, 420);
}

qsizetype MenuCheckWindow::refresh(bool beforeSending)
{
    const QList<MenuCheck::Problem> problems = MenuCheck::check(m_document);
    m_problems->clear();
    QList<QTreeWidgetItem*> items;
    for (const MenuCheck::Problem& problem : problems) {
        auto* item = new QTreeWidgetItem({ placeText(problem.page), sideText(problem.side),
            placeText(problem.row), problem.plu.trimmed(), problem.kind, problem.message });
        item->setToolTip(5, problem.message);
        item->setData(0, PlaceRole, QPoint(problem.page, problem.row));
        items.append(item);
    }
    m_problems->addTopLevelItems(items);
    for (int column = 0; column < 5; ++column) {
        m_problems->resizeColumnToContents(column);
    }
    if (!items.isEmpty()) {
        m_problems->setCurrentItem(items.first());
    }
    m_summary->setText(problems.isEmpty()
            ? QStringLiteral("The terminals will get this menu as it is designed.")
            : QStringLiteral("%1 thing(s) the terminals would get wrong. Double-click one to show its row:")
                  .arg(problems.size()));
    m_sendAnyway->setVisible(beforeSending);
    m_close->setText(beforeSending ? QStringLiteral("Cancel") : QStringLiteral("Close"));
    m_sendAnyway->setDefault(beforeSending);
    return problems.size();
}

void MenuCheckWindow::showProblem(const QTreeWidgetItem* item)
{
    const QPoint place = item->data(0, PlaceRole).toPoint(); // page and row, 0 for none
    if (place.x() != 0) {
        emit rowRequested(place.x(), place.y());
    }
}
