#pragma once

#include "kx_export.h"
#include "ux/ux_virtual_scroll_view.h"

#include <string>

/** Scrolls the items of a value list where they are more than fit. */
class KX_EXPORT KXScrollableValueList : public UXVirtualScrollView {
public:
    KXScrollableValueList();
    ~KXScrollableValueList() override;

    // From UXJsonObject
    std::string customSerializeTypeID() override;
};
