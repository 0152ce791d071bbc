#include "document/AnsiCodec.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

TEST(AnsiCodec, EveryByteSurvivesADecodeAndEncode)
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte) {
        all.append(static_cast<char>(byte));
    }
    const QString text = AnsiCodec::decode(all);
    ASSERT_EQ(text.size(), 256);
    EXPECT_EQ(AnsiCodec::encode(text), all);
}

TEST(AnsiCodec, MapsTheWindowsCharacters)
{
    EXPECT_EQ(AnsiCodec::decode("\x80\x9c\xe9\x41"), QString::fromUtf8("€œéA"));
    EXPECT_EQ(AnsiCodec::encode(QString::fromUtf8("Café €5 – “ok”")),
        QByteArray("Caf\xe9 \x80"
                   "5 \x96 \x93ok\x94"));
    // The five bytes without a character of their own stand for the control characters of that number.
    EXPECT_EQ(
        AnsiCodec::decode("\x81\x8d\x8f\x90\x9d"), QString::fromUtf16(u"\u0081\u008d\u008f\u0090\u009d"));
}

TEST(AnsiCodec, CharactersOutsideTheCodePageBecomeOneQuestionMarkEach)
{
    EXPECT_EQ(AnsiCodec::encode(QString::fromUtf8("Ā日本")), QByteArray("???"));
    EXPECT_EQ(AnsiCodec::encode(QString::fromUtf8("a😀b")), QByteArray("a?b"));
    EXPECT_EQ(AnsiCodec::encode(QString(QString(QChar(0xD800)) + u'x')), QByteArray("?x"));
}
