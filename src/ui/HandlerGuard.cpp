#include "HandlerGuard.h"

#include <utility>

namespace HandlerGuard {

namespace {

// Handlers run on the one user-interface thread.
Observer* observer = nullptr;
int depth = 0;
Change change;

} // namespace

void setObserver(Observer* newObserver)
{
    observer = newObserver;
}

void nameChange(const QString& name, const void* foldKey)
{
    if (change.name.isEmpty()) {
        change.name = name;
        change.foldKey = foldKey;
    }
}

void keepOutOfHistory()
{
    if (depth == 1) {
        change.undoable = false;
    }
}

Scope::Scope()
{
    ++depth;
}

Scope::~Scope()
{
    if (--depth > 0) {
        return;
    }
    const Change ended = std::exchange(change, Change());
    if (!observer) {
        return;
    }
    try {
        observer->handlerEnded(ended);
    } catch (const Fault&) {
        // A step that cannot be made leaves the document as the handler left it.
    }
}

} // namespace HandlerGuard
