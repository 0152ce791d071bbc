#pragma once

#include <QStringList>

// quorvel-cli receive --port N [--orders K]
int runReceive(const QStringList& arguments);
