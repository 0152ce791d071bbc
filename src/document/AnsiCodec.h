#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

// The single-byte code page of the component files and the radio link (windows-1252). Bytes without
// a character of their own (0x81, 0x8D, 0x8F, 0x90, 0x9D) stand for the control characters of the same
// number, as on Windows, so every byte survives a decode and encode unchanged.
namespace AnsiCodec {

QString decode(QByteArrayView bytes);

// Characters the code page cannot hold become "?", one for each character.
QByteArray encode(QStringView text);
void appendEncoded(QByteArray& out, QStringView text);

} // namespace AnsiCodec
