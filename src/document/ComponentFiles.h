#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

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

} // namespace ComponentFiles
