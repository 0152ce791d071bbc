#pragma once

#include <QString>

#include <exception>
#include <utility>

// A fault ends the event handler that raised it; the handler guard shows its message and the program
// keeps running with everything already stored left in place.
class Fault : public std::exception
{
public:
    explicit Fault(QString message)
        : m_message(std::move(message))
    { }
    const char* what() const noexcept override { return "Quorvel fault"; }
    const QString& message() const { return m_message; }

private:
    QString m_message;
};

// An index outside a table's fixed bounds.
class RangeFault : public Fault
{
public:
    RangeFault()
        : Fault(QStringLiteral("Subscript out of range"))
    { }
};

// A text that must be a number and is not.
class TypeFault : public Fault
{
public:
    TypeFault()
        : Fault(QStringLiteral("Type mismatch"))
    { }
};

// A number too large for the integer or float it is stored in.
class OverflowFault : public Fault
{
public:
    OverflowFault()
        : Fault(QStringLiteral("Overflow"))
    { }
};
