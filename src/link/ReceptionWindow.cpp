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
    , m_timer1(new QTimer(this))
{
    setObjectName(QStringLiteral("ReceptionWindow"));
    setWindowTitle(QStringLiteral("Reception mode test"));
    buildControls();

    m_timer1->setObjectName(QStringLiteral("Timer1"));
    m_timer1->setInterval(OrderReception::PollIntervalMs);
    connect(m_timer1, &QTimer::timeout, this, &ReceptionWindow::Timer1_Timer);

    m_text2->setText(PortSetting::saved());
    showPortOpen(false);
    m_text2->setFocus();
}

void ReceptionWindow::buildControls()
{
    auto* form = new QFormLayout;
    // Port, terminal and table numbers are short: their boxes line up at one width.
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    m_text2 = new QLineEdit(this);
    m_text2->setObjectName(QStringLiteral("Text2"));
    auto* portRow = new QHBoxLayout;
    portRow->addWidget(m_text2);
    m_command1 = addButton(
        QStringLiteral("Command1"), QStringLiteral("&Open Com Port"), &ReceptionWindow::Command1_Click);
    m_command2 = addButton(
        QStringLiteral("Command2"), QStringLiteral("C&lose Com Port"), &ReceptionWindow::Command2_Click);
    portRow->addWidget(m_command1);
    portRow->addWidget(m_command2);
    portRow->addStretch();
    // The mnemonics sit where they split no kerning pair: a split one draws the label wider than its size.
    auto* portLabel = new QLabel(QStringLiteral("&ComPort"), this);
    portLabel->setBuddy(m_text2);
    form->addRow(portLabel, portRow);
    m_terminalNo = addField(form, QStringLiteral("TerminalNo"), QStringLiteral("Terminal &Number"), this);
    m_table = addField(form, QStringLiteral("Table"), QStringLiteral("Ta&ble"), this);

    auto* line1 = new QFrame(this);
    line1->setObjectName(QStringLiteral("Line1"));
    line1->setFrameShape(QFrame::HLine);
    line1->setFrameShadow(QFrame::Sunken);

    m_plist = new QPlainTextEdit(this);
    m_plist->setObjectName(QStringLiteral("Plist"));
    m_plist->setReadOnly(true);
    m_plist->setTabChangesFocus(true);
    m_plist->setLineWrapMode(QPlainTextEdit::NoWrap);
    // The columns line up only in a fixed-pitch font; where Courier New is missing, another one stands in.
    QFont courier(QStringLiteral("Courier New"));
    courier.setStyleHint(QFont::TypeWriter);
    courier.setFixedPitch(true);
    m_plist->setFont(courier);
    const QFontMetrics metrics = m_plist->fontMetrics();
    m_plist->setMinimumSize(
        metrics.horizontalAdvance(QString(ListColumns, u'0')), metrics.lineSpacing() * ListRows);

    auto* closeRow = new QHBoxLayout;
    closeRow->addStretch();
    closeRow->addWidget(addButton(
        QStringLiteral("Command3"), QStringLiteral("Close &Window"), &ReceptionWindow::Command3_Click));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(line1);
    layout->addWidget(m_plist, 1);
    layout->addLayout(closeRow);
    m_command1->setDefault(true);
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
        if (OrderReception::openPort(m_link, m_text2->text())) {
            showPortOpen(true);
            m_timer1->start();
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
    showPortOpen(false);
    m_timer1->stop();
    m_link.radio_close();
}

// The enabled state of Close Com Port is the only record of an open port.
void ReceptionWindow::showPortOpen(bool open)
{
    m_command2->setEnabled(open);
    m_command1->setEnabled(!open);
    (open ? m_command2 : m_command1)->setFocus();
}

void ReceptionWindow::Timer1_Timer()
{
    // No call may come between the calls of a transmission session.
    if (!m_command2->isEnabled() || TransmissionSession::running()) {
        return;
    }
    // A message box runs its own event loop: ticks wait for it, so faults cannot pile up.
    m_timer1->stop();
    guarded([this] {
        if (const auto order = OrderReception::receiveOrder(m_link)) {
            showOrder(*order);
        }
    });
    if (m_command2->isEnabled()) {
        m_timer1->start();
    }
}

void ReceptionWindow::showOrder(const OrderReception::ReceivedOrder& order)
{
    m_terminalNo->setText(QString::number(order.terminal));
    m_table->setText(QString::number(order.table));
    m_plist->setPlainText(OrderReception::productListText(order));
}
