#pragma once

#include "kx_export.h"
#include "kx_value_list_base_item.h"
#include "ux/ux_color.h"
#include "ux/ux_json_object.h"

#include <cstdint>
#include <string>
#include <vector>

class UXPainter;

/** The items of a value list that are in sight, in rows, with lines between the rows. */
class KX_EXPORT KXValueList : public UXJsonObject {
public:
    KXValueList();
    ~KXValueList() override;

    const std::vector<KXValueListBaseItem>& getItems() const { return m_items; }
    /** @return the new one, the last of all; it stays where it is until the next is added */
    KXValueListBaseItem& addItem(const KXValueListBaseItem& item);
    void clear();
    /** Draws a line above each row but the first one of the whole list.
     *  @param gap between two rows, in logical units */
    void paintSeparators(UXPainter& painter, double gap, const UXColor& color) const;
    /** Tells whether items stand above those in sight. */
    void setIsScrolled(bool isScrolled) { m_isScrolled = isScrolled; }

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    std::vector<UXJsonObject*> _listItems();

    std::vector<KXValueListBaseItem> m_items;
    bool m_isScrolled = false;
};
