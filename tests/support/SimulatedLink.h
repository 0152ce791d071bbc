#pragma once

#include <QJsonArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// Points the radio link at the simulator library for as long as it lives, with a transcript of its
// own and the port opening as it should.
class SimulatedLink
{
public:
    SimulatedLink();
    ~SimulatedLink();
    SimulatedLink(const SimulatedLink&) = delete;
    SimulatedLink& operator=(const SimulatedLink&) = delete;

    // The calls the library received so far, each as linkCall() writes it.
    QStringList calls() const;
    // How many calls of the operation it received.
    qsizetype count(const char* name) const;

    // What the port openings answer; above 0 means the port did not open.
    static void setInitResult(int result);
    // The orders the library hands out once the port is open, one a line.
    void setOrders(const QByteArray& lines);

    QString filePath(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

// A text as terminals get it: the header of where each language text starts and where they end (the
// first start, 6, goes without saying), then the texts.
QString terminalText(std::initializer_list<int> starts, const QString& texts);

// One call as "name [args]", the arguments as compact JSON.
QString linkCall(const char* name, const QJsonArray& args = {});
