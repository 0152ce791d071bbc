// A stand-in for the radio link library, for machines without terminals. It records every call it
// receives as one JSON object a line in the file named by $DRAVLINK_SIM_TRANSCRIPT, answers the port
// openings with $DRAVLINK_SIM_INIT_RESULT (0 when unset) and delivers the orders listed in the file
// named by $DRAVLINK_SIM_ORDERS, one order a line: terminal, table, then PLU and quantity pairs.

#include "document/AnsiCodec.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr int FieldWidth = 8;
constexpr int FieldBufferSize = 512;
constexpr std::int32_t NothingReceived = 1;

struct Order
{
    std::int32_t terminal = 0;
    std::int32_t table = 0;
    QList<std::int32_t> plus;
    QList<std::int32_t> quantities;
};

class Simulator
{
public:
    // Transmission calls come by the thousand; the transcript reaches the disk when a session or a
    // port call ends, and whenever the transcript file is changed.
    void record(const char* call, const QJsonArray& args, bool flush)
    {
        const QMutexLocker lock(&m_mutex);
        if (!openTranscript()) {
            return;
        }
        m_transcript.write(QByteArray(R"({"call":")" + QByteArray(call) + R"(","args":)"
            + QJsonDocument(args).toJson(QJsonDocument::Compact) + "}\n"));
        if (flush) {
            m_transcript.flush();
        }
    }

    // Orders arrive only on a port opened for listening.
    std::int32_t openPort(bool listening)
    {
        const QMutexLocker lock(&m_mutex);
        const std::int32_t result = qEnvironmentVariableIntValue("DRAVLINK_SIM_INIT_RESULT");
        m_portOpen = result <= 0;
        m_orders.clear();
        if (m_portOpen && listening) {
            readOrders();
        }
        return result;
    }

    void closePort()
    {
        const QMutexLocker lock(&m_mutex);
        m_portOpen = false;
        m_orders.clear();
    }

    bool takeOrder(Order& order)
    {
        const QMutexLocker lock(&m_mutex);
        if (!m_portOpen || m_orders.isEmpty()) {
            return false;
        }
        order = m_orders.takeFirst();
        return true;
    }

private:
    bool openTranscript()
    {
        const QString path = qEnvironmentVariable("DRAVLINK_SIM_TRANSCRIPT");
        if (path != m_transcript.fileName() || !m_transcript.isOpen()) {
            m_transcript.close();
            m_transcript.setFileName(path);
            if (!path.isEmpty()) {
                m_transcript.open(QIODevice::WriteOnly | QIODevice::Append);
            }
        }
        return m_transcript.isOpen();
    }

    void readOrders()
    {
        const QString path = qEnvironmentVariable("DRAVLINK_SIM_ORDERS");
        QFile file(path);
        if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
            return;
        }
        while (!file.atEnd()) {
            const QList<QByteArray> numbers = file.readLine().simplified().split(' ');
            if (numbers.size() < 2) {
                continue;
            }
            Order order { numbers[0].toInt(), numbers[1].toInt(), {}, {} };
            for (qsizetype i = 2; i + 1 < numbers.size(); i += 2) {
                order.plus.append(numbers[i].toInt());
                order.quantities.append(numbers[i + 1].toInt());
            }
            m_orders.append(order);
        }
    }

    QMutex m_mutex;
    QFile m_transcript;
    bool m_portOpen = false;
    QList<Order> m_orders;
};

Simulator& simulator()
{
    static Simulator instance;
    return instance;
}

QString text(const char* bytes)
{
    return AnsiCodec::decode(QByteArrayView(bytes));
}

void record(const char* call, const QJsonArray& args = {}, bool flush = false)
{
    simulator().record(call, args, flush);
}

// Writes the numbers into 8-character fields, left-aligned and blank-padded, as far as the buffer
// and the caller's limit allow; returns how many were written.
std::int32_t writeFields(char* buffer, const QList<std::int32_t>& numbers, std::int32_t maxProducts)
{
    const auto count = std::min<qsizetype>({ numbers.size(), maxProducts, FieldBufferSize / FieldWidth });
    for (qsizetype k = 0; k < count; ++k) {
        QByteArray field = QByteArray::number(numbers[k]).leftJustified(FieldWidth, ' ', true);
        std::memcpy(buffer + k * FieldWidth, field.constData(), FieldWidth);
    }
    return static_cast<std::int32_t>(std::max<qsizetype>(count, 0));
}

} // namespace

extern "C" {

Q_DECL_EXPORT std::int32_t menu_init(std::int32_t port, std::int32_t mode, std::int32_t flag)
{
    record("menu_init", { port, mode, flag }, true);
    return simulator().openPort(false);
}

Q_DECL_EXPORT std::int32_t radio_make_tree_mkdir(const char* name)
{
    record("radio_make_tree_mkdir", { text(name) });
    return 0;
}

Q_DECL_EXPORT std::int32_t radio_make_tree_cd(const char* name)
{
    record("radio_make_tree_cd", { text(name) });
    return 0;
}

Q_DECL_EXPORT std::int32_t radio_make_tree_cd_back()
{
    record("radio_make_tree_cd_back");
    return 0;
}

Q_DECL_EXPORT std::int32_t menu_modifier(std::int32_t plu, const char* itemText)
{
    record("menu_modifier", { plu, text(itemText) });
    return 0;
}

Q_DECL_EXPORT std::int32_t menu_item(
    std::int32_t plu, const char* itemText, const char* price, std::int32_t key)
{
    record("menu_item", { plu, text(itemText), text(price), key });
    return 0;
}

Q_DECL_EXPORT std::int32_t radio_make_tree_modifier_min_max(
    const char* name, std::int32_t mandatory, std::int32_t minimum, std::int32_t maximum)
{
    record("radio_make_tree_modifier_min_max", { text(name), mandatory, minimum, maximum });
    return 0;
}

Q_DECL_EXPORT std::int32_t menu_item_modifier_group(
    const char* name, std::int32_t minimum, std::int32_t maximum, std::int32_t defaults)
{
    record("menu_item_modifier_group", { text(name), minimum, maximum, defaults });
    return 0;
}

Q_DECL_EXPORT std::int32_t radio_set_entry(std::int32_t entry, const char* entryText)
{
    record("radio_set_entry", { entry, text(entryText) });
    return 0;
}

Q_DECL_EXPORT std::int32_t menu_upload()
{
    record("menu_upload", {}, true);
    return 0;
}

Q_DECL_EXPORT std::int32_t menu_close()
{
    record("menu_close", {}, true);
    simulator().closePort();
    return 0;
}

Q_DECL_EXPORT std::int32_t radio_init(std::int32_t port, std::int32_t mode, std::int32_t flag)
{
    record("radio_init", { port, mode, flag }, true);
    return simulator().openPort(true);
}

Q_DECL_EXPORT std::int32_t menu_receive(char* pluFields, char* qtyFields, std::int32_t* terminal,
    std::int32_t* table, std::int32_t* productCount, std::int32_t maxProducts)
{
    record("menu_receive", { maxProducts }, true);
    Order order;
    if (!simulator().takeOrder(order)) {
        return NothingReceived;
    }
    *terminal = order.terminal;
    *table = order.table;
    *productCount = writeFields(pluFields, order.plus, maxProducts);
    writeFields(qtyFields, order.quantities, maxProducts);
    return 0;
}

Q_DECL_EXPORT std::int32_t radio_close()
{
    record("radio_close", {}, true);
    simulator().closePort();
    return 0;
}

} // extern "C"
