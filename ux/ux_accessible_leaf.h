#pragma once

#include "ux/ux_accessible_object.h"

/** A node without children, which says what it was made with. */
class UX_EXPORT UXAccessibleLeaf : public UXAccessibleNode {
public:
    /** @param object is it, or draws it */
    UXAccessibleLeaf(UXObject& object, UXAccessibleInfo info);
    ~UXAccessibleLeaf() override;

    UXObject* getObject() const override;
    /** @return nothing once the object is gone */
    UXAccessibleInfo obtainInfo() override;

private:
    UXObjectWatcher m_object;
    UXAccessibleInfo m_info;
};
