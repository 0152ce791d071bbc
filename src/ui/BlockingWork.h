#pragma once

#include <functional>

// Runs work that blocks (a library call that returns only when a transfer ends) on a thread of its
// own, while this thread goes on painting its windows and running its timers but takes no user input.
// Returns when the work has ended; a fault it raised is raised again here.
void runBlockingWork(const std::function<void()>& work);
