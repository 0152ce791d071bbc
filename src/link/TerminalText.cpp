#include "TerminalText.h"

#include "document/Blanks.h"
#include "document/MenuDocument.h"

#include <algorithm>
#include <array>

namespace {

constexpr int HeaderLength = 6;
constexpr int TerminalTextLimit = 90;

} // namespace

QString terminalText(const LanguageTable& texts, int key, bool oldFirmware)
{
    if (oldFirmware) {
        return texts.at(key, 1);
    }
    std::array<QStringView, Limits::LanguageCount> parts;
    for (int language = 1; language <= Limits::LanguageCount; ++language) {
        if (texts.at(TextKey::LanguageNames, language) != u"Note") {
            parts[static_cast<std::size_t>(language - 1)] = trimBlanks(texts.at(key, language));
        }
    }
    QString text;
    text.reserve(HeaderLength + Limits::LanguageCount * TerminalTextLimit);
    qsizetype nextStart = HeaderLength;
    text += QChar(HeaderLength);
    for (const QStringView part : parts) {
        nextStart += part.size();
        text += QChar(static_cast<char16_t>(std::min<qsizetype>(nextStart, TerminalTextLimit)));
    }
    for (const QStringView part : parts) {
        text += part;
    }
    text.truncate(TerminalTextLimit);
    return text;
}
