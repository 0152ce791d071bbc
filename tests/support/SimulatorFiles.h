#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// The radio link simulator with files of its own in a temporary folder: the orders it hands out and
// the transcript of the calls it receives. While it lives, this process and the programs it starts
// use the simulator at the given path, and its port openings succeed until a test says otherwise.
class SimulatorFiles
{
public:
    explicit SimulatorFiles(const QString& libraryPath);

    QString folder() const { return m_dir.path(); }

    // One order a line: terminal, table, then PLU and quantity pairs.
    void writeOrders(const QByteArray& lines) const;

    // The calls received so far, one JSON object each, as {"call":"radio_init","args":[5,1,65000]}.
    QStringList transcript() const;
    qsizetype count(const QString& call) const;

private:
    QTemporaryDir m_dir;
};
