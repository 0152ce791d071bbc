// The component-file loader over any bytes. The input is cut at zero bytes into the files the loader
// asks for, in the order it asks; a file past the last piece is missing.
#include "document/ComponentFiles.h"
#include "document/MenuDocument.h"

#include <QByteArray>

#include <cstdint>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QList<QByteArray> pieces
        = QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)).split('\0');
    qsizetype next = 0;
    // Copying into one document costs far less than allocating its tables anew for every input.
    static const auto fresh = std::make_unique<const MenuDocument>();
    static const auto document = std::make_unique<MenuDocument>();
    *document = *fresh;
    ComponentFiles::load(*document, [&](const QString&) -> std::optional<QByteArray> {
        if (next >= pieces.size()) {
            return std::nullopt;
        }
        return pieces.at(next++);
    });
    return 0;
}
