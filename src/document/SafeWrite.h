#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class QSettings;

// A write that did not happen: the file it was meant for and the system's reason ("No space left on
// device", "File too large").
struct WriteFailure
{
    QString path;
    QString reason;
};

using WriteFailures = QList<WriteFailure>;

namespace SafeWrite {

// Replaces the file with the bytes, whole or not at all: they go into a file beside it, unbuffered so
// that a full disk shows in the write itself, are put on disk, and only then take the file's place.
// Nothing when it succeeded; after a failure the previous file is as it was.
std::optional<WriteFailure> writeFile(const QString& path, const QByteArray& bytes);

// Moves a file over another in one step: whoever opens the target finds the old file or the new one.
std::optional<WriteFailure> moveOver(const QString& from, const QString& to);

// Gives the file a second name, so that a move over it does not free it: freeing a large file costs as
// much as the move. False when the name could not be given (it is taken, or links are not supported).
bool addName(const QString& path, const QString& otherName);

// Removes the files on a worker thread: they are names no one reads, and the last name of a file takes
// its blocks with it.
void removeInBackground(const QStringList& paths);

// Writes the settings changed so far to their file. Throws a Fault naming the file when they could not
// be stored.
void storeSettings(QSettings& settings);

} // namespace SafeWrite
