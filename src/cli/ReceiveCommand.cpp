#include "ReceiveCommand.h"

#include "CliCommand.h"
#include "document/Fault.h"
#include "link/DravlinkLibrary.h"
#include "link/OrderReception.h"

#include <QThread>

#include <csignal>
#include <cstdio>

namespace {

const QString PortOption = QStringLiteral("port");
const QString OrdersOption = QStringLiteral("orders");

volatile std::sig_atomic_t interrupted = 0;

void stopReceiving(int)
{
    interrupted = 1;
}

// The option's value as a whole number of at least the given minimum.
int wholeNumber(const CommandParser& parser, const QString& option, int minimum)
{
    bool ok = false;
    const int value = parser.value(option).toInt(&ok);
    if (!ok || value < minimum) {
        throw CliError(QStringLiteral("receive: --%1 needs a whole number of at least %2, not '%3'")
                           .arg(option)
                           .arg(minimum)
                           .arg(parser.value(option)));
    }
    return value;
}

// As the reception window shows the order: its two fields, then its product list.
void printOrder(const OrderReception::ReceivedOrder& order)
{
    QString text = QStringLiteral("Terminal Number: %1\nTable: %2\n").arg(order.terminal).arg(order.table);
    for (const QString& line : OrderReception::productListLines(order)) {
        text += line + u'\n';
    }
    std::fputs(qPrintable(text + u'\n'), stdout);
    std::fflush(stdout);
}

// Polls as the window's timer does. Zero orders means no limit.
void receiveOrders(RadioLink& link, int orders)
{
    int received = 0;
    while (!interrupted && (orders == 0 || received < orders)) {
        QThread::msleep(OrderReception::PollIntervalMs);
        if (const auto order = OrderReception::receiveOrder(link)) {
            printOrder(*order);
            ++received;
        }
    }
}

} // namespace

int runReceive(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("receive"),
        QStringLiteral("Opens the serial port of the radio link for listening and prints each order the "
                       "terminals send, until the given number of orders has come or it is interrupted."));
    parser.addOption({ PortOption, QStringLiteral("Serial port number; it is saved as the ComPort setting."),
        QStringLiteral("N") });
    parser.addOption({ OrdersOption, QStringLiteral("Stop after K orders."), QStringLiteral("K") });
    if (!parser.parse(arguments)) {
        return 0;
    }
    const QString portText = parser.requiredValue(PortOption);
    const int port = wholeNumber(parser, PortOption, 0);
    const int orders = parser.isSet(OrdersOption) ? wholeNumber(parser, OrdersOption, 1) : 0;

    DravlinkLibrary link;
    if (!OrderReception::openPort(link, portText)) {
        throw CliError(QStringLiteral("receive: the radio link could not open port %1").arg(port));
    }
    std::signal(SIGINT, stopReceiving);
    std::signal(SIGTERM, stopReceiving);
    // A fault ends receiving as it ends the command, and the port is closed either way.
    try {
        receiveOrders(link, orders);
    } catch (const Fault&) {
        link.radio_close();
        throw;
    }
    link.radio_close();
    return 0;
}
