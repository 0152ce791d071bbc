#include "PictureFiles.h"

#include <QFileInfo>

namespace {

// A menu uses a handful of pictures; forgetting them all now and then keeps the memory bounded.
constexpr qsizetype MaximumEntries = 64;

} // namespace

QImage PictureFiles::load(const QString& path)
{
    const QFileInfo file(path);
    if (!file.isFile()) {
        m_entries.remove(path);
        return {};
    }
    const QDateTime modified = file.lastModified();
    const qint64 size = file.size();
    const auto known = m_entries.constFind(path);
    if (known != m_entries.cend() && known->modified == modified && known->size == size) {
        return known->picture;
    }
    if (m_entries.size() >= MaximumEntries) {
        m_entries.clear();
    }
    const QImage picture(path);
    m_entries.insert(path, Entry { modified, size, picture });
    return picture;
}
