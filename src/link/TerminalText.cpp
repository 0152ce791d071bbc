#include "TerminalText.h"

#include "document/Blanks.h"
#include "document/MenuDocument.h"

#include <algorithm>
#include <array>

namespace {

constexpr int HeaderLength = 6;
constexpr int TerminalTextLimit = 90;

using Parts = std::array<QStringView, Limits::LanguageCount>;

// The texts that are joined, one a language; a language named "Note" counts as empty.
Parts joinedParts(const LanguageTable& texts, int key)
{
    Parts parts;
    for (int language = 1; language <= Limits::LanguageCount; ++language) {
        if (texts.at(TextKey::LanguageNames, language) != u"Note") {
            parts[static_cast<std::size_t>(language - 1)] = trimBlanks(texts.at(key, language));
        }
    }
    return parts;
}

} // namespace

QString terminalText(const LanguageTable& texts, int key, bool oldFirmware)
{
    if (oldFirmware) {
        return texts.at(key, 1);
    }
    const Parts parts = joinedParts(texts, key);
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

QList<int> cutLanguages(const LanguageTable& texts, int key)
{
    QList<int> cut;
    qsizetype end = HeaderLength;
    const Parts parts = joinedParts(texts, key);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        end += parts[i].size();
        if (!parts[i].isEmpty() && end > TerminalTextLimit) {
            cut.append(static_cast<int>(i) + 1);
        }
    }
    return cut;
}
