#pragma once

#include "ux/ux_export.h"

#include <string>

class UXJsonObject;

/** Names the objects that live inside another without being written with it, such as the children of a view,
 * so that a reference to one of them can be saved as its place. A class hands one to UXJsonObject's
 * constructor; it has no state and outlives every object. */
class UX_EXPORT UXJsonPathResolver {
public:
    virtual ~UXJsonPathResolver();

    /** @return the place of target inside object, such as "0/2"; empty when target is not inside it */
    virtual std::string obtainPath(UXJsonObject* object, UXJsonObject* target) const = 0;

    /** @return what lives at that place inside object, null when nothing does or the text is no place */
    virtual UXJsonObject* obtainObject(UXJsonObject* object, const std::string& path) const = 0;
};
