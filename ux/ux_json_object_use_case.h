#pragma once

#include "ux/ux_named_enum.h"

/** What a document is written for: keeping, making a second object of, or styling other objects after. */
UX_NAMED_ENUM(UXJsonObjectUseCase, Save, Copy, Template)
