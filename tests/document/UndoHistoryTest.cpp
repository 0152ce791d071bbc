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

TEST(UndoHistoryTest, OldestStepsGoWhenTheHistoryOutgrowsItsMemory)
{
    const TestWorkingRoot root;
    MenuDocument document;
    UndoHistory history(document, root.path(), 64 * 1024);
    const QString longText(1000, u'x');
    for (int i = 0; i < 100; ++i) {
        document.LanguageTable.at(i, 1) = longText;
        history.record(QStringLiteral("Text"));
    }
    EXPECT_LT(history.stepCount(), 100);
    EXPECT_GT(history.stepCount(), 1);
    EXPECT_LE(history.memoryUse(), std::size_t { 64 * 1024 });
    while (history.canUndo()) {
        history.undo();
    }
    EXPECT_EQ(document.LanguageTable.at(0, 1), longText); // its step left the history
    EXPECT_EQ(document.LanguageTable.at(99, 1), QString());

    // A step larger than the whole allowance is kept: it is the one the user may want back.
    document.LanguageTable.clear();
    for (int key = 0; key < 200; ++key) {
        document.LanguageTable.at(key, 2) = longText;
    }
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
