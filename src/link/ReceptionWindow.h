#pragma once

#include "ui/GuardedHandlers.h"

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTimer;
class RadioLink;

namespace OrderReception {
struct ReceivedOrder;
}

// "Reception mode test": opens the radio link's port for listening and shows each order that a
// terminal sends, its terminal, table and products. While the port is open only "Close Com Port" is
// enabled; closing the window, however it is closed, closes the port too.
class ReceptionWindow : public QDialog, private GuardedHandlers
{
    Q_OBJECT

public:
    ReceptionWindow(RadioLink& link, UserPrompts& prompts, QWidget* parent = nullptr);

public slots:
    void Command1_Click(); // Open Com Port
    void Command2_Click(); // Close Com Port
    void Command3_Click(); // Close Window
    void Timer1_Timer();

    // Escape closes the window as its other ways of closing do.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    QPushButton* addButton(const QString& name, const QString& caption, void (ReceptionWindow::*handler)());
    void closePort();
    void setPortOpen(bool open);
    void showOrder(const OrderReception::ReceivedOrder& order);

    RadioLink& m_link;
    bool m_portOpen = false;
    QLineEdit* m_portName = nullptr;
    QPushButton* m_openPortButton = nullptr;
    QPushButton* m_closePortButton = nullptr;
    QTimer* m_pollTimer = nullptr;
    QLineEdit* m_terminalNo = nullptr;
    QLineEdit* m_table = nullptr;
    QPlainTextEdit* m_productList = nullptr;
};
