#pragma once

#include <QDialog>

class MenuDocument;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// "Check Menu": what the terminals would get wrong, one row a problem. Activating a row shows its page
// and row in the main window. Before a send it asks whether to send anyway.
class MenuCheckWindow : public QDialog
{
    Q_OBJECT

public:
    explicit MenuCheckWindow(const MenuDocument& document, QWidget* parent = nullptr);

    // Checks the menu again and lists what it finds; before a send, offers to send anyway. Returns how
    // many problems it found.
    qsizetype refresh(bool beforeSending);

signals:
    void rowRequested(int page, int row);
    void sendAnywayRequested();

private:
    void showProblem(const QTreeWidgetItem* item);

    const MenuDocument& m_document;
    QLabel* m_summary = nullptr;
    QTreeWidget* m_problems = nullptr;
    QPushButton* m_sendAnyway = nullptr;
    QPushButton* m_close = nullptr;
};
