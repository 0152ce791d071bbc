#include "link/PortSetting.h"
#include "support/CliRun.h"
#include "support/QtPrinters.h"
#include "support/SimulatedLink.h"

#include <QSettings>

#include <gtest/gtest.h>

namespace {

class ReceiveCliTest : public ::testing::Test
{
protected:
    SimulatedLink simulator;
    const QString settingsFolder = simulator.filePath(QStringLiteral("config"));

    // The program keeps its settings in the test's own folder.
    QProcessEnvironment environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), settingsFolder);
        return environment;
    }
};

} // namespace

TEST_F(ReceiveCliTest, PrintsEachOrderAsTheWindowShowsItThenClosesThePort)
{
    simulator.setOrders("7 12 1001 2 55 10\n3 4 8 1\n9 9 9 9\n");

    const CliRun run = runCli({ QStringLiteral("receive"), QStringLiteral("--port"), QStringLiteral("5"),
                                  QStringLiteral("--orders"), QStringLiteral("2") },
        environment());

    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.err, QString());
    EXPECT_EQ(run.out,
        QStringLiteral("Terminal Number: 7\nTable: 12\nPLU                  QTY\n1001                 2\n"
                       "55                   10\n\n"
                       "Terminal Number: 3\nTable: 4\nPLU                  QTY\n8                    1\n\n"));
    const QStringList calls = simulator.calls();
    EXPECT_EQ(calls.first(), linkCall("radio_init", { 5, 1, 65000 }));
    EXPECT_EQ(simulator.count("menu_receive"), 2);
    EXPECT_EQ(calls.last(), linkCall("radio_close"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settingsFolder);
    EXPECT_EQ(PortSetting::saved(), QStringLiteral("5"));
}

TEST_F(ReceiveCliTest, ARefusedPortOrBadOptionsEndWithOneLineAndStatusOne)
{
    const QString receive = QStringLiteral("receive");
    const QString port = QStringLiteral("--port");
    const QString orders = QStringLiteral("--orders");
    const QList<QStringList> badCalls = {
        { receive },
        { receive, port, QStringLiteral("five") },
        { receive, port, QStringLiteral("5"), orders, QStringLiteral("0") },
        { receive, port, QStringLiteral("5"), orders },
        { receive, port, QStringLiteral("5"), QStringLiteral("extra") },
    };
    for (const QStringList& arguments : badCalls) {
        const CliRun run = runCli(arguments, environment());
        EXPECT_EQ(run.exitCode, 1) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(run.err.startsWith(u"quorvel-cli: receive: ")) << run.err.toStdString();
        EXPECT_EQ(run.err.count(u'\n'), 1) << run.err.toStdString();
    }
    EXPECT_TRUE(simulator.calls().isEmpty());

    SimulatedLink::setInitResult(1);
    const CliRun refused = runCli({ receive, port, QStringLiteral("5") }, environment());
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.err, QStringLiteral("quorvel-cli: receive: the radio link could not open port 5\n"));
    EXPECT_EQ(refused.out, QString());
    EXPECT_EQ(simulator.calls(), QStringList { linkCall("radio_init", { 5, 1, 65000 }) });
}
