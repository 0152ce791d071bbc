#include "NumberText.h"

#include "Fault.h"

#include <QRegularExpression>

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

bool isSkippedBlank(QChar ch)
{
    return ch == u' ' || ch == u'\t' || ch == u'\n';
}

bool isDigit(QChar ch)
{
    return ch >= u'0' && ch <= u'9';
}

// Collects the numeric part of a text as plain ASCII ("-12.5e3"), skipping blanks between its pieces.
class NumericPartScanner
{
public:
    explicit NumericPartScanner(QStringView text)
        : m_text(text)
    { }

    std::string scan()
    {
        if (peek() == u'-' || peek() == u'+') {
            m_part += static_cast<char>(take().unicode());
        }
        const bool hasIntegerDigits = takeDigits();
        bool hasFractionDigits = false;
        if (peek() == u'.') {
            take();
            m_part += '.';
            hasFractionDigits = takeDigits();
        }
        if (hasIntegerDigits || hasFractionDigits) {
            takeExponent();
        }
        return m_part;
    }

private:
    QChar peek()
    {
        while (m_pos < m_text.size() && isSkippedBlank(m_text[m_pos])) {
            ++m_pos;
        }
        return m_pos < m_text.size() ? m_text[m_pos] : QChar();
    }

    QChar take() { return m_text[m_pos++]; }

    bool takeDigits()
    {
        bool any = false;
        while (isDigit(peek())) {
            m_part += static_cast<char>(take().unicode());
            any = true;
        }
        return any;
    }

    // An exponent counts only when digits follow its letter ("1e" is 1).
    void takeExponent()
    {
        const QChar letter = peek();
        if (letter != u'e' && letter != u'E' && letter != u'd' && letter != u'D') {
            return;
        }
        const qsizetype mark = m_pos;
        const std::size_t partLength = m_part.size();
        take();
        m_part += 'e';
        if (peek() == u'-' || peek() == u'+') {
            m_part += static_cast<char>(take().unicode());
        }
        if (!takeDigits()) {
            m_pos = mark;
            m_part.resize(partLength);
        }
    }

    QStringView m_text;
    qsizetype m_pos = 0;
    std::string m_part;
};

QString withoutLeadingZero(QString digits)
{
    if (digits.startsWith(u"0.")) {
        digits.remove(0, 1);
    } else if (digits.startsWith(u"-0.")) {
        digits.remove(1, 1);
    }
    return digits;
}

} // namespace

namespace NumberText {

double numericValue(QStringView text)
{
    const std::string part = NumericPartScanner(text).scan();
    double value = 0;
    const char* first = part.data();
    const char* last = part.data() + part.size();
    if (!part.empty() && *first == '+') {
        ++first;
    }
    const auto result = std::from_chars(first, last, value);
    if (result.ec == std::errc::result_out_of_range) {
        // A number too large is infinite (a stored integer then overflows), one too small is 0: the
        // exponent's sign tells which, or without one, whether a digit other than 0 stands before the point.
        const auto exponentAt = part.find('e');
        const bool tiny = exponentAt != std::string::npos ? part.find('-', exponentAt) != std::string::npos
                                                          : part.find_first_of("123456789") > part.find('.');
        const double magnitude = tiny ? 0.0 : std::numeric_limits<double>::infinity();
        return part.front() == '-' ? -magnitude : magnitude;
    }
    return result.ec == std::errc() ? value : 0.0;
}

std::int32_t toInt32(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min()
            && rounded <= std::numeric_limits<std::int32_t>::max())) {
        throw OverflowFault();
    }
    return static_cast<std::int32_t>(rounded);
}

float toSingle(double value)
{
    if (std::isnan(value) || std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
        throw OverflowFault();
    }
    return static_cast<float>(value);
}

float wholeSingle(QStringView text)
{
    static const QRegularExpression number(
        QStringLiteral("^ *[+-]?(\\d+\\.?\\d*|\\.\\d+)([eEdD][+-]?\\d+)? *$"));
    if (!number.match(text).hasMatch()) {
        throw TypeFault();
    }
    return toSingle(numericValue(text));
}

std::int32_t int32Value(QStringView text)
{
    return toInt32(numericValue(text));
}

QString str(std::int32_t value)
{
    const QString digits = QString::number(value);
    return value < 0 ? digits : u' ' + digits;
}

QString str(float value)
{
    if (value == 0) {
        value = 0; // no "-0"
    }
    // Shortest form with up to 7 significant digits, "E+07" style exponents, no zero before the point.
    QString digits = withoutLeadingZero(QString::number(static_cast<double>(value), 'G', 7));
    return value < 0 ? digits : u' ' + digits;
}

QString fileNumber(std::int32_t value)
{
    return str(value) + u' ';
}

QString fileNumber(float value)
{
    return str(value) + u' ';
}

QString withDecimalPoint(QString text)
{
    return text.replace(u',', u'.');
}

} // namespace NumberText
