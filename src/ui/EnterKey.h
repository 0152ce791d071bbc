#pragma once

#include <QEvent>
#include <QKeyEvent>

// Return on the main keyboard and Enter on the keypad do the same everywhere in the program.
inline bool isEnterPress(const QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<const QKeyEvent*>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}
