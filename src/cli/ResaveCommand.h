#pragma once

#include <QStringList>

// quorvel-cli resave IN_PREFIX OUT_PREFIX
int runResave(const QStringList& arguments);
