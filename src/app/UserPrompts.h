#pragma once

#include <QString>

// Every modal question the program puts to the user goes through here, so that the windows can be
// driven by a script in tests and the command line can answer on its own streams.
class UserPrompts
{
public:
    virtual ~UserPrompts() = default;

    // A message with an OK button only.
    virtual void showMessage(const QString& text) = 0;
};
