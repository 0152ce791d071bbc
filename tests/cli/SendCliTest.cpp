#include "document/ComponentFiles.h"
#include "document/MenuDocument.h"
#include "support/CliRun.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"
#include "support/SimulatedLink.h"
#include "support/TestWorkingRoot.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class SendCliTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto document = SampleDocuments::richMenu();
        document->FilePrefix = prefix;
        ASSERT_TRUE(ComponentFiles::save(*document).isEmpty());
    }

    TestWorkingRoot root;
    SimulatedLink link;
    const QString prefix = root.path() + u"/summer"_s;
};

} // namespace

TEST_F(SendCliTest, SendsTheProjectAndKeepsItAsTheWorkingCopy)
{
    const CliRun run
        = runCli({ u"send"_s, prefix, u"--port"_s, u"7"_s, u"--thirteen-pages"_s, u"--force"_s });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList calls = link.calls();
    ASSERT_GE(calls.size(), 4);
    EXPECT_EQ(calls.first(), linkCall("menu_init", { 7, 1, 65535 }));
    EXPECT_TRUE(calls.filter(u"menu_item ["_s).size() > 0);
    EXPECT_EQ(calls.last(), linkCall("menu_close"));
    EXPECT_EQ(readBytes(root.workingFile(u"_pludata.txt"_s)), readBytes(prefix + u"_pludata.txt"_s));
}

TEST_F(SendCliTest, APortThatDoesNotOpenOrNoPortIsAOneLineError)
{
    SimulatedLink::setInitResult(2);
    CliRun run = runCli({ u"send"_s, prefix, u"--port"_s, u"7"_s, u"--force"_s });
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(u"port 7"_s)) << run.err.toStdString();
    EXPECT_EQ(run.err.count(u'\n'), 1);
    EXPECT_EQ(link.calls(), QStringList { linkCall("menu_init", { 7, 1, 65535 }) });

    run = runCli({ u"send"_s, prefix });
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(u"--port"_s)) << run.err.toStdString();
}

TEST_F(SendCliTest, TheMenuCheckListsWhatIsWrongAndStopsASendWithoutForce)
{
    // The sample's long coffee name leaves no room for its Spanish text.
    const CliRun check = runCli({ u"check"_s, prefix });
    EXPECT_EQ(check.exitCode, 3) << check.err.toStdString();
    const QStringList problems = check.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_FALSE(problems.isEmpty());
    for (const QString& problem : problems) {
        EXPECT_EQ(problem.count(u'\t'), 5) << problem.toStdString();
    }
    EXPECT_TRUE(check.out.contains(u"the Espanol text does not fit"_s)) << check.out.toStdString();

    const CliRun send = runCli({ u"send"_s, prefix, u"--port"_s, u"7"_s });
    EXPECT_EQ(send.exitCode, 3);
    EXPECT_EQ(send.out, check.out);
    EXPECT_EQ(send.err.count(u'\n'), 1) << send.err.toStdString();
    EXPECT_TRUE(send.err.contains(u"--force"_s)) << send.err.toStdString();
    EXPECT_EQ(link.calls(), QStringList());

    auto clean = SampleDocuments::printedMenu();
    clean->FilePrefix = root.path() + u"/clean"_s;
    ASSERT_TRUE(ComponentFiles::save(*clean).isEmpty());
    const CliRun nothing = runCli({ u"check"_s, clean->FilePrefix });
    EXPECT_EQ(nothing.exitCode, 0) << nothing.err.toStdString();
    EXPECT_EQ(nothing.out, QString());
    EXPECT_EQ(runCli({ u"check"_s, root.path() + u"/missing"_s }).exitCode, 1);
}
