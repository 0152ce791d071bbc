#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// GoogleTest prints Qt's strings in failure messages through these.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

// Bytes print as a C string literal, so that line ends and code page bytes can be read.
inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
    *out << '"';
    for (char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\r') {
            *out << "\\r";
        } else if (c == '\n') {
            *out << "\\n";
        } else if (byte < 0x20 || byte >= 0x7F || c == '"' || c == '\\') {
            static const char Hex[] = "0123456789abcdef";
            *out << "\\x" << Hex[byte >> 4] << Hex[byte & 15];
        } else {
            *out << c;
        }
    }
    *out << '"';
}
