#include "SafeWrite.h"

#include "Fault.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QSettings>
#include <QThreadPool>

#include <filesystem>
#include <system_error>

namespace {

std::filesystem::path nativePath(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

} // namespace

namespace SafeWrite {

std::optional<WriteFailure> writeFile(const QString& path, const QByteArray& bytes)
{
    // A buffered save file can report a commit as done after its last flush failed; unbuffered, every
    // write is checked where it happens.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return WriteFailure { path, file.errorString() };
    }
    // A write cut short by the disk says why only when it is tried again.
    for (qsizetype written = 0; written < bytes.size();) {
        const qint64 count = file.write(bytes.constData() + written, bytes.size() - written);
        if (count <= 0) {
            return WriteFailure { path, file.errorString() };
        }
        written += count;
    }
    if (!file.commit()) {
        return WriteFailure { path, file.errorString() };
    }
    return std::nullopt;
}

std::optional<WriteFailure> moveOver(const QString& from, const QString& to)
{
    // QFile::rename will not replace a file; the standard rename does, in one step.
    std::error_code error;
    std::filesystem::rename(nativePath(from), nativePath(to), error);
    if (error) {
        return WriteFailure { to, QString::fromStdString(error.message()) };
    }
    return std::nullopt;
}

bool addName(const QString& path, const QString& otherName)
{
    std::error_code error;
    std::filesystem::create_hard_link(nativePath(path), nativePath(otherName), error);
    return !error;
}

void removeInBackground(const QStringList& paths)
{
    if (paths.isEmpty()) {
        return;
    }
    QThreadPool::globalInstance()->start([paths] {
        for (const QString& path : paths) {
            QFile::remove(path);
        }
    });
}

void storeSettings(QSettings& settings)
{
    settings.sync();
    if (settings.status() != QSettings::NoError) {
        throw Fault(QStringLiteral("The settings could not be saved in %1.")
                        .arg(QDir::toNativeSeparators(settings.fileName())));
    }
}

} // namespace SafeWrite
