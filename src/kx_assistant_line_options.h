#pragma once

#include "ux/ux_named_enum.h"

/** What the label of a line of reference says. */
UX_NAMED_ENUM(KXAssistantLineLabelContent, Text, Value, Both)

/** Where along a line of reference its label stands. */
UX_NAMED_ENUM(KXAssistantLineLabelPosition, Start, Middle, End)
