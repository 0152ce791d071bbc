#include "AnsiCodec.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace {

// Characters of the bytes 0x80 to 0x9F; the rest of the code page is Latin-1.
constexpr std::array<char16_t, 32> HighControlBlock = {
    0x20AC,
    0x0081,
    0x201A,
    0x0192,
    0x201E,
    0x2026,
    0x2020,
    0x2021,
    0x02C6,
    0x2030,
    0x0160,
    0x2039,
    0x0152,
    0x008D,
    0x017D,
    0x008F,
    0x0090,
    0x2018,
    0x2019,
    0x201C,
    0x201D,
    0x2022,
    0x2013,
    0x2014,
    0x02DC,
    0x2122,
    0x0161,
    0x203A,
    0x0153,
    0x009D,
    0x017E,
    0x0178,
};

char16_t charOfByte(unsigned char byte)
{
    if (byte >= 0x80 && byte <= 0x9F) {
        return HighControlBlock[byte - 0x80u];
    }
    return byte;
}

int byteOfChar(char16_t ch)
{
    if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF)) {
        return ch;
    }
    for (std::size_t i = 0; i < HighControlBlock.size(); ++i) {
        if (HighControlBlock[i] == ch) {
            return static_cast<int>(0x80 + i);
        }
    }
    return '?';
}

} // namespace

namespace AnsiCodec {

QString decode(QByteArrayView bytes)
{
    // Latin-1, which Qt widens quickly, except for the bytes 0x80 to 0x9F.
    QString text = QString::fromLatin1(bytes);
    // Menus are mostly ASCII: eight bytes without a high bit are passed over at once.
    QChar* const out = text.data();
    const char* const in = bytes.data();
    const qsizetype size = bytes.size();
    for (qsizetype i = 0; i < size;) {
        std::uint64_t eight = 0;
        if (size - i >= 8
            && (std::memcpy(&eight, in + i, sizeof eight), (eight & 0x8080808080808080u) == 0)) {
            i += 8;
            continue;
        }
        const auto byte = static_cast<unsigned char>(in[i]);
        if (byte >= 0x80 && byte <= 0x9F) {
            out[i] = QChar(charOfByte(byte));
        }
        ++i;
    }
    return text;
}

void appendEncoded(QByteArray& out, QStringView text)
{
    // Written through pointers, four ASCII characters at a time where it can: appending byte by byte
    // costs more than the whole encoding.
    const qsizetype start = out.size();
    out.resize(start + text.size());
    char* const first = out.data() + start;
    char* next = first;
    const char16_t* in = text.utf16();
    const char16_t* const end = in + text.size();
    while (in != end) {
        if constexpr (std::endian::native == std::endian::little) {
            std::uint64_t four = 0;
            while (
                end - in >= 4 && (std::memcpy(&four, in, sizeof four), (four & 0xFF80FF80FF80FF80u) == 0)) {
                const auto bytes = static_cast<std::uint32_t>((four & 0xFFu) | ((four >> 8) & 0xFF00u)
                    | ((four >> 16) & 0xFF0000u) | ((four >> 24) & 0xFF000000u));
                std::memcpy(next, &bytes, sizeof bytes);
                next += 4;
                in += 4;
            }
        }
        if (in == end) {
            break;
        }
        const char16_t ch = *in++;
        if (QChar::isHighSurrogate(ch) && in != end && QChar::isLowSurrogate(*in)) {
            ++in;
        }
        *next++ = static_cast<char>(byteOfChar(ch));
    }
    out.truncate(start + (next - first));
}

QByteArray encode(QStringView text)
{
    QByteArray out;
    out.reserve(text.size());
    appendEncoded(out, text);
    return out;
}

} // namespace AnsiCodec
