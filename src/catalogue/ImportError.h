#pragma once

#include "document/Fault.h"

#include <QDir>

// A source that cannot be imported. Like any fault it ends the handler with its message, and since
// every source is read and checked whole before the document is cleared, the document stays as it was.
class ImportError : public Fault
{
public:
    ImportError(const QString& path, const QString& problem)
        : Fault(QStringLiteral("Cannot import \"%1\": %2.").arg(QDir::toNativeSeparators(path), problem))
    { }
};
