#include "document/ComponentFiles.h"

#include "document/MenuDocument.h"
#include "support/DocumentDiff.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"
#include "support/TestWorkingRoot.h"

#include <QDir>
#include <QThreadPool>

#include <cstdio>
#include <gtest/gtest.h>
#include <random>

namespace {

class ComponentFilesTest : public ::testing::Test
{
protected:
    QString file(const QString& suffix) const { return prefix + suffix; }
    void write(const QString& suffix, const QByteArray& bytes) const { writeBytes(file(suffix), bytes); }

    std::unique_ptr<MenuDocument> loadFresh() const
    {
        auto document = std::make_unique<MenuDocument>();
        document->FilePrefix = prefix;
        ComponentFiles::load(*document);
        return document;
    }

    QByteArray rendered(const MenuDocument& document, const QString& suffix) const
    {
        for (const ComponentFiles::File& f : ComponentFiles::render(document)) {
            if (f.suffix == suffix) {
                return f.bytes;
            }
        }
        ADD_FAILURE() << "no file " << suffix.toStdString();
        return {};
    }

    TestWorkingRoot root;
    const QString prefix = root.path() + QStringLiteral("/menu");
};

int lineCount(const QByteArray& bytes)
{
    return static_cast<int>(bytes.count("\r\n"));
}

} // namespace

TEST_F(ComponentFilesTest, SaveThenLoadGivesBackTheDocument)
{
    auto original = SampleDocuments::richMenu();
    original->FilePrefix = prefix;
    ASSERT_TRUE(ComponentFiles::save(*original).isEmpty());

    const auto loaded = loadFresh();
    EXPECT_EQ(firstDifference(*original, *loaded), QString());
}

TEST_F(ComponentFilesTest, WritesEveryFileUnderThePrefixInTheFileFormat)
{
    auto document = SampleDocuments::richMenu();
    document->FilePrefix = prefix;
    ASSERT_TRUE(ComponentFiles::save(*document).isEmpty());
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Files).size(), 36);
    EXPECT_EQ(readBytes(file(QStringLiteral("_PagesVersion.txt"))), "1\r\n");

    EXPECT_EQ(rendered(*document, QStringLiteral("_modifiers_definitions.txt")),
        "Extras\r\n 2001 \r\n 2002 \r\n\r\nTamanhos\r\n 1001 \r\n 1002 \r\n 1003 \r\n\r\n");
    EXPECT_EQ(rendered(*document, QStringLiteral("_modifiers.txt")),
        "Espresso\r\nExtras\r\nminimo  1\r\nmaximo  2\r\ndefault  3\r\nTamanhos\r\nmaximo  1\r\n\r\n"
        "Bife \xe0 portuguesa\r\nExtras\r\n\r\n");
    EXPECT_EQ(rendered(*document, QStringLiteral("_pludata.txt")),
        QByteArray("st1,1001,,1001,2.50,Espresso\r\n"
                   "st1,1002,,1002,3.00,Caf\xe9 com leite, grande, quente\r\n"
                   "st1,1003,7,1003,1.20,\xc1gua mineral\r\n"
                   "st1,0,,0,9.99,Produto apagado\r\n"
                   "st1,2001,,2001,0,A\xe7\xfa"
                   "car\r\n"
                   "st1,2002,,2002,.50,Lim\xe3o\r\n"
                   "st1, 3001,0, 3001,14.75,Bife \xe0 portuguesa\r\n"));

    const QByteArray buttons = rendered(*document, QStringLiteral("_botoes.txt"));
    EXPECT_TRUE(buttons.startsWith("- Page  0\r\n 1001\r\n 1002\r\n0\r\n"));
    EXPECT_TRUE(buttons.contains("0\r\n- Page  1\r\n0\r\n 3001\r\n"));
    EXPECT_TRUE(buttons.endsWith("- Page  13\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n 2001\r\n"
                                 "0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"));
    EXPECT_EQ(lineCount(buttons), 14 * 25);

    EXPECT_TRUE(
        rendered(*document, QStringLiteral("_printer.txt"))
            .startsWith(
                " 50.5 \r\n 160 \r\n .25 \r\n\x80\r\nDejaVu Sans\r\n128\r\n16777215\r\n15724527\r\n0\r\n"
                "33023\r\n0\r\n16777215\r\n 0 \r\n14745599\r\n16777215\r\n16777215\r\n"));
    EXPECT_EQ(lineCount(rendered(*document, QStringLiteral("_printer.txt"))), 5 + 6 + 2 + 28 + 28);
    EXPECT_EQ(lineCount(rendered(*document, QStringLiteral("_Layout.txt"))), 313 * 10);
    EXPECT_EQ(lineCount(rendered(*document, QStringLiteral("_Languages.txt"))), 56685);
    EXPECT_TRUE(rendered(*document, QStringLiteral("_Languages.txt"))
                    .startsWith("Portugues\r\nEnglish\r\nItaliano\r\nFrances\r\nEspanol\r\n\r\n"));
}

TEST_F(ComponentFilesTest, PageFilesShowTheLastMatchingProductAndNeverTheFirstOne)
{
    MenuDocument document;
    SampleDocuments::addPlu(document, QStringLiteral("7"), QStringLiteral("At index 0"), QStringLiteral("1"));
    SampleDocuments::addPlu(document, QStringLiteral("8"), QStringLiteral("Old eight"), QStringLiteral("2"));
    SampleDocuments::addPlu(document, QStringLiteral("8"), QStringLiteral("New eight"), QStringLiteral("3"));
    document.LinePlu[lineSlot(2, 0)] = 7;
    document.LinePlu[lineSlot(2, 1)] = 8;
    document.LinePlu[lineSlot(2, 2)] = 99;

    const QByteArray empty24 = QByteArray("\r\n").repeated(24);
    EXPECT_EQ(rendered(document, QStringLiteral("_Page_Description_1.txt")), empty24);
    EXPECT_EQ(rendered(document, QStringLiteral("_Page_Description_2.txt")),
        "\r\nNew eight\r\n" + QByteArray("\r\n").repeated(22));
    EXPECT_EQ(rendered(document, QStringLiteral("_Page_Price_2.txt")),
        "\r\n3\r\n" + QByteArray("\r\n").repeated(22));
    EXPECT_EQ(rendered(document, QStringLiteral("_Page_Price_14.txt")), empty24);
}

TEST_F(ComponentFilesTest, SomeValuesDoNotSurviveASaveAndLoad)
{
    auto original = SampleDocuments::richMenu();
    original->FilePrefix = prefix;
    ModifierAssignment& espresso = original->Assignments[0];
    espresso.Minimum[0] = 12;
    espresso.Maximum[0] = 15;
    espresso.Mandatory[0] = 1;
    original->LineLayouts[7].field5 = 3;
    original->LineLayouts[313].text = QStringLiteral("past the stored slots");
    original->LineLayouts[336].kind = TitleLine;
    original->LinePlu[336] = 5;
    original->LinePlu[20] = -4;
    ComponentFiles::save(*original);

    const auto loaded = loadFresh();
    EXPECT_EQ(loaded->Assignments[0].Minimum[0], 2); // only the last digit is read back
    EXPECT_EQ(loaded->Assignments[0].Maximum[0], 5);
    EXPECT_EQ(loaded->Assignments[0].Mandatory[0], 0); // the flag is not written
    EXPECT_EQ(loaded->LineLayouts[7].field5, 0);
    EXPECT_EQ(loaded->LineLayouts[313].text, QString());
    EXPECT_EQ(loaded->LineLayouts[336].kind, EmptyLine);
    EXPECT_EQ(loaded->LinePlu[336], 0);
    EXPECT_EQ(loaded->LinePlu[20], 0);

    espresso.Minimum[0] = 2;
    espresso.Maximum[0] = 5;
    espresso.Mandatory[0] = 0;
    original->LineLayouts[7].field5 = 0;
    original->LineLayouts[313].text.clear();
    original->LineLayouts[336].kind = EmptyLine;
    original->LinePlu[336] = 0;
    original->LinePlu[20] = 0;
    EXPECT_EQ(firstDifference(*original, *loaded), QString());
}

TEST_F(ComponentFilesTest, ReadsTheCatalogueUpToTheFirstBlankLine)
{
    write(QStringLiteral("_pludata.txt"),
        "xx, 12,aux,12b, 1.50 ,  Steak, fries, salad  \r\n"
        "st1,13,,13,2\n"
        "st1,14\r"
        "   \r\n"
        "st1,15,,15,1,After the blank line\r\n");
    const auto loaded = loadFresh();
    ASSERT_EQ(loaded->PluCount, 3);
    EXPECT_EQ(loaded->Plus[0],
        (PluRecord { QStringLiteral(" 12"), QStringLiteral("aux"), QStringLiteral("12b"),
            QStringLiteral("1.50"), QStringLiteral("Steak, fries, salad") }));
    EXPECT_EQ(loaded->Plus[1],
        (PluRecord { QStringLiteral("13"), {}, QStringLiteral("13"), QStringLiteral("2"), {} }));
    EXPECT_EQ(loaded->Plus[2].Code, u"14");

    write(QStringLiteral("_pludata.txt"), "\r\nst1,15,,15,1,Never read\r\n");
    EXPECT_EQ(loadFresh()->PluCount, 0);
}

TEST_F(ComponentFilesTest, ReadsModifierAssignmentsAsTheyAreWritten)
{
    write(QStringLiteral("_modifiers.txt"),
        "Burger\r\nSauces\r\nobrigatorio\r\nminimo  12\r\nmaximo  3\r\ndefault  5\r\nSides\r\n\r\n"
        "Salad\r\n\r\n"
        "Pizza\r\nToppings");
    const auto loaded = loadFresh();
    ASSERT_EQ(loaded->AssignmentCount, 3);
    const ModifierAssignment& burger = loaded->Assignments[0];
    EXPECT_EQ(burger.Key, u"Burger");
    ASSERT_EQ(burger.ListCount, 2);
    EXPECT_EQ(burger.ListName[0], u"Sauces");
    EXPECT_EQ(burger.Mandatory[0], 1);
    EXPECT_EQ(burger.Minimum[0], 2);
    EXPECT_EQ(burger.Maximum[0], 3);
    EXPECT_EQ(burger.Default[0], 5);
    EXPECT_EQ(burger.ListName[1], u"Sides");
    EXPECT_EQ(burger.Maximum[1], 0);
    EXPECT_EQ(loaded->Assignments[1].Key, u"Salad");
    EXPECT_EQ(loaded->Assignments[1].ListCount, 0);
    // A list name on the file's last line is not taken.
    EXPECT_EQ(loaded->Assignments[2].Key, u"Pizza");
    EXPECT_EQ(loaded->Assignments[2].ListCount, 0);
}

TEST_F(ComponentFilesTest, ModifierListEntriesTakeTheirProductFromTheCatalogue)
{
    write(QStringLiteral("_pludata.txt"),
        "st1,500,,500,1,First product\r\nst1,5,,5,1,Ketchup\r\nst1,6,,6,1,Fries\r\n");
    write(QStringLiteral("_modifiers_definitions.txt"), "Sauces\r\n5\r\n404\r\n\r\nSides\r\n6\r\n5");
    const auto loaded = loadFresh();
    ASSERT_EQ(loaded->ModifierListCount, 2);
    const ModifierDefinition& sauces = loaded->ModifierLists[0];
    ASSERT_EQ(sauces.EntryCount, 2);
    EXPECT_EQ(sauces.EntryPlu[0], 5);
    EXPECT_EQ(sauces.EntryText[0], u"Ketchup");
    // A number no longer in the catalogue takes the first product's.
    EXPECT_EQ(sauces.EntryPlu[1], 500);
    EXPECT_EQ(sauces.EntryText[1], u"First product");
    // The file's last line is never taken as an entry.
    EXPECT_EQ(loaded->ModifierLists[1].Name, u"Sides");
    EXPECT_EQ(loaded->ModifierLists[1].EntryCount, 1);
}

TEST_F(ComponentFilesTest, MissingFilesLeaveTheTablesAsTheyWere)
{
    MenuDocument document;
    SampleDocuments::addPlu(document, QStringLiteral("1"), QStringLiteral("Kept"), QStringLiteral("1"));
    document.LinePlu[3] = 1;
    document.PrintSettings.FontName = QStringLiteral("Courier");
    document.PrintSettings.PageColorB[4] = QStringLiteral("255");
    document.PagesVersion = QStringLiteral("1");
    document.FilePrefix = prefix;

    EXPECT_EQ(ComponentFiles::load(document), 0);
    EXPECT_EQ(document.PluCount, 1);
    EXPECT_EQ(document.Plus[0].Description, u"Kept");
    EXPECT_EQ(document.LinePlu[3], 1);
    // The printer settings take their defaults, the language names theirs, the page version "0".
    EXPECT_EQ(document.PrintSettings, PrintSettings());
    EXPECT_EQ(document.PrintSettings.PageColorB[4], u"15724527");
    EXPECT_EQ(document.LanguageTable.at(0, 2), u"English");
    EXPECT_EQ(document.PagesVersion, u"0");
}

TEST_F(ComponentFilesTest, PagesTakeTheDefaultPageColourUnlessThePrinterFileGivesTheirOwn)
{
    QByteArray printer = " 10 \r\n 20 \r\n 30 \r\n$\r\nArial\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n777\r\n 0 \r\n";
    printer += "\r\n\r\n11\r\n22\r\n";
    write(QStringLiteral("_printer.txt"), printer);
    const auto loaded = loadFresh();
    const PrintSettings& settings = loaded->PrintSettings;
    EXPECT_EQ(settings.Value3, 30);
    EXPECT_EQ(settings.ColorBack[0], u"5");
    EXPECT_EQ(settings.ColorFore[0], u"6");
    EXPECT_EQ(settings.ColorBack[1], u"1");
    EXPECT_EQ(settings.Value4, 0);
    EXPECT_EQ(settings.PageColorA[1], QString());
    EXPECT_EQ(settings.PageColorA[2], u"11");
    EXPECT_EQ(settings.PageColorB[2], u"22");
    EXPECT_EQ(settings.PageColorA[3], u"777");
    EXPECT_EQ(settings.PageColorB[14], u"777");
    EXPECT_EQ(settings.PageColorA[0], u"777");
}

TEST_F(ComponentFilesTest, EveryKindOfLineEndReadsTheSame)
{
    auto original = SampleDocuments::richMenu();
    for (const char* lineEnd : { "\n", "\r" }) {
        for (const ComponentFiles::File& f : ComponentFiles::render(*original)) {
            write(f.suffix, QByteArray(f.bytes).replace("\r\n", lineEnd));
        }
        auto loaded = loadFresh();
        loaded->FilePrefix = original->FilePrefix;
        EXPECT_EQ(firstDifference(*original, *loaded), QString()) << "line end " << int(lineEnd[0]);
    }
}

TEST_F(ComponentFilesTest, ALineBreakInsideAValueIsWrittenAsABlank)
{
    MenuDocument document;
    document.LanguageTable.at(1, 1) = QStringLiteral("two\r\nlines");
    document.LanguageTable.at(1, 2) = QStringLiteral("next");
    document.FilePrefix = prefix;
    ComponentFiles::save(document);
    const auto loaded = loadFresh();
    EXPECT_EQ(loaded->LanguageTable.at(1, 1), u"two  lines");
    EXPECT_EQ(loaded->LanguageTable.at(1, 2), u"next");
}

TEST_F(ComponentFilesTest, OverlongFilesFillTheTablesAndStopAtTheirEnds)
{
    QByteArray plus;
    for (int i = 0; i < 10500; ++i) {
        plus += "st1," + QByteArray::number(i + 1) + ",,,1,P\r\n";
    }
    write(QStringLiteral("_pludata.txt"), plus);
    QByteArray definitions;
    for (int i = 0; i < 120; ++i) {
        definitions += "List\r\n" + QByteArray("3\r\n").repeated(130) + "\r\n";
    }
    write(QStringLiteral("_modifiers_definitions.txt"), definitions);
    write(QStringLiteral("_modifiers.txt"),
        QByteArray("Key\r\n" + QByteArray("L\r\nminimo 1\r\n").repeated(15) + "\r\n").repeated(120));
    write(QStringLiteral("_botoes.txt"), "99999999999\r\n4\r\n" + QByteArray("7\r\n").repeated(400));

    const auto loaded = loadFresh();
    EXPECT_EQ(loaded->PluCount, Limits::PluCapacity);
    EXPECT_EQ(loaded->Plus[9999].Code, u"10000");
    EXPECT_EQ(loaded->ModifierListCount, Limits::ModifierListCapacity);
    EXPECT_EQ(loaded->ModifierLists[100].EntryCount, Limits::EntryCapacity);
    EXPECT_EQ(loaded->ModifierLists[100].EntryText[100], u"P");
    EXPECT_EQ(loaded->AssignmentCount, Limits::AssignmentCapacity);
    EXPECT_EQ(loaded->Assignments[100].ListCount, Limits::AttachedListCapacity);
    // A number too large for a line is passed over; the next line goes to the next slot.
    EXPECT_EQ(loaded->LinePlu[0], 0);
    EXPECT_EQ(loaded->LinePlu[1], 4);
    EXPECT_EQ(loaded->LinePlu[336], 7);
}

TEST_F(ComponentFilesTest, GarbageInEveryFileNeverBreaksTheLoad)
{
    const auto files = ComponentFiles::render(*SampleDocuments::richMenu());
    std::mt19937 random(2024);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> length(0, 3000);
    for (int round = 0; round < 30; ++round) {
        for (const ComponentFiles::File& f : files) {
            QByteArray bytes(f.bytes);
            // Half the rounds damage real files, the others are noise throughout.
            const int damaged = round % 2 == 0 ? static_cast<int>(bytes.size()) / 50 + 1 : length(random);
            if (round % 2 != 0) {
                bytes.resize(damaged);
            }
            for (int i = 0; i < damaged && !bytes.isEmpty(); ++i) {
                bytes[std::uniform_int_distribution<qsizetype>(0, bytes.size() - 1)(random)]
                    = static_cast<char>(byte(random));
            }
            write(f.suffix, bytes);
        }
        const auto loaded = loadFresh();
        EXPECT_GE(loaded->PluCount, 0);
        EXPECT_LE(loaded->PluCount, Limits::PluCapacity);
        EXPECT_LE(loaded->ModifierListCount, Limits::ModifierListCapacity);
        EXPECT_LE(loaded->AssignmentCount, Limits::AssignmentCapacity);
        for (int i = 0; i < loaded->AssignmentCount; ++i) {
            EXPECT_LE(loaded->Assignments[i].ListCount, Limits::AttachedListCapacity);
        }
    }
}

TEST_F(ComponentFilesTest, SaveReportsTheFilesItCannotWrite)
{
    MenuDocument document;
    document.FilePrefix = root.path() + QStringLiteral("/no such folder/menu");
    const WriteFailures failed = ComponentFiles::save(document);
    ASSERT_EQ(failed.size(), 36);
    EXPECT_TRUE(std::any_of(failed.begin(), failed.end(), [&](const WriteFailure& failure) {
        return failure.path == document.FilePrefix + QStringLiteral("_Languages.txt");
    }));
    EXPECT_EQ(failed.first().reason, QStringLiteral("No such file or directory"));
}

TEST_F(ComponentFilesTest, ALoadFinishesASaveCutOffAfterItsJournalAndDropsOneCutOffBefore)
{
    auto document = SampleDocuments::richMenu();
    document->FilePrefix = prefix;
    ASSERT_TRUE(ComponentFiles::save(*document).isEmpty());
    const QList<ComponentFiles::File> saved = ComponentFiles::render(*document);
    const QString savedVersion = document->PagesVersion;
    document->PagesVersion = QStringLiteral("7");
    document->Plus[1].Price = QStringLiteral("9.99");
    const QList<ComponentFiles::File> next = ComponentFiles::render(*document);
    const auto stageNext = [&] {
        for (const ComponentFiles::File& f : next) {
            write(f.suffix + QStringLiteral(".staged"), f.bytes);
        }
    };
    const auto expectOnDisk = [&](const QList<ComponentFiles::File>& files) {
        for (const ComponentFiles::File& f : files) {
            EXPECT_EQ(readBytes(file(f.suffix)), f.bytes) << f.suffix.toStdString();
        }
        // The files a move replaced are let go on a worker thread.
        QThreadPool::globalInstance()->waitForDone();
        EXPECT_EQ(QDir(root.path())
                      .entryList({ QStringLiteral("*.staged"), QStringLiteral("*.saving"),
                                     QStringLiteral("*.replaced") },
                          QDir::Files | QDir::Hidden),
            QStringList());
    };

    // Cut off while writing aside: the next load finds the files of the save before.
    stageNext();
    QFile::remove(file(QStringLiteral("_Languages.txt.staged")));
    EXPECT_EQ(loadFresh()->PagesVersion, savedVersion);
    expectOnDisk(saved);

    // Cut off while moving into place, the journal written, before the replaced files were let go: the
    // load finishes the move and lets them go.
    stageNext();
    write(QStringLiteral(".saving"), "complete\r\n");
    writeBytes(root.path() + QStringLiteral("/.menu_Layout.txt.replaced"), saved.first().bytes);
    ASSERT_EQ(std::rename(qPrintable(file(QStringLiteral("_pludata.txt.staged"))),
                  qPrintable(file(QStringLiteral("_pludata.txt")))),
        0);
    EXPECT_EQ(loadFresh()->PagesVersion, u"7");
    expectOnDisk(next);

    // A file that cannot be made, with others already written aside, leaves the set as it was.
    document->ModifierListCount = 1;
    document->ModifierLists[0].EntryCount = Limits::EntryCapacity + 1;
    EXPECT_THROW(ComponentFiles::save(*document), RangeFault);
    expectOnDisk(next);
}
