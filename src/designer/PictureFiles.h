#pragma once

#include <QDateTime>
#include <QHash>
#include <QImage>
#include <QString>

// Pictures read from disk. A page is redrawn after every edit; a picture whose file has not changed
// since it was last read is not decoded again.
class PictureFiles
{
public:
    // The picture in the file, or a null image when there is no such file or it holds no picture.
    QImage load(const QString& path);

private:
    struct Entry
    {
        QDateTime modified;
        qint64 size = 0;
        QImage picture;
    };

    QHash<QString, Entry> m_entries;
};
