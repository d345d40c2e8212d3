#pragma once

#include <functional>

/** What the host wants done about one event: an action to run, a context menu to open, both or neither. */
struct KXInteractionOperation {
    std::function<void()> action;
    void* contextMenu = nullptr; // the host's own; only handed back to it
};
