#pragma once

#include <QStringList>

class MenuDocument;

// quorvel-cli check PREFIX
int runCheck(const QStringList& arguments);

// Runs the menu check and prints one line a problem on standard output. Returns how many it found.
qsizetype printMenuProblems(const MenuDocument& document);

// The exit status of a check that found problems.
constexpr int ProblemsFound = 3;
