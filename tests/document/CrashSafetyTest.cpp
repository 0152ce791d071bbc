// A program killed while it writes the working copy leaves every component file whole: each one is
// the revision it held before or the one being written, never a file cut short.
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

#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

constexpr int Kills = 25;

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

// Which revision each file holds: 0 or 1, -1 for a file that is neither.
std::map<QString, int> revisionsOnDisk(const TestWorkingRoot& root, const FileVersions& versions)
{
    std::map<QString, int> held;
    for (const auto& [suffix, bytes] : versions) {
        held[suffix] = static_cast<int>(bytes.indexOf(readBytes(root.workingFile(suffix))));
    }
    return held;
}

} // namespace

TEST(CrashSafetyTest, KilledAutosavesLeaveEveryFileWholeAndTheWorkingCopyLoads)
{
    const TestWorkingRoot root;
    const FileVersions versions = versionsOfBothRevisions();
    QRandomGenerator random(QRandomGenerator::global()->generate());

    int mixedSets = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        killDuringAutosave(random);
        const std::map<QString, int> held = revisionsOnDisk(root, versions);
        std::set<int> revisions;
        for (const auto& [suffix, revision] : held) {
            EXPECT_NE(revision, -1) << suffix.toStdString() << " is cut short after kill " << kill;
            revisions.insert(revision);
        }
        mixedSets += revisions.size() > 1 ? 1 : 0;
    }
    // A kill between two files leaves files of both revisions; each file is whole, the set is not.
    std::printf("%d of %d kills left files of both revisions\n", mixedSets, Kills);

    MenuDocument loaded;
    WorkingCopy::open(loaded);
    EXPECT_EQ(loaded.PluCount, 10'000);
    EXPECT_TRUE(loaded.PagesVersion == u"0" || loaded.PagesVersion == u"1");
    // Nothing the killed saves began is left lying beside the working copy.
    EXPECT_EQ(QDir(root.workingFolder()).entryList(QDir::Files).size(), qsizetype(versions.size()));
}
