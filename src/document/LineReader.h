#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

// Reads a component file line by line. Lines end with CR LF, LF or CR; the last line needs no end.
// Bytes are windows-1252.
class LineReader
{
public:
    explicit LineReader(QByteArray bytes);

    // True once the last line has been read, as a file's end-of-file test is right after reading it.
    bool atEnd() const { return m_pos >= m_bytes.size(); }

    // The next line; empty past the end.
    QString next();

    // Each read takes the next line into the target. At the end of the file, or when the line's
    // value does not fit the target, the target keeps what it held.
    void read(QString& target);
    void read(std::int32_t& target);
    void read(float& target);
    void skip() { next(); }

private:
    QByteArray m_bytes;
    qsizetype m_pos = 0;
};
