// The translation service's result page, as any server could send it: cut out and decoded.
#include "document/AnsiCodec.h"
#include "document/Fault.h"
#include "texts/WebTranslationClient.h"

#include <QByteArrayView>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString page = AnsiCodec::decode(QByteArrayView(data, static_cast<qsizetype>(size)));
    QString result;
    WebTranslationClient::ExtractResultText(page, result);
    // Both the cut-out text and the whole page reach the decoder: a server decides what sits inside.
    for (const QString& raw : { result, page }) {
        try {
            WebTranslationClient::decodeResult(raw);
        } catch (const Fault&) {
            // A reference that is not a number is the user's message box, not a crash.
        }
    }
    return 0;
}
