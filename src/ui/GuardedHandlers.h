#pragma once

#include "ChangeNames.h"
#include "HandlerGuard.h"
#include "UserPrompts.h"

#include <utility>

class QObject;

// The event handlers of one window or panel: each runs inside the guard and shows its faults through
// the window's prompts.
class GuardedHandlers
{
protected:
    explicit GuardedHandlers(UserPrompts& prompts)
        : m_prompts(prompts)
    { }

    // Runs one handler. False when a fault ended it.
    template<typename Work>
    bool guarded(Work&& work)
    {
        return runGuarded(m_prompts, std::forward<Work>(work));
    }

    // Runs a handler that a control started, its change named after the control.
    template<typename Work>
    bool guarded(const QObject* control, Work&& work)
    {
        nameChangeAfter(control);
        return guarded(std::forward<Work>(work));
    }

    UserPrompts& m_prompts;
};
