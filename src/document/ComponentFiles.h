#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class MenuDocument;

// The document on disk: a family of text files named by the document's FilePrefix and a fixed suffix.
namespace ComponentFiles {

struct File
{
    QString suffix; // "_pludata.txt", ...
    QByteArray bytes;
};

// Every component file's bytes, in the order they are written.
QList<File> render(const MenuDocument& document);

// Writes every component file under the document's FilePrefix. Each file is replaced whole or not at
// all. Returns the paths that could not be written.
QStringList save(const MenuDocument& document);

// Reads the component files under the document's FilePrefix into the document. A file that cannot be
// opened is skipped and its tables keep what they hold (the printer settings take their defaults);
// a line that makes no sense is passed over. Returns how many of the files were found.
int load(MenuDocument& document);

// The bytes of the component file with the given suffix; nothing when it cannot be opened.
using FileSource = std::function<std::optional<QByteArray>(const QString& suffix)>;

// The same, with the files' bytes taken from the source instead of the disk.
int load(MenuDocument& document, const FileSource& source);

} // namespace ComponentFiles
