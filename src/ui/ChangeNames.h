#pragma once

class QObject;

// Names the change the running handler makes after the control that started it: a button's or a menu
// item's caption as it reads ("Insert Page", "Move Up"), a list by its accessible name, typing in a
// text box, which is one change for as long as the typing stays in that box. Controls whose caption
// is a symbol name nothing: the handler they start names its change itself.
void nameChangeAfter(const QObject* control);
