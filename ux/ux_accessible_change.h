#pragma once

#include "ux/ux_export.h"

class UXObject;

/** What is different of an object for those who do not see it. */
enum class UXAccessibleChange {
    Children, /**< nodes of it came, went or stand elsewhere: those that were made are out of date */
    Content,  /**< a name, a value or a state */
    Focus,    /**< keys go to another node, in it or beside it */
    Selection /**< other nodes of it are selected */
};

/** Has the controls that show object told of a change when the outermost call of the framework ends
 * (UXControl::notifyAccessibleChange), of the same one once. Costs next to nothing where no control shows it.
 */
UX_EXPORT void uxTellAccessibleChange(UXObject& object, UXAccessibleChange change);
