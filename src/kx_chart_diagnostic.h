#pragma once

#include "ux/ux_rect.h"

#include <cstdint>
#include <string>

/** What a reader of a chart does not see in full. */
enum class KXChartDiagnosticKind {
    ShortenedText, /**< a text ends in an ellipsis, or is cut */
    LeftOutText,   /**< a text has no room */
    MergedMarks,   /**< several marks share a pixel, and one is drawn for them */
    Others,        /**< members are gathered in one */
    ClippedValue,  /**< a value lies beyond what is shown of its axis */
    LeftOutValue,  /**< a value has no mark, such as a negative slice */
    MissingGlyph,  /**< no font has a character of a text */
    UnknownKey     /**< the document has a key that nobody reads */
};

/** One thing that a chart had to leave out or to draw otherwise than it was asked to. */
struct KXChartDiagnostic {
    KXChartDiagnosticKind kind = KXChartDiagnosticKind::LeftOutText; /**< what happened to it */
    std::string text;        /**< the whole text, or what the mark or key is called; empty for many */
    std::string reason;      /**< in the host's language */
    UXRect place;            /**< in the chart's own space; empty where it has none */
    std::uint64_t count = 1; /**< how many such things are told of together */

    bool operator==(const KXChartDiagnostic&) const = default;
};
