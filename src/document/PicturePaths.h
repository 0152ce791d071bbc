#pragma once

#include <QString>
#include <QStringView>

#include <functional>

// Pictures are stored by path, relative to the project folder when they lie inside it. Both "/" and
// "\" separate folders, so that paths written on Windows resolve here too.
namespace PicturePaths {

bool holdsSeparator(QStringView path);
QString fileNameOf(QStringView path);

// A picture inside the project folder is kept by its name relative to that folder.
QString relativePicturePath(const QString& path, const QString& projectFolder);

// Tries to load the picture at a path; the caller keeps what it loaded.
using PictureLoader = std::function<bool(const QString& path)>;

struct PictureLookup
{
    QString path; // the path the picture was last tried under; the screen stores it back
    bool loaded = false;

    bool operator==(const PictureLookup&) const = default;
};

// A path without a folder is looked for in the project folder; a path that does not load is retried
// by its file name in the project folder.
PictureLookup findPicture(const QString& storedPath, const QString& projectFolder, const PictureLoader& load);

} // namespace PicturePaths
