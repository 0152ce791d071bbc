#include "ReceptionWindow.h"

#include "OrderReception.h"
#include "PortSetting.h"
#include "RadioLink.h"
#include "TransmissionSession.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int ListColumns = 32;
constexpr int ListRows = 12;

QLineEdit* addField(QFormLayout* form, const QString& name, const QString& label, QWidget* parent)
{
    auto* field = new QLineEdit(parent);
    field->setObjectName(name);
    field->setReadOnly(true);
    form->addRow(label, field);
    return field;
}

} // namespace

ReceptionWindow::ReceptionWindow(RadioLink& link, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , GuardedHandlers(prompts)
    , m_link(link)
    , m_pollTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("ReceptionWindow"));
    setWindowTitle(QStringLiteral("Reception mode test"));
    buildControls();

    m_pollTimer->setObjectName(QStringLiteral("Timer1"));
    m_pollTimer->setInterval(OrderReception::PollIntervalMs);
    connect(m_pollTimer, &QTimer::timeout, this, &ReceptionWindow::Timer1_Timer);

    m_portName->setText(PortSetting::saved());
    setPortOpen(false);
    m_portName->setFocus();
}

void ReceptionWindow::buildControls()
{
    auto* form = new QFormLayout;
    // Port, terminal and table numbers are short: their boxes line up at one width.
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    m_portName = new QLineEdit(this);
    m_portName->setObjectName(QStringLiteral("Text2"));
    auto* portRow = new QHBoxLayout;
    portRow->addWidget(m_portName);
    m_openPortButton = addButton(
        QStringLiteral("Command1"), QStringLiteral("&Open Com Port"), &ReceptionWindow::Command1_Click);
    m_closePortButton = addButton(
        QStringLiteral("Command2"), QStringLiteral("C&lose Com Port"), &ReceptionWindow::Command2_Click);
    portRow->addWidget(m_openPortButton);
    portRow->addWidget(m_closePortButton);
    portRow->addStretch();
    // The mnemonics sit where they split no kerning pair: a split one draws the label wider than its size.
    auto* portLabel = new QLabel(QStringLiteral("&ComPort"), this);
    portLabel->setBuddy(m_portName);
    form->addRow(portLabel, portRow);
    m_terminalNo = addField(form, QStringLiteral("TerminalNo"), QStringLiteral("Terminal &Number"), this);
    m_table = addField(form, QStringLiteral("Table"), QStringLiteral("Ta&ble"), this);

    auto* line1 = new QFrame(this);
    line1->setObjectName(QStringLiteral("Line1"));
    line1->setFrameShape(QFrame::HLine);
    line1->setFrameShadow(QFrame::Sunken);

    m_productList = new QPlainTextEdit(this);
    m_productList->setObjectName(QStringLiteral("Plist"));
    m_productList->setReadOnly(true);
    m_productList->setTabChangesFocus(true);
    m_productList->setLineWrapMode(QPlainTextEdit::NoWrap);
    // The columns line up only in a fixed-pitch font; where Courier New is missing, another one stands in.
    QFont courier(QStringLiteral("Courier New"));
    courier.setStyleHint(QFont::TypeWriter);
    courier.setFixedPitch(true);
    m_productList->setFont(courier);
    const QFontMetrics metrics = m_productList->fontMetrics();
    m_productList->setMinimumSize(
        metrics.horizontalAdvance(QString(ListColumns, u'0')), metrics.lineSpacing() * ListRows);

    auto* closeRow = new QHBoxLayout;
    closeRow->addStretch();
    closeRow->addWidget(addButton(
        QStringLiteral("Command3"), QStringLiteral("Close &Window"), &ReceptionWindow::Command3_Click));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(line1);
    layout->addWidget(m_productList, 1);
    layout->addLayout(closeRow);
    m_openPortButton->setDefault(true);
}

QPushButton* ReceptionWindow::addButton(
    const QString& name, const QString& caption, void (ReceptionWindow::*handler)())
{
    // Unlike the command buttons of the panels, these take Enter when they have the focus.
    auto* button = named(new QPushButton(caption, this), name);
    connect(button, &QPushButton::clicked, this, handler);
    return button;
}

void ReceptionWindow::Command1_Click()
{
    guarded([this] {
        if (OrderReception::openPort(m_link, m_portName->text())) {
            setPortOpen(true);
            m_pollTimer->start();
        }
    });
}

void ReceptionWindow::Command2_Click()
{
    guarded([this] { closePort(); });
}

void ReceptionWindow::Command3_Click()
{
    close();
}

void ReceptionWindow::reject()
{
    close();
}

void ReceptionWindow::closeEvent(QCloseEvent* event)
{
    guarded([this] { closePort(); });
    event->accept();
}

// Whether or not the port was opened: the library is told to close it all the same.
void ReceptionWindow::closePort()
{
    setPortOpen(false);
    m_pollTimer->stop();
    m_link.radio_close();
}

// The buttons show the state: only the one that changes it can be clicked.
void ReceptionWindow::setPortOpen(bool open)
{
    m_portOpen = open;
    m_closePortButton->setEnabled(open);
    m_openPortButton->setEnabled(!open);
    (open ? m_closePortButton : m_openPortButton)->setFocus();
}

void ReceptionWindow::Timer1_Timer()
{
    // No call may come between the calls of a transmission session.
    if (!m_portOpen || TransmissionSession::running()) {
        return;
    }
    // A message box runs its own event loop: ticks wait for it, so faults cannot pile up.
    m_pollTimer->stop();
    guarded([this] {
        if (const auto order = OrderReception::receiveOrder(m_link)) {
            showOrder(*order);
        }
    });
    if (m_portOpen) {
        m_pollTimer->start();
    }
}

void ReceptionWindow::showOrder(const OrderReception::ReceivedOrder& order)
{
    m_terminalNo->setText(QString::number(order.terminal));
    m_table->setText(QString::number(order.table));
    m_productList->setPlainText(OrderReception::productListText(order));
}
