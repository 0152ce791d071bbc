#pragma once

#include <QStringList>

// quorvel-cli translate TEXT SOURCE_LANGUAGE TARGET_LANGUAGE
int runTranslate(const QStringList& arguments);
