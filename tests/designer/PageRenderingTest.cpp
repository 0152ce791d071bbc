#include "designer/PageRendering.h"

#include "document/MenuDocument.h"
#include "document/PluNumberIndex.h"
#include "support/QtPrinters.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace PageRendering;

namespace {

// Loads the paths it is given and records every attempt.
struct RecordingLoader
{
    QStringList existing;
    QStringList tried;

    PictureLoader loader()
    {
        return [this](const QString& path) {
            tried.append(path);
            return existing.contains(path);
        };
    }
};

} // namespace

TEST(PageRendering, LastUsedPageIsTheLastLetteredPageWithABoundProduct)
{
    MenuDocument document;
    EXPECT_EQ(LastUsedPage(document), 0);

    document.LinePlu[lineSlot(13, 0)] = 7;
    document.LinePlu[lineSlot(14, 23)] = 7;
    document.LinePlu[lineSlot(9, 4)] = -3;
    EXPECT_EQ(LastUsedPage(document), 0);

    document.LinePlu[lineSlot(3, 0)] = 7;
    document.LinePlu[lineSlot(1, 23)] = 7;
    EXPECT_EQ(LastUsedPage(document), 3);
    document.LinePlu[lineSlot(12, 23)] = 1;
    EXPECT_EQ(LastUsedPage(document), 12);
}

TEST(PageRendering, MagnetLetters)
{
    // Products last on page 3: it is "L" and the pages before it count back; past the letters, the
    // blank and then nothing.
    const QStringList countingBack { QStringLiteral("J"), QStringLiteral("K"), QStringLiteral("L"),
        QStringLiteral(" "), QString() };
    for (int page = 1; page <= 5; ++page) {
        EXPECT_EQ(magnetLetter(page, QStringLiteral("0"), 3), countingBack[page - 1]) << page;
    }
    EXPECT_EQ(magnetLetter(1, QStringLiteral("0"), 12), QStringLiteral("A"));
    EXPECT_EQ(magnetLetter(12, QStringLiteral("0"), 12), QStringLiteral("L"));

    const QString fixed = QStringLiteral("DEFGHIJKLABC");
    for (int page = 1; page <= 12; ++page) {
        EXPECT_EQ(magnetLetter(page, QStringLiteral("1"), 5), fixed.mid(page - 1, 1)) << page;
    }

    for (const QString& version : { QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("x") }) {
        EXPECT_EQ(magnetLetter(13, version, 0), QString());
        EXPECT_EQ(magnetLetter(14, version, 12), QString());
    }
    EXPECT_EQ(magnetLetter(1, QStringLiteral(" 1"), 0), std::nullopt);
    EXPECT_EQ(magnetLetter(1, QString(), 0), std::nullopt);
    EXPECT_THROW(magnetLetter(0, QStringLiteral("0"), 12), RangeFault);
}

TEST(PageRendering, GetColorFallsBackOnlyForAnEmptyText)
{
    EXPECT_EQ(GetColor(QString(), QStringLiteral("33023")), QStringLiteral("33023"));
    EXPECT_EQ(GetColor(QStringLiteral("0"), QStringLiteral("33023")), QStringLiteral("0"));
    EXPECT_EQ(GetColor(QStringLiteral(" "), QStringLiteral("33023")), QStringLiteral(" "));
    EXPECT_EQ(colorNumber(QStringLiteral(" 255 ")), 255);
    EXPECT_EQ(colorNumber(QStringLiteral("red")), 0);
}

TEST(PageRendering, PicturesAreLookedForInTheProjectFolder)
{
    const QString folder = QStringLiteral("/menus/");

    RecordingLoader bare { { QStringLiteral("/menus/a.png") }, {} };
    EXPECT_EQ(findPicture(QStringLiteral("a.png"), folder, bare.loader()),
        (PictureLookup { QStringLiteral("/menus/a.png"), true }));
    EXPECT_EQ(bare.tried, QStringList { QStringLiteral("/menus/a.png") });

    for (const QString& moved : { QStringLiteral("C:\\old\\b.png"), QStringLiteral("/old/b.png"),
             QStringLiteral("x/y\\b.png"), QStringLiteral("x\\y/b.png") }) {
        RecordingLoader loader { { QStringLiteral("/menus/b.png") }, {} };
        EXPECT_EQ(findPicture(moved, folder, loader.loader()),
            (PictureLookup { QStringLiteral("/menus/b.png"), true }));
        EXPECT_EQ(loader.tried, (QStringList { moved, QStringLiteral("/menus/b.png") }));
    }

    RecordingLoader where { { QStringLiteral("/old/c.png"), QStringLiteral("/menus/c.png") }, {} };
    EXPECT_EQ(
        findPicture(QStringLiteral("/old/c.png"), folder, where.loader()).path, QStringLiteral("/old/c.png"));

    RecordingLoader none;
    EXPECT_EQ(findPicture(QStringLiteral("d.jpg"), folder, none.loader()),
        (PictureLookup { QStringLiteral("/menus/d.jpg"), false }));
    EXPECT_EQ(none.tried, QStringList(2, QStringLiteral("/menus/d.jpg")));

    // A side without a picture ends up with the project folder as its path.
    EXPECT_EQ(findPicture(QString(), folder, none.loader()), (PictureLookup { folder, false }));
}

TEST(PageRendering, AGroupPictureCoversTheRowsMarkedBelowItUpToThePageEnd)
{
    MenuDocument document;
    document.ProjectFolder = QStringLiteral("/p/");
    const PluNumberIndex catalogue(document);
    RecordingLoader loader { { QStringLiteral("/p/g.png") }, {} };
    const auto start = [&](int page, int row) {
        document.LineLayouts[lineSlot(page, row)].pictureRole = GroupStart;
        document.LineLayouts[lineSlot(page, row)].picturePath = QStringLiteral("g.png");
    };
    const auto cover = [&](int page, int first, int last) {
        for (int row = first; row <= last; ++row) {
            document.LineLayouts[lineSlot(page, row)].pictureRole = CoveredByPicture;
        }
    };

    start(1, 0);
    cover(1, 1, 23);
    cover(2, 0, 0);
    RowView whole = describeRow(document, catalogue, 1, 0, loader.loader());
    EXPECT_EQ(whole.pictureRows, 24);
    EXPECT_EQ(whole.pictureTag, QStringLiteral("165.12"));
    EXPECT_EQ(whole.picture, (PictureLookup { QStringLiteral("/p/g.png"), true }));
    EXPECT_TRUE(whole.pictureBoxVisible);
    EXPECT_FALSE(describeRow(document, catalogue, 1, 23, loader.loader()).pictureBoxVisible);

    start(1, 23);
    EXPECT_EQ(describeRow(document, catalogue, 1, 23, loader.loader()).pictureTag, QStringLiteral("6.88"));
    start(2, 10);
    cover(2, 11, 11);
    document.LineLayouts[lineSlot(2, 12)].pictureRole = 0;
    cover(2, 13, 14);
    EXPECT_EQ(describeRow(document, catalogue, 2, 10, loader.loader()).pictureTag, QStringLiteral("13.76"));
    start(2, 12);
    EXPECT_EQ(describeRow(document, catalogue, 2, 12, loader.loader()).pictureTag, QStringLiteral("20.64"));

    // A start without a picture path covers nothing and looks for nothing.
    document.LineLayouts[lineSlot(3, 0)].pictureRole = GroupStart;
    document.LineLayouts[lineSlot(3, 0)].picturePath = QStringLiteral("  ");
    loader.tried.clear();
    const RowView blank = describeRow(document, catalogue, 3, 0, loader.loader());
    EXPECT_EQ(blank.pictureRows, 0);
    EXPECT_EQ(blank.pictureTag, QString());
    EXPECT_TRUE(loader.tried.isEmpty());

    // Only a row that shows a picture stores where it was found.
    storeRow(document, 3, 0, blank);
    EXPECT_EQ(document.LineLayouts[lineSlot(3, 0)].picturePath, QStringLiteral("  "));
    storeRow(document, 1, 0, whole);
    EXPECT_EQ(document.LineLayouts[lineSlot(1, 0)].picturePath, QStringLiteral("/p/g.png"));
}

TEST(PageRendering, DescribingASideLeavesTheDocumentAsItWas)
{
    MenuDocument document;
    document.ProjectFolder = QStringLiteral("/p/");
    document.PrintSettings.PageColorB[6].clear();
    document.PrintSettings.PageValueB[6] = QStringLiteral("b.jpg");
    RecordingLoader loader;
    const MenuDocument before = document;
    const SideView back = describeSide(document, 6, Side::Back, loader.loader());
    EXPECT_EQ(back.colorText, QStringLiteral("14745599"));
    EXPECT_EQ(back.color, 0xE0FFFF);
    EXPECT_EQ(document, before);

    storeSide(document, 6, Side::Back, back);
    EXPECT_EQ(document.PrintSettings.PageColorB[6], QStringLiteral("14745599"));
    EXPECT_EQ(document.PrintSettings.PageValueB[6], QStringLiteral("/p/b.jpg"));
    EXPECT_EQ(document.PrintSettings.PageColorA[6], before.PrintSettings.PageColorA[6]);
}

TEST(PageRendering, FrontStyleByKind)
{
    MenuDocument document;
    const PluNumberIndex catalogue(document);
    const PictureLoader never = [](const QString&) { return false; };
    const struct
    {
        std::int32_t kind;
        std::optional<FrontStyle> style;
    } kinds[] = {
        { EmptyLine, FrontStyle { 33023, 0, 13 } },
        { ProductLine, FrontStyle { 33023, 0, 13 } },
        { TitleLine, FrontStyle { 0, 16777215, 14 } },
        { NoteLine, FrontStyle { 15724527, 0, 9 } },
        { 4, std::nullopt },
        { -1, std::nullopt },
    };
    for (const auto& expected : kinds) {
        document.LineLayouts[lineSlot(7, 5)].kind = expected.kind;
        EXPECT_EQ(describeRow(document, catalogue, 7, 5, never).front, expected.style) << expected.kind;
    }
}
