#pragma once

#include <QList>
#include <QString>

class LanguageTable;

// The text a terminal shows for one text key (a PLU number, or 0 for the language names), joined from
// its five language texts. Old firmware knows one language: the first text goes alone, as typed.
// Otherwise the texts are trimmed, a language named "Note" counts as empty, and a six-character header
// gives where each text starts and the total length; terminals show 90 characters at most, so header
// values stop at 90 and the whole text is cut there.
QString terminalText(const LanguageTable& texts, int key, bool oldFirmware);

// The languages (1 to 5) whose text the joined text cuts or leaves out at the 90-character limit.
QList<int> cutLanguages(const LanguageTable& texts, int key);
