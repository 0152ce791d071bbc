#pragma once

#include "UserPrompts.h"
#include "document/Fault.h"

// Runs one event handler. A fault ends the handler where it was raised and its message is shown; the
// program goes on and whatever the handler stored before the fault stays stored. Returns false when
// the handler was ended by a fault.
template<typename Handler>
bool runGuarded(UserPrompts& prompts, Handler&& handler)
{
    try {
        handler();
        return true;
    } catch (const Fault& fault) {
        prompts.showMessage(fault.message());
        return false;
    }
}
