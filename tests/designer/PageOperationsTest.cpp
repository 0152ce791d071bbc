#include "designer/PageOperations.h"

#include "document/Fault.h"
#include "document/MenuDocument.h"
#include "support/DocumentDiff.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>
#include <memory>

using namespace PageOperations;
using namespace Qt::StringLiterals;

namespace {

constexpr int SpareSlot = Limits::LineSlotCount - 1;

// Everything a line can hold, every field telling which line it started on.
void putLine(MenuDocument& d, int slot, int origin)
{
    const QString n = QString::number(origin);
    d.LinePlu[slot] = 5000 + origin;
    LineLayout& line = d.LineLayouts[slot];
    line.text = u"text "_s + n;
    line.kind = origin % 3 + 1;
    line.backColor = QString::number(origin * 3 + 1);
    line.foreColor = QString::number(origin * 3 + 2);
    line.field5 = origin + 1;
    line.backText = u"group "_s + n;
    line.backBackColor = QString::number(origin * 7 + 1);
    line.backForeColor = QString::number(origin * 7 + 2);
    line.picturePath = u"picture"_s + n + u".jpg"_s;
    line.pictureRole = origin % 2 == 0 ? GroupStart : CoveredByPicture;
    for (int language = 1; language <= Limits::LanguageCount; ++language) {
        const QString suffix = u" of "_s + n + u" in "_s + QString::number(language);
        d.LanguageTable.at(TextKey::LineTextBase + slot, language) = u"title"_s + suffix;
        d.LanguageTable.at(TextKey::GroupTitleBase + slot, language) = u"group title"_s + suffix;
    }
}

// What clearing leaves of a line that held origin's content.
void putClearedLine(MenuDocument& d, int slot, int origin)
{
    putLine(d, slot, origin);
    const LineLayout kept = d.LineLayouts[slot];
    LineLayout& line = d.LineLayouts[slot] = LineLayout();
    line.text = kept.text;
    line.backForeColor = kept.backForeColor;
    line.field5 = kept.field5;
    d.LinePlu[slot] = 0;
    for (int language = 1; language <= Limits::LanguageCount; ++language) {
        d.LanguageTable.at(TextKey::LineTextBase + slot, language).clear();
        d.LanguageTable.at(TextKey::GroupTitleBase + slot, language).clear();
    }
}

// A row the dialog unbound: no product, a product line, the rest as it was.
void putUnboundLine(MenuDocument& d, int slot, int origin)
{
    putLine(d, slot, origin);
    d.LinePlu[slot] = 0;
    d.LineLayouts[slot].kind = ProductLine;
}

void putPageValues(MenuDocument& d, int page, int origin)
{
    const QString n = QString::number(origin);
    d.PrintSettings.PageColorA[page] = QString::number(origin * 11);
    d.PrintSettings.PageColorB[page] = QString::number(origin * 13);
    d.PrintSettings.PageValueA[page] = u"front"_s + n + u".jpg"_s;
    d.PrintSettings.PageValueB[page] = u"back"_s + n + u".jpg"_s;
}

void putPage(MenuDocument& d, int page, int origin)
{
    for (int r = 0; r < Limits::RowsPerPage; ++r) {
        putLine(d, lineSlot(page, r), lineSlot(origin, r));
    }
    putPageValues(d, page, origin);
}

void putEmptyPage(MenuDocument& d, int page)
{
    for (int r = 0; r < Limits::RowsPerPage; ++r) {
        putClearedLine(d, lineSlot(page, r), lineSlot(page, r));
    }
    d.PrintSettings.PageColorA[page].clear();
    d.PrintSettings.PageColorB[page].clear();
    d.PrintSettings.PageValueA[page].clear();
    d.PrintSettings.PageValueB[page].clear();
}

// Every line and page marked with where it started, and products with texts of their own under
// their numbers, which no page operation may carry along.
std::unique_ptr<MenuDocument> markedMenu()
{
    auto document = std::make_unique<MenuDocument>();
    MenuDocument& d = *document;
    for (int slot = 0; slot < Limits::LineSlotCount; ++slot) {
        putLine(d, slot, slot);
        d.LanguageTable.at(5000 + slot, 1) = u"product text "_s + QString::number(slot);
    }
    for (int page = 1; page <= Limits::PageCount; ++page) {
        putPageValues(d, page, page);
    }
    d.Plus[0].Code = u"5000"_s;
    d.Plus[0].Description = u"First product"_s;
    d.PluCount = 1;
    return document;
}

} // namespace

TEST(PageOperations, ClearingALineKeepsItsOwnTextAndBackTextColourOnly)
{
    auto d = markedMenu();
    const LineLayout before = d->LineLayouts[30];
    clearLine(*d, 30);

    const LineLayout& line = d->LineLayouts[30];
    EXPECT_EQ(line.text, before.text);
    EXPECT_EQ(line.backForeColor, before.backForeColor);
    for (const QString* emptied :
        { &line.backColor, &line.foreColor, &line.backText, &line.backBackColor, &line.picturePath }) {
        EXPECT_EQ(*emptied, QString());
    }
    EXPECT_EQ(line.kind, EmptyLine);
    EXPECT_EQ(line.pictureRole, 0);
    EXPECT_EQ(d->LinePlu[30], 0);
    for (int language = 1; language <= Limits::LanguageCount; ++language) {
        EXPECT_EQ(d->LanguageTable.at(10030, language), QString());
        EXPECT_EQ(d->LanguageTable.at(11030, language), QString());
    }
    // Neighbours, the product's own texts and the language names are not lines' texts.
    EXPECT_EQ(d->LanguageTable.at(10029, 1), u"title of 29 in 1"_s);
    EXPECT_EQ(d->LanguageTable.at(11031, 5), u"group title of 31 in 5"_s);
    EXPECT_EQ(d->LanguageTable.at(5030, 1), u"product text 30"_s);
}

TEST(PageOperations, InsertOnPage3MovesPages3To13OnAndLosesPage14)
{
    auto d = markedMenu();
    InsertPage(*d, 3);

    auto expected = markedMenu();
    for (int page = 4; page <= 14; ++page) {
        putPage(*expected, page, page - 1);
    }
    putEmptyPage(*expected, 3);
    putLine(*expected, SpareSlot, lineSlot(14, 0)); // all that is left of page 14
    EXPECT_EQ(firstDifference(*expected, *d), QString());

    // The old page 3 is now page 4, also as the page view finds it.
    EXPECT_EQ(d->LinePlu[lineSlot(4, 7)], 5000 + lineSlot(3, 7));
    EXPECT_EQ(d->LanguageTable.at(TextKey::GroupTitleBase + lineSlot(4, 7), 5),
        QString(u"group title of "_s + QString::number(lineSlot(3, 7)) + u" in 5"_s));
    EXPECT_EQ(d->PrintSettings.PageValueB[4], u"back3.jpg"_s);
}

TEST(PageOperations, InsertOnPage14EmptiesPage14Only)
{
    auto d = markedMenu();
    InsertPage(*d, 14);

    auto expected = markedMenu();
    putEmptyPage(*expected, 14);
    putLine(*expected, SpareSlot, lineSlot(14, 0));
    EXPECT_EQ(firstDifference(*expected, *d), QString());
}

TEST(PageOperations, DeleteOnPage3MovesPages4To14ForwardAndEmptiesPage14)
{
    auto d = markedMenu();
    DeletePage(*d, 3);

    auto expected = markedMenu();
    for (int page = 3; page <= 13; ++page) {
        putPage(*expected, page, page + 1);
    }
    putEmptyPage(*expected, 14);
    // Page 14's first line took the spare slot's content before it was cleared; the spare keeps it.
    putClearedLine(*expected, lineSlot(14, 0), SpareSlot);
    EXPECT_EQ(firstDifference(*expected, *d), QString());
}

TEST(PageOperations, DeleteOnPage14LeavesItEmpty)
{
    auto d = markedMenu();
    DeletePage(*d, 14);

    auto expected = markedMenu();
    putEmptyPage(*expected, 14);
    putClearedLine(*expected, lineSlot(14, 0), SpareSlot);
    EXPECT_EQ(firstDifference(*expected, *d), QString());
}

TEST(PageOperations, MoveUpOnRow5PullsTheRowsBelowUpAndUnbindsTheLastRow)
{
    auto d = markedMenu();
    MoveRowUp(*d, 7, 5);

    auto expected = markedMenu();
    for (int r = 5; r <= 22; ++r) {
        putLine(*expected, lineSlot(7, r), lineSlot(7, r + 1));
    }
    putUnboundLine(*expected, lineSlot(7, 23), lineSlot(7, 23));
    EXPECT_EQ(firstDifference(*expected, *d), QString());
}

TEST(PageOperations, MoveDownOnRow5PushesTheRowsDownAndLosesRow23)
{
    auto d = markedMenu();
    MoveRowDown(*d, 7, 5);

    auto expected = markedMenu();
    for (int r = 6; r <= 23; ++r) {
        putLine(*expected, lineSlot(7, r), lineSlot(7, r - 1));
    }
    // The vacated row keeps its texts and group title: the same back text stands on rows 5 and 6.
    putUnboundLine(*expected, lineSlot(7, 5), lineSlot(7, 5));
    EXPECT_EQ(firstDifference(*expected, *d), QString());
}

TEST(PageOperations, MovingRow23OnlyUnbindsIt)
{
    for (const auto move : { &MoveRowUp, &MoveRowDown }) {
        auto d = markedMenu();
        move(*d, 14, 23);
        auto expected = markedMenu();
        putUnboundLine(*expected, lineSlot(14, 23), lineSlot(14, 23));
        EXPECT_EQ(firstDifference(*expected, *d), QString());
    }
}

TEST(PageOperations, DeleteTurnsATitleIntoAnEmptyProductRowKeepingTheRest)
{
    auto d = markedMenu();
    const int slot = lineSlot(2, 9);
    d->LineLayouts[slot].kind = TitleLine;
    DeleteRow(*d, 2, 9);

    auto expected = markedMenu();
    putUnboundLine(*expected, slot, slot);
    EXPECT_EQ(firstDifference(*expected, *d), QString());
    EXPECT_EQ(d->LineLayouts[slot].text, QString(u"text "_s + QString::number(slot)));
}

TEST(PageOperations, APageOrRowOutsideTheTablesChangesNothing)
{
    auto d = markedMenu();
    EXPECT_THROW(InsertPage(*d, 0), RangeFault);
    EXPECT_THROW(InsertPage(*d, 15), RangeFault);
    EXPECT_THROW(DeletePage(*d, 0), RangeFault);
    EXPECT_THROW(DeletePage(*d, 15), RangeFault);
    EXPECT_THROW(DeleteRow(*d, 1, 24), RangeFault);
    EXPECT_THROW(MoveRowUp(*d, 1, -1), RangeFault);
    EXPECT_THROW(MoveRowDown(*d, 15, 0), RangeFault);
    EXPECT_THROW(MoveRowDown(*d, 3, 24), RangeFault);
    EXPECT_EQ(firstDifference(*markedMenu(), *d), QString());
}
