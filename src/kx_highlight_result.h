#pragma once

/** What became of a highlight that another chart asked for. */
enum class KXHighlightResult : int {
    TakesNoPart, // the chart shows no highlights of others
    NotFound,    // nothing in it matches the item
    Highlighted  // the match stands out
};
