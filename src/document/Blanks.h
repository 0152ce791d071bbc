#pragma once

#include <QStringView>

// Trimming removes blanks (U+0020) only; tabs and other white space are part of the text.
inline QStringView trimBlanks(QStringView text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == u' ') {
        ++first;
    }
    while (last > first && text[last - 1] == u' ') {
        --last;
    }
    return text.sliced(first, last - first);
}

inline bool isBlank(QStringView text)
{
    return trimBlanks(text).isEmpty();
}
