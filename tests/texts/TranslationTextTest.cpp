#include "document/Fault.h"
#include "texts/TranslationService.h"
#include "texts/WebTranslationClient.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString decoded(QString text)
{
    WebTranslationClient::DecodeHtmlEntities(text);
    return text;
}

QString withCharacters(QString text)
{
    WebTranslationClient::replaceCharacterCodes(text);
    return text;
}

} // namespace

TEST(LanguageCodeTest, TheMenusSpellingsHaveCodesAndEverythingElseIsDetected)
{
    const auto code = WebTranslationClient::languageCode;
    EXPECT_EQ(code(u"Portugues"_s), u"pt"_s);
    EXPECT_EQ(code(u"kinisisk"_s), u"zh-CN"_s);
    EXPECT_EQ(code(u"koreansk"_s), u"ko"_s);
    EXPECT_EQ(code(u"Deutsch"_s), u"de"_s);
    for (const QString& name : { u"portuguese"_s, u"french"_s, u"german"_s, u"english"_s, u"none"_s }) {
        EXPECT_EQ(code(name), u"auto"_s) << name.toStdString();
    }
    // One or two characters are a code already, as typed.
    EXPECT_EQ(code(u"EN"_s), u"EN"_s);
    EXPECT_EQ(code(u"x"_s), u"x"_s);
    EXPECT_EQ(code(QString()), QString());
}

TEST(LanguageCodeTest, TargetsInAnotherScriptAreReachedFromDutch)
{
    for (const QString& target : { u"Arabic"_s, u"bulgarsk"_s, u"czech"_s, u"greek"_s, u"japansk"_s,
             u"kinisisk"_s, u"russian"_s, u"Urdu"_s, u"Persian"_s }) {
        QString source = u"English"_s;
        WebTranslationClient::checknChangeToDuche(target, source);
        EXPECT_EQ(source, u"dutch"_s) << target.toStdString();
    }
    for (const QString& target : { u"Deutsch"_s, u"Russian"_s, u"Hindi"_s, u"ru"_s }) {
        QString source = u"English"_s;
        WebTranslationClient::checknChangeToDuche(target, source);
        EXPECT_EQ(source, u"English"_s) << target.toStdString();
    }
}

TEST(ExtractResultTextTest, TheTextBetweenTheMarkersIsCutOutWithItsPosition)
{
    QString result = u"stale"_s;
    // The first '">' is before the span and does not count; positions are counted from 1.
    const QString page = u"<b class=\"x\">result_box<span title=\"a\">Hej</span>"_s;
    EXPECT_EQ(WebTranslationClient::ExtractResultText(page, result), page.indexOf(u"\">H"_s) + 1);
    EXPECT_EQ(result, u"Hej"_s);

    EXPECT_EQ(WebTranslationClient::ExtractResultText(u"result_box<span title=\"a\">Hej"_s, result), -1);
    EXPECT_EQ(result, QString());
    result = u"stale"_s;
    EXPECT_EQ(WebTranslationClient::ExtractResultText(u"<span title=\"a\">Hej</span>"_s, result), 0);
    EXPECT_EQ(result, QString());
    EXPECT_EQ(WebTranslationClient::ExtractResultText(u"result_box<span>Hej</span>"_s, result), 0);
}

TEST(DecodeHtmlEntitiesTest, TheReplacementsRunInTheirFixedOrder)
{
    // "&lt;" is decoded before the ampersands are, so one that only appears then stays.
    EXPECT_EQ(decoded(u"&amp;amp;lt;"_s), u"&lt;"_s);
    EXPECT_EQ(decoded(u"a/&gt;b&gt;c"_s), u"a>b>c"_s);
    EXPECT_EQ(decoded(u"a\nb\r\nc"_s), u"a\r\nb\r\r\nc"_s);
    EXPECT_EQ(decoded(u"&#8212;"_s), u"&-"_s);
    EXPECT_EQ(decoded(u"\u00e2\u2020\u0090\u00c3\u2020l %C3%A6"_s), u"\u00e6 \u00e6"_s);
    EXPECT_EQ(decoded(u"\u00b6\u00b1&#347;"_s), u"\u0153\u00b9\u0153"_s);
    EXPECT_EQ(decoded(u"\"\"\"\""_s), u"\"\""_s);
}

TEST(CharacterCodesTest, TokensBecomeTheirCharactersAndOthersAreATypeMismatch)
{
    EXPECT_EQ(withCharacters(u"<65><66>a<65>"_s), u"ABaA"_s);
    EXPECT_EQ(withCharacters(u"a < b"_s), u"a < b"_s);
    EXPECT_EQ(withCharacters(u"<8364>"_s), u"\u20ac"_s);
    EXPECT_THROW(withCharacters(u"<b>"_s), TypeFault);
    EXPECT_THROW(withCharacters(u"<>"_s), TypeFault);
}

TEST(TranslationServiceTest, AnAddressIsASchemeAHostAndAtMostAPort)
{
    for (const QString& address : { u"http://127.0.0.1:8080"_s, u"https://translate.example"_s,
             u"http://host/"_s, u"http://[::1]:80"_s }) {
        EXPECT_TRUE(TranslationService::isValidAddress(address)) << address.toStdString();
    }
    for (const QString& address :
        { QString(), u"ftp://host"_s, u"http://"_s, u"host:8080"_s, u"http://host/translate_t"_s,
            u"http://host?sl=en"_s, u"http://user@host"_s, u"http://ho st"_s }) {
        EXPECT_FALSE(TranslationService::isValidAddress(address)) << address.toStdString();
    }
}
