// A disk that fills up during a save, or a folder that cannot be written: every file saved before stays
// as it was, byte for byte, and the failure is reported once with the system's reason.
#include "Revisions.h"
#include "document/ComponentFiles.h"
#include "document/Fault.h"
#include "document/Project.h"
#include "document/WorkingCopy.h"
#include "link/PortSetting.h"
#include "support/CliRun.h"
#include "support/FileSizeLimit.h"
#include "support/SampleDocuments.h"
#include "support/TestWorkingRoot.h"
#include "texts/TranslationService.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

#include <gtest/gtest.h>
#include <map>

namespace {

// Room for the small files of a save only: the large ones fail part way.
constexpr qint64 RoomLeft = 4096;

using FolderContents = std::map<QString, QByteArray>;

// Every file of the folder with its bytes, so that a file left behind shows as well as one changed.
FolderContents contentsOf(const QString& folder)
{
    FolderContents files;
    const QDir dir(folder);
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden)) {
        // Files replaced by the last save go on a worker thread whenever it gets to them.
        if (name.endsWith(u".replaced")) {
            continue;
        }
        files[name] = readBytes(dir.filePath(name));
    }
    return files;
}

QByteArray firstFailure(const WriteFailures& failures)
{
    return failures.isEmpty()
        ? QByteArray("saved\n")
        : QString(failures.first().path + u": " + failures.first().reason + u'\n').toUtf8();
}

QStringList linesOf(const QByteArray& report)
{
    return QString::fromUtf8(report).split(u'\n');
}

class WriteFailureTest : public ::testing::Test
{
protected:
    TestWorkingRoot root;
    std::unique_ptr<MenuDocument> document = SampleDocuments::largestMenu();
};

} // namespace

TEST_F(WriteFailureTest, SaveAndAutosaveOnAFullDiskKeepTheLastSaveWholeAndSayWhy)
{
    const QString projectFolder = root.path() + QStringLiteral("/menus");
    const QString project = projectFolder + QStringLiteral("/summer.QV1");
    QDir().mkpath(projectFolder);
    applyRevision(*document, 0);
    ASSERT_TRUE(WorkingCopy::save(*document).isEmpty());
    ASSERT_TRUE(Project::save(*document, project).isEmpty());
    const FolderContents working = contentsOf(root.workingFolder());
    const FolderContents named = contentsOf(projectFolder);

    const QStringList reports = linesOf(runWithFileSizeLimit(RoomLeft, [&]() -> QByteArray {
        applyRevision(*document, 1);
        return firstFailure(WorkingCopy::save(*document)) + firstFailure(Project::save(*document, project));
    }));

    ASSERT_EQ(reports.size(), 3) << reports.join(u'|').toStdString();
    EXPECT_TRUE(reports[0].startsWith(root.workingFolder() + u"/temp_")) << reports[0].toStdString();
    EXPECT_TRUE(reports[1].startsWith(projectFolder + u"/summer_")) << reports[1].toStdString();
    for (const QString& report : reports.first(2)) {
        EXPECT_TRUE(report.endsWith(u": File too large")) << report.toStdString();
    }
    EXPECT_EQ(contentsOf(root.workingFolder()), working);
    EXPECT_EQ(contentsOf(projectFolder), named);
}

TEST_F(WriteFailureTest, TheCommandLineSaysOnceWhyItFailedAndKeepsTheFilesItWouldHaveReplaced)
{
    const QString in = root.path() + QStringLiteral("/in");
    const QString outFolder = root.path() + QStringLiteral("/out");
    const QString out = outFolder + QStringLiteral("/menu");
    const QString pdf = outFolder + QStringLiteral("/menu.pdf");
    QDir().mkpath(outFolder);
    document->FilePrefix = in;
    ASSERT_TRUE(ComponentFiles::save(*document).isEmpty());
    const QList<QStringList> commands = { { QStringLiteral("resave"), in, out },
        { QStringLiteral("print"), in, QStringLiteral("--pdf"), pdf, QStringLiteral("--all") } };
    for (const QStringList& arguments : commands) {
        ASSERT_EQ(runCli(arguments).exitCode, 0) << arguments.join(u' ').toStdString();
    }
    // A resave that went through would now change every file it writes.
    applyRevision(*document, 1);
    ASSERT_TRUE(ComponentFiles::save(*document).isEmpty());
    const FolderContents before = contentsOf(outFolder);

    const QByteArray report = runWithFileSizeLimit(RoomLeft, [&] {
        QByteArray runs;
        for (const QStringList& arguments : commands) {
            const CliRun run = runCli(arguments);
            runs += QByteArray::number(run.exitCode) + ' ' + run.err.toUtf8();
        }
        return runs;
    });

    const QStringList lines = linesOf(report);
    ASSERT_EQ(lines.size(), 3) << report.toStdString();
    EXPECT_TRUE(lines[0].startsWith(u"1 quorvel-cli: cannot write '" + out + u"_")) << lines[0].toStdString();
    EXPECT_EQ(lines[1], u"1 quorvel-cli: print: cannot write '" + pdf + u"': File too large");
    EXPECT_TRUE(lines[0].endsWith(u"': File too large")) << lines[0].toStdString();
    EXPECT_EQ(contentsOf(outFolder), before);
}

TEST_F(WriteFailureTest, NothingIsWrittenBelowAPlainFileAndUnstoredSettingsEndTheHandler)
{
    const QString plainFile = root.path() + QStringLiteral("/plain");
    writeBytes(plainFile, "kept");
    const std::optional<WriteFailure> failure
        = SafeWrite::writeFile(plainFile + QStringLiteral("/a.pdf"), "%PDF");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->path, plainFile + QStringLiteral("/a.pdf"));
    EXPECT_EQ(failure->reason, QStringLiteral("Not a directory"));
    EXPECT_EQ(readBytes(plainFile), "kept");

    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, plainFile + QStringLiteral("/config"));
    try {
        PortSetting::save(QStringLiteral("3"));
        ADD_FAILURE() << "the port setting claims to be saved";
    } catch (const Fault& fault) {
        EXPECT_TRUE(fault.message().contains(QDir::toNativeSeparators(plainFile + QStringLiteral("/config"))))
            << fault.message().toStdString();
    }
    EXPECT_THROW(TranslationService::saveAddress(QStringLiteral("http://127.0.0.1:8080")), Fault);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
}
