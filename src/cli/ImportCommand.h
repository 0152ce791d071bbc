#pragma once

#include <QStringList>

// quorvel-cli import csv|xls|fenwar|last FILE OUT_PREFIX
int runImport(const QStringList& arguments);
