#include "document/Project.h"

#include "document/ComponentFiles.h"
#include "document/MenuDocument.h"
#include "document/WorkingCopy.h"
#include "support/DocumentDiff.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"
#include "support/TestWorkingRoot.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

TEST(ProjectPaths, FolderAndPrefixesFollowTheLastSeparatorAndDot)
{
    EXPECT_EQ(Project::folderOf(QStringLiteral("d:\\menus\\summer.QV1")), u"d:\\menus\\");
    EXPECT_EQ(Project::folderOf(QStringLiteral("/home/ana/menus/summer.QV1")), u"/home/ana/menus/");
    EXPECT_EQ(Project::folderOf(QStringLiteral("summer.QV1")), QString());

    EXPECT_EQ(Project::openedPrefix(QStringLiteral("d:\\menus\\summer.QV1")), u"d:\\menus\\summer");
    EXPECT_EQ(Project::savedPrefix(QStringLiteral("d:\\menus\\summer.QV1")), u"d:\\menus\\summer");
    // Saving without an extension keeps the whole path; opening cuts at the last dot wherever it is.
    EXPECT_EQ(Project::savedPrefix(QStringLiteral("d:\\x.y\\menu")), u"d:\\x.y\\menu");
    EXPECT_EQ(Project::savedPrefix(QStringLiteral("/srv/x.y/menu")), u"/srv/x.y/menu");
    EXPECT_EQ(Project::openedPrefix(QStringLiteral("/srv/x.y/menu")), u"/srv/x");
    EXPECT_EQ(Project::savedPrefix(QStringLiteral("/srv/menu")), u"/srv/menu");
    EXPECT_EQ(Project::openedPrefix(QStringLiteral("/srv/menu")), u"/srv/menu");
}

class ProjectTest : public ::testing::Test
{
protected:
    TestWorkingRoot root;
};

TEST_F(ProjectTest, SaveWritesTheMarkerAndTheFilesThatOpenReadsBack)
{
    auto original = SampleDocuments::richMenu();
    const QString marker = root.path() + QStringLiteral("/summer.QV1");
    ASSERT_TRUE(Project::save(*original, marker).isEmpty());
    EXPECT_EQ(original->FilePrefix, root.path() + QStringLiteral("/summer"));
    EXPECT_EQ(original->ProjectFolder, root.path() + u'/');
    EXPECT_EQ(readBytes(marker), "OK\r\n");
    EXPECT_TRUE(QFile::exists(root.path() + QStringLiteral("/summer_Page_Price_3.txt")));

    MenuDocument opened;
    Project::open(opened, marker);
    EXPECT_EQ(firstDifference(*original, opened), QString());
}

TEST_F(ProjectTest, SavingWithoutAnExtensionAddsTheMarkerExtension)
{
    QDir(root.path()).mkpath(QStringLiteral("x.y"));
    MenuDocument document;
    Project::save(document, root.path() + QStringLiteral("/x.y/menu"));
    EXPECT_EQ(document.FilePrefix, root.path() + QStringLiteral("/x.y/menu"));
    EXPECT_TRUE(QFile::exists(root.path() + QStringLiteral("/x.y/menu.QV1")));
    EXPECT_TRUE(QFile::exists(root.path() + QStringLiteral("/x.y/menu_pludata.txt")));
}

TEST_F(ProjectTest, ClearEmptiesTheDocumentAndTheWorkingFolder)
{
    auto document = SampleDocuments::richMenu();
    WorkingCopy::save(*document);
    writeBytes(root.workingFolder() + QStringLiteral("/other.bak"), "x");
    ASSERT_FALSE(QDir(root.workingFolder()).isEmpty());
    document->ModifierLists[100].EntryCount = 3;
    document->LineLayouts[2].field5 = 9;

    Project::clear(*document);

    EXPECT_TRUE(QDir(root.workingFolder()).isEmpty(QDir::Files | QDir::Hidden));
    EXPECT_EQ(document->PluCount, 0);
    EXPECT_EQ(document->Plus[1].Description, QString());
    EXPECT_EQ(document->Plus[1].Code, QString());
    EXPECT_EQ(document->Plus[1].Price, u"3.00"); // only the code and description are emptied
    EXPECT_EQ(document->ModifierListCount, 0);
    EXPECT_EQ(document->AssignmentCount, 0);
    EXPECT_EQ(document->Assignments[0].ListCount, 0);
    EXPECT_EQ(document->ModifierLists[100].EntryCount, 3);
    EXPECT_EQ(document->LinePlu[lineSlot(1, 0)], 0);
    EXPECT_EQ(document->LineLayouts[lineSlot(1, 2)].kind, EmptyLine);
    EXPECT_EQ(document->LineLayouts[lineSlot(1, 2)].text, u"Bebidas quentes"); // the own text stays
    EXPECT_EQ(document->LineLayouts[2].field5, 9);
    EXPECT_EQ(document->LineLayouts[lineSlot(1, 4)].picturePath, QString());
    EXPECT_EQ(document->LineLayouts[lineSlot(1, 4)].pictureRole, 0);
    EXPECT_EQ(document->LanguageTable.at(0, 2), QString()); // the language names too
    EXPECT_EQ(document->LanguageTable.at(1001, 1), QString());
    EXPECT_EQ(document->PrintSettings.PageColorA[1], QString());
    EXPECT_EQ(document->PrintSettings.PageValueB[14], QString());
    EXPECT_EQ(document->PrintSettings.FontName, u"DejaVu Sans");
    EXPECT_EQ(document->PagesVersion, u"1");
}
