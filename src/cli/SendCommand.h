#pragma once

#include <QStringList>

// quorvel-cli send PREFIX --port N [--thirteen-pages] [--old-firmware]
int runSend(const QStringList& arguments);
