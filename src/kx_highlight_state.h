#pragma once

/** How a piece of a chart stands while a highlight is shown. */
enum class KXHighlightState : int {
    None,  // no highlight is shown
    Lit,   // it is the highlighted one
    Dimmed // it gives way to the highlighted one
};
