#pragma once

#include <QStringList>

// quorvel-cli print PREFIX --pdf FILE [--current N|--all|--front|--back] [--language K]
int runPrint(const QStringList& arguments);

// The print command draws text and needs the graphical application.
bool needsGraphics(int argc, char* argv[]);
