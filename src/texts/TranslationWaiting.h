#pragma once

#include <functional>

// Shows the user a translation request that is taking a while and offers a way out. Until then the
// client takes no user input while it waits; from `started` to `ended` it does, so an implementation
// shows a modal window that takes that input, and calls `cancel` when the user gives up: the request
// then ends at once with nothing translated.
class TranslationWaiting
{
public:
    virtual ~TranslationWaiting() = default;

    virtual void started(std::function<void()> cancel) = 0;
    virtual void ended() = 0;
};
