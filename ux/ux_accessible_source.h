#pragma once

#include "ux/ux_export.h"

#include <memory>

class UXAccessibleNode;

/** Mixed into objects that say something to those who do not see them. One without it is passed through: what
 * is inside it stands in its place. */
class UX_EXPORT UXAccessibleSource {
public:
    /** @return the object's node, never null */
    virtual std::unique_ptr<UXAccessibleNode> createAccessibleNode() = 0;
    /** @return whether there is anything to say just now; by default there is */
    virtual bool isAccessible() const;

protected:
    UXAccessibleSource();
    ~UXAccessibleSource();
};
