#pragma once

#include "UserPrompts.h"
#include "document/Fault.h"

#include <QString>

namespace HandlerGuard {

// What one handler changed, as the user would name it in "Undo ...".
struct Change
{
    QString name;
    const void* foldKey = nullptr; // changes with the same key in a row are one change
    bool undoable = true;
};

// Told when a handler that no other handler runs inside has ended, so that all it changed, in its
// dialogs too, becomes one step.
class Observer
{
public:
    virtual ~Observer() = default;
    virtual void handlerEnded(const Change& change) = 0;
};

// The one observer, or none.
void setObserver(Observer* observer);

// Names the change the running handler makes, or the next one to run; the first name given wins, so
// that a command that opens a dialog is named for the command, not for the dialog's buttons.
void nameChange(const QString& name, const void* foldKey = nullptr);

// What the outermost handler changes is not the user's doing (a save moving the document to its file, a
// redraw after undoing) and makes no step. Ignored in a handler that runs inside another.
void keepOutOfHistory();

// Marks one handler's run; the outermost one's end tells the observer.
class Scope
{
public:
    Scope();
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
};

} // namespace HandlerGuard

// Runs one event handler. A fault ends the handler where it was raised and its message is shown; the
// program goes on and whatever the handler stored before the fault stays stored. Returns false when
// the handler was ended by a fault.
template<typename Handler>
bool runGuarded(UserPrompts& prompts, Handler&& handler)
{
    const HandlerGuard::Scope scope;
    try {
        handler();
        return true;
    } catch (const Fault& fault) {
        prompts.showMessage(fault.message());
        return false;
    }
}
