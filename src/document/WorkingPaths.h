#pragma once

#include <QString>

// Where the working copy of the document lives.
namespace WorkingPaths {

// $QUORVEL_ROOT when set, else C:/orvik on Windows and ~/orvik elsewhere.
QString workingRoot();
// The working root's temp_orvik folder, which holds the autosaved document.
QString workingFolder();
// The component file prefix of the autosaved document: the working folder's files named "temp...".
QString workingPrefix();
// The working root's pludata.txt: the products last sent to the terminals, and the lines the
// spreadsheet imports leave for the import of those products.
QString exchangeFile();

// Creates the working root and folder; a folder that already exists, or one that cannot be made, is
// passed over without a word.
void ensureWorkingFolder();

} // namespace WorkingPaths
