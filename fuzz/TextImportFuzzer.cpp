// The text imports over any file: the first byte chooses the CSV import (even) or the import of the
// exchange file (odd); the rest is the file.
#include "catalogue/ProductImport.h"
#include "document/Fault.h"
#include "document/MenuDocument.h"
#include "document/WorkingPaths.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static QTemporaryDir root;
    static const bool rootSet = qputenv("QUORVEL_ROOT", QFile::encodeName(root.path()));
    static const auto fresh = std::make_unique<const MenuDocument>();
    static const auto document = std::make_unique<MenuDocument>();
    if (size == 0 || !rootSet) {
        return 0;
    }
    const bool csv = data[0] % 2 == 0;
    const QString path = csv ? root.filePath(QStringLiteral("import.csv")) : WorkingPaths::exchangeFile();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return 0;
    }
    file.write(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    file.close();

    ProductImport import(*document, [] { *document = *fresh; });
    try {
        if (csv) {
            import.fromCsv(path);
        } else {
            import.fromLastSent();
        }
    } catch (const Fault&) {
        // More lines than the catalogue holds is the handler's message, not a crash.
    }
    return 0;
}
