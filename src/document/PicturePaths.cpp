#include "PicturePaths.h"

#include <algorithm>

namespace PicturePaths {

namespace {

bool isSeparator(QChar c)
{
    return c == u'/' || c == u'\\';
}

bool sameUpToSeparators(QStringView a, QStringView b)
{
    if (a.size() != b.size()) {
        return false;
    }
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && !(isSeparator(a[i]) && isSeparator(b[i]))) {
            return false;
        }
    }
    return true;
}

} // namespace

bool holdsSeparator(QStringView path)
{
    return path.contains(u'/') || path.contains(u'\\');
}

QString fileNameOf(QStringView path)
{
    const qsizetype slash = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return path.sliced(slash + 1).toString();
}

PictureLookup findPicture(const QString& storedPath, const QString& projectFolder, const PictureLoader& load)
{
    // An empty path has no folder either and ends up as the project folder itself, which never loads.
    PictureLookup lookup { holdsSeparator(storedPath) ? storedPath : projectFolder + storedPath, false };
    lookup.loaded = load(lookup.path);
    if (!lookup.loaded) {
        lookup.path = projectFolder + fileNameOf(lookup.path);
        lookup.loaded = load(lookup.path);
    }
    return lookup;
}

QString relativePicturePath(const QString& path, const QString& projectFolder)
{
    if (!projectFolder.isEmpty()
        && sameUpToSeparators(QStringView(path).left(projectFolder.size()), projectFolder)) {
        return path.mid(projectFolder.size());
    }
    return path;
}

} // namespace PicturePaths
