#pragma once

#include "SafeWrite.h"

#include <QString>

class MenuDocument;

// A project on disk: the marker file NAME.QV1 and the component files beside it named NAME_....
namespace Project {

// The folder of a path, up to and including its last separator ("/" or "\").
QString folderOf(const QString& path);

// The component file prefix of a chosen marker file: the path before its last ".". Opening does not
// look where that "." stands, so a dot in a folder name cuts there; a path without any "." is taken whole.
QString openedPrefix(const QString& path);

// The prefix a save under the chosen path writes to: the path before its last "." when that "." lies
// in the file name, else the whole path ("menus/x.y/menu" saves as "menus/x.y/menu").
QString savedPrefix(const QString& path);

// Points the document at the project of the chosen marker file and loads its component files.
void open(MenuDocument& document, const QString& markerPath);

// Points the document at the chosen path and writes the marker file and all component files there.
// Returns what could not be written and why.
WriteFailures save(MenuDocument& document, const QString& chosenPath);

// Starts an empty menu: empties the document's tables and deletes the files of the working folder, or
// moves them into keepIn when it is given, so that the change can be undone. Page version "1", no
// language names, no page colours or pictures. Returns the names of the files moved.
QStringList clear(MenuDocument& document, const QString& keepIn = {});

// Empties the document's tables as clear does, leaving the working folder alone.
void clearTables(MenuDocument& document);

} // namespace Project
