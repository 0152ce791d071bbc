#pragma once

#include <QByteArray>

#include <functional>

// Runs the work in a child process that cannot make a file longer than the limit, as on a disk with only
// that much room left: a write past it fails with "File too large" instead of ending the process, and
// programs the work starts inherit the limit. Returns the report the work made, empty when the child
// died before it ended.
QByteArray runWithFileSizeLimit(qint64 limitBytes, const std::function<QByteArray()>& work);
