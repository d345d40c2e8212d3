#pragma once

#include "ux/ux_accessible_node.h"
#include "ux/ux_object_watcher.h"

#include <optional>
#include <string>
#include <vector>

/** The node of an object: by default a group of what is inside it and says something, in rows from the top
 * down. */
class UX_EXPORT UXAccessibleObject : public UXAccessibleNode {
public:
    explicit UXAccessibleObject(UXObject& object, UXAccessibleRole role = UXAccessibleRole::Group,
                                std::string name = {});
    ~UXAccessibleObject() override;

    // From UXAccessibleNode
    UXObject* getObject() const override;
    UXAccessibleInfo obtainInfo() override;
    std::uint64_t obtainChildCount() override;
    std::unique_ptr<UXAccessibleNode> createChild(std::uint64_t index) override;

protected:
    /** @return the visible objects inside that have something to say, in the order in which one reads them */
    virtual std::vector<UXObject*> _obtainParts() const;

private:
    void _takeParts();

    UXObjectWatcher m_object;
    UXAccessibleRole m_role;
    std::string m_name;
    std::optional<std::vector<UXObjectWatcher>> m_parts; // once asked for
};

/** @return the node of object and of what is inside it: the way into the tree, from a diagram or from any
 * part of it */
[[nodiscard]] UX_EXPORT std::unique_ptr<UXAccessibleNode> uxCreateAccessibleNode(UXObject& object);
