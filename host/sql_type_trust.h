#pragma once

/** How much the declared type of a column says about its values. */
enum class SqlTypeTrust {
    Whole,      // the engine sees to it that they are of that type
    TextOrTime, // they are texts, perhaps of dates and times
    None        // they may be anything
};
