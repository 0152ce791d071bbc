// A program killed while it writes the working copy leaves a set the next start can use: after the
// load, every component file is of the save before or every one is of the save being written.
#include "Revisions.h"
#include "document/ComponentFiles.h"
#include "document/WorkingCopy.h"
#include "support/SampleDocuments.h"
#include "support/TestWorkingRoot.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <cstdio>
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace {

// SOAK_KILLS asks for more, as make soak does.
int killCount()
{
    const int asked = qEnvironmentVariableIntValue("SOAK_KILLS");
    return asked > 0 ? asked : 25;
}

using FileVersions = std::map<QString, QList<QByteArray>>; // by suffix: the bytes each revision writes

FileVersions versionsOfBothRevisions()
{
    FileVersions versions;
    const auto document = SampleDocuments::largestMenu();
    for (int revision : { 0, 1 }) {
        applyRevision(*document, revision);
        for (const ComponentFiles::File& file : ComponentFiles::render(*document)) {
            versions[file.suffix].append(file.bytes);
        }
    }
    return versions;
}

// Starts the autosave loop and kills it at a random moment after its first whole save. Returns how
// long that first save took, the scale of the moments chosen.
qint64 killDuringAutosave(QRandomGenerator& random)
{
    QProcess child;
    child.start(QStringLiteral(QUORVEL_AUTOSAVE_LOOP_PATH), {});
    EXPECT_TRUE(child.waitForStarted(10'000));
    QElapsedTimer firstSave;
    firstSave.start();
    EXPECT_TRUE(child.waitForReadyRead(120'000)) << "the autosave loop never finished a save";
    const qint64 saveMs = std::max<qint64>(firstSave.elapsed(), 1);
    QThread::msleep(random.bounded(static_cast<quint64>(3 * saveMs)));
    child.kill();
    EXPECT_TRUE(child.waitForFinished(10'000));
    return saveMs;
}

// The revisions whose bytes each file holds, as bits: 1 for revision 0, 2 for revision 1, both for a
// file the two write alike, none for a file of neither.
std::map<QString, int> revisionsOnDisk(const TestWorkingRoot& root, const FileVersions& versions)
{
    std::map<QString, int> held;
    for (const auto& [suffix, bytes] : versions) {
        const QByteArray onDisk = readBytes(root.workingFile(suffix));
        held[suffix] = (bytes[0] == onDisk ? 1 : 0) | (bytes[1] == onDisk ? 2 : 0);
    }
    return held;
}

} // namespace

TEST(CrashSafetyTest, AfterEveryKilledAutosaveTheNextStartFindsAllFilesOfOneSave)
{
    const TestWorkingRoot root;
    const FileVersions versions = versionsOfBothRevisions();
    QRandomGenerator random(QRandomGenerator::global()->generate());
    const int kills = killCount();

    for (int kill = 0; kill < kills && !::testing::Test::HasFailure(); ++kill) {
        killDuringAutosave(random);
        const auto loaded = std::make_unique<MenuDocument>();
        WorkingCopy::open(*loaded);

        int common = 1 | 2;
        for (const auto& [suffix, revisions] : revisionsOnDisk(root, versions)) {
            EXPECT_NE(revisions, 0) << suffix.toStdString() << " is of neither save after kill " << kill;
            common &= revisions;
        }
        ASSERT_NE(common, 0) << "kill " << kill << " left files of both saves";
        EXPECT_EQ(loaded->PagesVersion, common == 1 ? u"0" : u"1");
        EXPECT_EQ(loaded->PluCount, 10'000);
        // Nothing the killed save began is left lying beside the working copy.
        EXPECT_EQ(QDir(root.workingFolder()).entryList(QDir::Files).size(), qsizetype(versions.size()));
    }
    std::printf("%d kills, each followed by a start that found every file of one save\n", kills);
}
