#include "LineReader.h"

#include "AnsiCodec.h"
#include "Fault.h"
#include "NumberText.h"

#include <algorithm>

LineReader::LineReader(QByteArray bytes)
    : m_bytes(std::move(bytes))
{ }

QString LineReader::next()
{
    const char* const data = m_bytes.constData();
    const char* const start = data + m_pos;
    const char* const last = data + m_bytes.size();
    const char* end = std::find_if(start, last, [](char byte) { return byte == '\r' || byte == '\n'; });
    m_pos = end - data;
    if (m_pos < m_bytes.size() && data[m_pos] == '\r') {
        ++m_pos;
    }
    if (m_pos < m_bytes.size() && data[m_pos] == '\n') {
        ++m_pos; // a lone LF, or the LF of CR LF
    }
    return AnsiCodec::decode(QByteArrayView(start, end - start));
}

void LineReader::read(QString& target)
{
    if (!atEnd()) {
        target = next();
    }
}

void LineReader::read(std::int32_t& target)
{
    if (!atEnd()) {
        try {
            target = NumberText::int32Value(next());
        } catch (const Fault&) { }
    }
}

void LineReader::read(float& target)
{
    if (!atEnd()) {
        try {
            target = NumberText::toSingle(NumberText::numericValue(next()));
        } catch (const Fault&) { }
    }
}
