#pragma once

#include "ux/ux_export.h"

/** A value of the document that is being written or read: a number, a text, a list, an object with its
 * members. Only UXJsonObject looks inside; everybody else passes it on. */
class UXJsonValue;
