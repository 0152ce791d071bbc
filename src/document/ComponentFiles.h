#pragma once

#include "SafeWrite.h"

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

// Writes every component file under the document's FilePrefix, the set replaced as a whole: the new
// files are written aside, a journal marks them complete, then they take the old ones' places. Returns
// what could not be written and why; after any failure every file is as it was.
WriteFailures save(const MenuDocument& document);

// Settles a save under the prefix that was cut off: one whose journal was written is finished, the files
// of one without are thrown away. Afterwards the files are all of one save.
void recover(const QString& prefix);

// Reads the component files under the document's FilePrefix into the document, after settling a save
// that was cut off. A file that cannot be opened is skipped and its tables keep what they hold (the
// printer settings take their defaults); a line that makes no sense is passed over. Returns how many of
// the files were found.
int load(MenuDocument& document);

// The bytes of the component file with the given suffix; nothing when it cannot be opened.
using FileSource = std::function<std::optional<QByteArray>(const QString& suffix)>;

// The same, with the files' bytes taken from the source instead of the disk.
int load(MenuDocument& document, const FileSource& source);

} // namespace ComponentFiles
