#include "document/UndoHistory.h"

#include "support/SampleDocuments.h"
#include "support/TestWorkingRoot.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

// Touches every part of the document that a step keeps.
void changeEverything(MenuDocument& document)
{
    SampleDocuments::addPlu(document, QStringLiteral("777"), QStringLiteral("Bica"), QStringLiteral("0.70"));
    document.ModifierLists[0].EntryPlu[3] = 777;
    document.Assignments[0].Minimum[0] = 2;
    document.LinePlu[lineSlot(2, 5)] = 777;
    document.LineLayouts[lineSlot(2, 5)].kind = ProductLine;
    document.LanguageTable.at(777, 2) = QStringLiteral("Espresso");
    document.PrintSettings.CurrencySymbol = QStringLiteral("$");
    document.PagesVersion = QStringLiteral("7");
    document.ProjectFolder = QStringLiteral("/elsewhere/");
}

TEST(UndoHistoryTest, UndoAndRedoGiveBackEachStateAndANewChangeDropsWhatWasUndone)
{
    const TestWorkingRoot root;
    auto document = SampleDocuments::richMenu();
    const MenuDocument started = *document;
    UndoHistory history(*document, root.path());
    EXPECT_FALSE(history.record(QStringLiteral("Nothing")));

    changeEverything(*document);
    const MenuDocument changed = *document;
    ASSERT_TRUE(history.record(QStringLiteral("Everything")));
    document->PluCount = 0;
    ASSERT_TRUE(history.record(QStringLiteral("Empty")));
    EXPECT_EQ(history.undoName(), QStringLiteral("Empty"));

    history.undo();
    EXPECT_EQ(*document, changed);
    history.undo();
    EXPECT_EQ(*document, started);
    EXPECT_FALSE(history.canUndo());
    history.redo();
    EXPECT_EQ(*document, changed);
    EXPECT_EQ(history.redoName(), QStringLiteral("Empty"));

    document->LinePlu[0] = 5;
    history.record(QStringLiteral("Bind"));
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.stepCount(), 2);

    // The file prefix follows saves and autosaves, not the user's changes.
    document->FilePrefix = QStringLiteral("/saved/menu");
    EXPECT_FALSE(history.record(QStringLiteral("Prefix")));
}

TEST(UndoHistoryTest, ChangesWithOneFoldKeyAreOneStepAndAbsorbedChangesNone)
{
    const TestWorkingRoot root;
    MenuDocument document;
    UndoHistory history(document, root.path());
    const int box = 0;
    for (const char* typed : { "A", "Ag", "Agu", "Agua" }) {
        document.Plus[0].Description = QString::fromLatin1(typed);
        history.record(QStringLiteral("Typing"), &box);
    }
    document.Plus[1].Description = QStringLiteral("Pao");
    history.record(QStringLiteral("Typing"), &box);
    EXPECT_EQ(history.stepCount(), 1);

    document.Plus[5].Price = QStringLiteral("1");
    history.absorb();
    EXPECT_FALSE(history.record(QStringLiteral("After absorb")));

    history.undo();
    EXPECT_EQ(document.Plus[0].Description, QString());
    EXPECT_EQ(document.Plus[1].Description, QString());
    EXPECT_EQ(document.Plus[5].Price, QStringLiteral("1")); // absorbed, so not undone
    history.redo();
    EXPECT_EQ(document.Plus[0].Description, QStringLiteral("Agua"));
}

// A text of its own for each step, so that what a step replaces is held by the step alone.
QString textOfStep(int step)
{
    return QString(1000, QChar(u'a' + step % 26)) + QString::number(step);
}

TEST(UndoHistoryTest, OldestStepsGoWhenTheHistoryOutgrowsItsMemory)
{
    const TestWorkingRoot root;
    MenuDocument document;
    UndoHistory history(document, root.path(), 64 * 1024);
    for (int step = 0; step < 100; ++step) {
        document.LanguageTable.at(1, 1) = textOfStep(step);
        history.record(QStringLiteral("Text"));
    }
    const int kept = history.stepCount();
    EXPECT_LT(kept, 100);
    EXPECT_GT(kept, 1);
    EXPECT_LE(history.memoryUse(), std::size_t { 64 * 1024 });
    while (history.canUndo()) {
        history.undo();
    }
    EXPECT_EQ(document.LanguageTable.at(1, 1), textOfStep(99 - kept)); // the steps before it left

    // Texts that only move cost nothing; a step larger than the whole allowance is kept, since it is
    // the one the user may want back.
    for (int key = 2; key < 200; ++key) {
        document.LanguageTable.at(key, 2) = textOfStep(key);
    }
    history.reset();
    for (int key = 199; key > 2; --key) {
        document.LanguageTable.at(key, 2) = document.LanguageTable.at(key - 1, 2);
    }
    history.record(QStringLiteral("Move"));
    EXPECT_LT(history.memoryUse(), std::size_t { 32 * 1024 }); // 197 texts of 2 kB moved, one replaced
    document.LanguageTable.clear();
    history.record(QStringLiteral("Huge"));
    EXPECT_EQ(history.stepCount(), 1);
}

TEST(UndoHistoryTest, KeptFilesComeBackOnUndoAndGoWithTheirStep)
{
    const TestWorkingRoot root;
    MenuDocument document;
    UndoHistory history(document, root.path());
    const QString folder = root.path() + QStringLiteral("/work");
    QDir().mkpath(folder);
    writeBytes(folder + QStringLiteral("/capa.jpg"), "jpeg");

    const QString keptIn = history.newKeepingFolder();
    ASSERT_FALSE(keptIn.isEmpty());
    ASSERT_TRUE(QDir(folder).rename(QStringLiteral("capa.jpg"), keptIn + QStringLiteral("/capa.jpg")));
    history.keepFiles(folder, keptIn, { QStringLiteral("capa.jpg") });
    EXPECT_TRUE(history.record(QStringLiteral("New"))); // a step even though the tables did not change

    history.undo();
    EXPECT_EQ(readBytes(folder + QStringLiteral("/capa.jpg")), QByteArray("jpeg"));
    history.redo();
    EXPECT_FALSE(QFile::exists(folder + QStringLiteral("/capa.jpg")));
    EXPECT_TRUE(QFile::exists(keptIn + QStringLiteral("/capa.jpg")));

    history.reset();
    EXPECT_FALSE(QDir(keptIn).exists());
}

} // namespace
