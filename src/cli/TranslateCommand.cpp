#include "TranslateCommand.h"

#include "CliCommand.h"
#include "texts/WebTranslationClient.h"

#include <cstdio>

using namespace Qt::StringLiterals;

int runTranslate(const QStringList& arguments)
{
    CommandParser parser(u"translate"_s,
        u"Translates TEXT through the web translation service at $QUORVEL_TRANSLATE_URL, else at the address "
        u"set in the designer, and prints the translation alone."_s);
    parser.addPositional(u"TEXT"_s, u"Text to translate"_s);
    parser.addPositional(u"SOURCE_LANGUAGE"_s,
        u"Language of the text, by the menu's name for it (English, Deutsch, Frances, ...) or a code of "
        u"one or two characters"_s);
    parser.addPositional(u"TARGET_LANGUAGE"_s, u"Language to translate into, named the same way"_s);
    if (!parser.parse(arguments)) {
        return 0;
    }

    WebTranslationClient client;
    QString sourceLanguage = parser.positional(1);
    const Translation translation
        = client.TranslateUnicode(parser.positional(0), sourceLanguage, parser.positional(2), nullptr);
    // The designer would show each message in a box of its own; a script reads one line.
    if (!translation.text) {
        throw CliError(translation.messages.join(u' '));
    }
    const QByteArray line = translation.text->toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    return 0;
}
