// What the Edit Line and Group Title dialogs do to the document, without the dialogs.
#include "document/MenuDocument.h"
#include "document/PicturePaths.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"
#include "texts/GroupTitles.h"
#include "texts/LineEditing.h"
#include "texts/TranslationSource.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

namespace {

// Page 1: a product on row 4 and a title on row 5, both coloured by hand, an empty row 6 and the next
// group on row 7.
MenuDocument rowsUnderAGroup()
{
    MenuDocument document;
    const auto colour = [&document](int slot, std::int32_t kind, const QString& back, const QString& fore) {
        document.LineLayouts[slot].kind = kind;
        document.LineLayouts[slot].backColor = back;
        document.LineLayouts[slot].foreColor = fore;
    };
    colour(4, ProductLine, u"111"_s, u"222"_s);
    colour(5, TitleLine, u"333"_s, u"444"_s);
    document.LineLayouts[7].backText = u"Vinhos"_s;
    return document;
}

} // namespace

TEST(GroupTitles, TextsAreKeptUnderTheSlotAndTheFirstIsTheBackRow)
{
    MenuDocument document;
    EXPECT_EQ(GroupTitles::textKey(27), 11027);
    GroupTitles::storeText(document, 27, 1, u"Dishes"_s);
    EXPECT_EQ(document.LanguageTable.at(11027, 2), u"Dishes");
    EXPECT_EQ(document.LineLayouts[27].backText, QString());
    GroupTitles::storeText(document, 27, 0, u"Pratos do dia"_s);
    EXPECT_EQ(document.LanguageTable.at(11027, 1), u"Pratos do dia");
    EXPECT_EQ(document.LineLayouts[27].backText, u"Pratos do dia");
}

TEST(GroupTitles, ASlotWithoutBothGroupColoursTakesTheTextLineDefaults)
{
    MenuDocument document;
    document.PrintSettings.ColorBack[0] = u"33023"_s;
    document.PrintSettings.ColorFore[0] = u"0"_s;
    document.LineLayouts[3].backBackColor = u"  "_s;
    document.LineLayouts[3].backForeColor = u"255"_s;
    document.LineLayouts[7].backBackColor = u"255"_s;
    document.LineLayouts[7].backForeColor = u"16777215"_s;
    EXPECT_FALSE(GroupTitles::hasGroupColors(document, 3));
    EXPECT_TRUE(GroupTitles::hasGroupColors(document, 7));
    GroupTitles::fillDefaultGroupColors(document, 3);
    GroupTitles::fillDefaultGroupColors(document, 7);
    EXPECT_EQ(document.LineLayouts[3].backBackColor, u"33023");
    EXPECT_EQ(document.LineLayouts[3].backForeColor, u"0");
    EXPECT_EQ(document.LineLayouts[7].backBackColor, u"255");
    EXPECT_EQ(document.LineLayouts[7].backForeColor, u"16777215");
}

TEST(GroupTitles, AGroupColoursItsRowsDownToTheNextGroupTitle)
{
    MenuDocument document = rowsUnderAGroup();
    GroupTitles::createGroup(document, 3, { u"Pratos"_s, 255, 65280, u"pratos.jpg"_s, false });
    const auto& line = document.LineLayouts;
    EXPECT_EQ(line[3].pictureRole, GroupStart);
    EXPECT_EQ(line[3].backText, u"Pratos");
    // Products and empty lines take the group's colours; titles keep theirs.
    EXPECT_EQ(line[4].backColor + u' ' + line[4].foreColor, u"255 65280");
    EXPECT_EQ(line[5].backColor + u' ' + line[5].foreColor, u"333 444");
    EXPECT_EQ(line[6].backColor, u"255");
    for (int slot = 4; slot <= 6; ++slot) {
        EXPECT_EQ(line[slot].pictureRole, CoveredByPicture) << slot;
        EXPECT_EQ(line[slot].backBackColor, QString()) << slot; // not visible on the left
    }
    LineLayout nextHead;
    nextHead.backText = u"Vinhos"_s;
    EXPECT_EQ(line[7], nextHead);

    // Visible on the left, the back rows take the colours too; on the last row the group ends there.
    GroupTitles::createGroup(document, 23, { u"Cafes"_s, 255, 0, u"a.jpg"_s, true });
    EXPECT_EQ(line[23].backBackColor, u"255");
    EXPECT_EQ(line[23].backColor, u"255");
    EXPECT_EQ(line[24], LineLayout());
}

TEST(GroupTitles, RemovingAGroupClearsItsRowsAndKeepsTheTitle)
{
    MenuDocument document = rowsUnderAGroup();
    GroupTitles::createGroup(document, 2, { u"Pratos"_s, 255, 65280, u"pratos.jpg"_s, true });
    document.LineLayouts[8].pictureRole = CoveredByPicture;
    GroupTitles::removeGroup(document, 2, u"Pratos antigos"_s);
    const auto& line = document.LineLayouts;
    EXPECT_EQ(line[2].pictureRole, 0);
    EXPECT_EQ(line[2].backText, u"Pratos antigos");
    for (int slot = 3; slot <= 6; ++slot) {
        EXPECT_EQ(line[slot].backColor + line[slot].foreColor + line[slot].backBackColor, QString()) << slot;
        EXPECT_EQ(line[slot].pictureRole, 0) << slot;
    }
    EXPECT_EQ(line[5].kind, TitleLine);
    EXPECT_EQ(line[8].pictureRole, CoveredByPicture); // below the next group
}

TEST(LineEditing, TheEditorOpensOnTheLineOrOnTheSelectedProduct)
{
    MenuDocument document;
    addPlu(document, u"101"_s, u"Sopa"_s, u"3.00"_s);
    addPlu(document, u"103"_s, u"Mousse"_s, u"3.50"_s);
    LineLayout& title = document.LineLayouts[lineSlot(2, 5)];
    title.text = u"Sobremesas"_s;
    title.kind = TitleLine;
    title.backColor = u"128"_s;

    // A title shows its text and a number no product has.
    LineEditing::Start start = LineEditing::startOf(document, { 2, 5, u"Sobremesas"_s, {}, {}, {}, {} });
    EXPECT_EQ(start.slot, 29);
    EXPECT_TRUE(start.holdsLine);
    EXPECT_EQ(start.kind, TitleLine);
    EXPECT_EQ(start.code, u"104");
    EXPECT_EQ(start.mainText, u"Sobremesas");
    EXPECT_EQ(start.backColor, u"128");

    // An empty row shows the product selected in the list, with its code and price.
    start = LineEditing::startOf(document, { 1, 5, {}, {}, {}, {}, u"Mousse"_s });
    EXPECT_FALSE(start.holdsLine);
    EXPECT_EQ(start.mainText + u' ' + start.code + u' ' + start.price, u"Mousse 103 3.50");
}

TEST(LineEditing, TextsAreKeptUnderTheSlotForTitlesAndUnderTheCodeForProducts)
{
    EXPECT_EQ(LineEditing::textKey(TitleLine, 29, u"104"_s), 10029);
    EXPECT_EQ(LineEditing::textKey(NoteLine, 0, {}), 10000);
    EXPECT_EQ(LineEditing::textKey(ProductLine, 0, u"202"_s), 202);
    EXPECT_EQ(LineEditing::textKey(EmptyLine, 0, u"abc"_s), 0);
    MenuDocument document;
    LineEditing::storeText(document, 202, 3, u"Bistec"_s);
    EXPECT_EQ(document.LanguageTable.at(202, 4), u"Bistec");
    EXPECT_EQ(LineEditing::defaultColorIndex(NoteLine), 2);
    EXPECT_EQ(LineEditing::defaultColorIndex(ProductLine), 0);
}

TEST(LineEditing, ClosingBindsCreatesOrGivesUpTheProduct)
{
    MenuDocument document;
    addPlu(document, u"101"_s, u"Sopa"_s, u"3.00"_s);
    addPlu(document, u"102"_s, u"Bitoque"_s, u"9.50"_s);
    addPlu(document, u"103"_s, u"Mousse"_s, u"3.50"_s);
    using LineEditing::writeBack;

    // A product line takes the code and price on its product.
    writeBack(document, { 0, true, ProductLine, u"202"_s, u"10.00"_s, u"Bitoque"_s, u"1"_s, {} });
    EXPECT_EQ(document.Plus[1].Code + u' ' + document.Plus[1].Price, u"202 10.00");
    EXPECT_EQ(document.LineLayouts[0].text, u"Bitoque");

    // Without a product it becomes a new one at the end of the catalogue; without a code, nothing.
    writeBack(document, { 7, true, ProductLine, u"300"_s, u"11.00"_s, u"Arroz de pato"_s, u" "_s, {} });
    writeBack(document, { 8, true, ProductLine, {}, {}, u"Sem codigo"_s, u" "_s, {} });
    EXPECT_EQ(document.PluCount, 4);
    EXPECT_EQ(document.Plus[3], (PluRecord { u"300"_s, {}, u"300"_s, u"11.00"_s, u"Arroz de pato"_s }));
    EXPECT_EQ(document.LinePlu[7], 300);
    EXPECT_EQ(document.LineLayouts[7].kind, ProductLine);

    // An empty row stays empty.
    writeBack(document, { 9, false, ProductLine, u"400"_s, {}, {}, u" "_s, {} });
    EXPECT_EQ(document.LineLayouts[9].kind, EmptyLine);
    EXPECT_EQ(document.PluCount, 4);

    // A title gives up its product, whose code becomes "0".
    writeBack(document, { 2, true, TitleLine, u"103"_s, u"3.50"_s, u"Doces"_s, u"2"_s, {} });
    EXPECT_EQ(document.Plus[2].Code, u"0");
    EXPECT_EQ(document.Plus[2].Description, u"Mousse");
    EXPECT_EQ(document.LineLayouts[2].kind, TitleLine);
    EXPECT_EQ(document.LineLayouts[2].text, u"Doces");

    // Whatever the line, the product selected in the list takes the code and price.
    writeBack(document, { 5, false, ProductLine, u"303"_s, u"4.00"_s, {}, u" "_s, u"Sopa"_s });
    EXPECT_EQ(document.Plus[0].Code + u' ' + document.Plus[0].Price, u"303 4.00");
}

TEST(TranslationSource, TheRowNamedExactlyEnglishElseTheFirstRowWithAText)
{
    QStringList names { u"Portugues"_s, u"Italiano"_s, u"Frances"_s, u"English"_s, u"Espanol"_s };
    EXPECT_EQ(translationSource(names, { u"Sopa"_s, {}, {}, u"Soup"_s, {} }), 3);
    EXPECT_EQ(translationSource(names, { {}, {}, u"Soupe"_s, {}, {} }), 2);
    EXPECT_EQ(translationSource(names, QStringList(5)), -1);
    names[3] = u"english"_s;
    EXPECT_EQ(translationSource(names, { u"Sopa"_s, {}, {}, u"Soup"_s, {} }), 0);
}

TEST(PicturePaths, APictureInTheProjectFolderIsKeptRelativeToIt)
{
    const QString project = u"C:\\menus\\bar\\"_s;
    EXPECT_EQ(PicturePaths::relativePicturePath(u"C:/menus/bar/pics/soup.JPG"_s, project), u"pics/soup.JPG");
    EXPECT_EQ(
        PicturePaths::relativePicturePath(u"C:/menus/other/wine.JPG"_s, project), u"C:/menus/other/wine.JPG");
}
