#pragma once

#include <QString>

#include <cstdint>

// Starts the program the command names (a path with blanks goes in double quotes, arguments may
// follow) and waits for it, handling the application's events, user input included, in half-second
// pauses. Returns the last exit code read: 259 when the application quit while the program still ran.
// A program that ends with a code above 1 is waited for until the application quits.
// Throws Fault when the program cannot be started.
std::int32_t RunShell(const QString& command);
