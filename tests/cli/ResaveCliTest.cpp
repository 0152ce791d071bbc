#include "CliRun.h"
#include "document/ComponentFiles.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"
#include "support/TestWorkingRoot.h"

#include <gtest/gtest.h>

namespace {

class ResaveCliTest : public ::testing::Test
{
protected:
    TestWorkingRoot root;
    const QString in = root.path() + QStringLiteral("/in");
    const QString out = root.path() + QStringLiteral("/out");
};

} // namespace

TEST_F(ResaveCliTest, WritesTheSameFilesThatTheProgramWrote)
{
    auto document = SampleDocuments::richMenu();
    document->FilePrefix = in;
    ASSERT_TRUE(ComponentFiles::save(*document).isEmpty());

    const CliRun run = runCli({ QStringLiteral("resave"), in, out });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.err, QString());
    for (const ComponentFiles::File& file : ComponentFiles::render(*document)) {
        EXPECT_EQ(readBytes(out + file.suffix), file.bytes) << file.suffix.toStdString();
    }
}

TEST_F(ResaveCliTest, StartsFromAFreshDocumentAndTakesWhatTheFilesHold)
{
    writeBytes(in + QStringLiteral("_pludata.txt"), "st1,5,,5,1,Only product\n");
    const CliRun run = runCli({ QStringLiteral("resave"), in, out });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(readBytes(out + QStringLiteral("_pludata.txt")), "st1,5,,5,1,Only product\r\n");
    EXPECT_EQ(readBytes(out + QStringLiteral("_PagesVersion.txt")), "0\r\n");
    EXPECT_TRUE(readBytes(out + QStringLiteral("_printer.txt"))
                    .startsWith(" 47 \r\n 165 \r\n 59 \r\n\x80\r\nArial\r\n"));
    EXPECT_EQ(readBytes(out + QStringLiteral("_modifiers.txt")), QByteArray());
}

TEST_F(ResaveCliTest, BadInputEndsWithOneLineOnStandardErrorAndStatusOne)
{
    const QList<QStringList> badCalls = {
        {},
        { QStringLiteral("resave") },
        { QStringLiteral("resave"), in },
        { QStringLiteral("resave"), in, out, QStringLiteral("extra") },
        { QStringLiteral("resave"), QStringLiteral("--bogus"), in, out },
        { QStringLiteral("resafe"), in, out },
        { QStringLiteral("resave"), in, out },
    };
    for (const QStringList& arguments : badCalls) {
        const CliRun run = runCli(arguments);
        EXPECT_EQ(run.exitCode, 1) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(run.err.startsWith(u"quorvel-cli: ")) << run.err.toStdString();
        EXPECT_EQ(run.err.count(u'\n'), 1) << run.err.toStdString();
    }
    EXPECT_TRUE(runCli({ QStringLiteral("resave"), in, out }).err.contains(u"no component files found"));

    writeBytes(in + QStringLiteral("_pludata.txt"), "st1,5,,5,1,P\r\n");
    const CliRun unwritable
        = runCli({ QStringLiteral("resave"), in, root.path() + QStringLiteral("/missing/out") });
    EXPECT_EQ(unwritable.exitCode, 1);
    EXPECT_TRUE(unwritable.err.contains(u"cannot write")) << unwritable.err.toStdString();
}

TEST_F(ResaveCliTest, HelpDescribesTheCommandAndSucceeds)
{
    const CliRun help = runCli({ QStringLiteral("resave"), QStringLiteral("--help") });
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.out.contains(u"IN_PREFIX")) << help.out.toStdString();
    EXPECT_TRUE(help.out.contains(u"OUT_PREFIX"));
    const CliRun overview = runCli({ QStringLiteral("--help") });
    EXPECT_EQ(overview.exitCode, 0);
    EXPECT_TRUE(overview.out.contains(u"resave"));
}
