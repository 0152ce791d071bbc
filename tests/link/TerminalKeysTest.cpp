#include "document/MenuDocument.h"
#include "link/MenuTransmission.h"
#include "link/TerminalText.h"
#include "support/QtPrinters.h"
#include "support/SimulatedLink.h"

#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;

TEST(TerminalText, FiveLongTextsAreCutToNinetyCharactersWithTheHeaderAtMostNinety)
{
    auto document = std::make_unique<MenuDocument>();
    LanguageTable& texts = document->LanguageTable;
    for (int language = 1; language <= 5; ++language) {
        texts.at(500, language) = QString(20, QChar(u'0' + language));
    }
    const QString text = terminalText(texts, 500, false);
    ASSERT_EQ(text.size(), 90);
    EXPECT_EQ(text,
        terminalText({ 26, 46, 66, 86, 90 },
            QString(20, u'1') + QString(20, u'2') + QString(20, u'3') + QString(20, u'4')
                + QString(4, u'5')));

    // Texts of blanks only count as empty; old firmware takes the first text as it stands.
    texts.at(501, 1) = u"  Soup "_s;
    texts.at(501, 2) = u"   "_s;
    EXPECT_EQ(terminalText(texts, 501, false), terminalText({ 10, 10, 10, 10, 10 }, u"Soup"_s));
    EXPECT_EQ(terminalText(texts, 501, true), u"  Soup "_s);
    EXPECT_THROW(terminalText(texts, 11337, false), RangeFault);
}

TEST(GetBotao, KeysFollowTheFirstLineFromSlotOneAndTheLastPagesMoveUpUnlessThirteenPages)
{
    auto document = std::make_unique<MenuDocument>();
    document->LinePlu[0] = 7;
    EXPECT_EQ(GetBotao(*document, 7, false, 1), 0); // slot 0 is not searched
    document->LinePlu[lineSlot(3, 5)] = 7;
    document->LinePlu[lineSlot(2, 5)] = 7;
    EXPECT_EQ(GetBotao(*document, 7, false, 1), lineSlot(2, 5) + 1);
    EXPECT_EQ(GetBotao(*document, 0, true, 1), 0);

    document->LinePlu[lineSlot(13, 0)] = 8;
    document->LinePlu[lineSlot(14, 23)] = 9;
    EXPECT_EQ(GetBotao(*document, 8, false, 9), 289);
    EXPECT_EQ(GetBotao(*document, 8, true, 9), 289);
    EXPECT_EQ(GetBotao(*document, 8, false, 4), (12 + 9 - 4) * 24 + 1);
    EXPECT_EQ(GetBotao(*document, 9, false, 4), (13 + 9 - 4) * 24 + 24);
    EXPECT_EQ(GetBotao(*document, 9, true, 4), 336);
}
