#pragma once

/** What became of a highlight that another chart asked for. */
enum class KXHighlightResult : int {};
