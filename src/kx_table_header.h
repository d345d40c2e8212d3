#pragma once

#include "kx_table_chart_options.h"

#include <cstddef>
#include <string>

/** One member of a row or column dimension as the host answers it. */
struct KXTableHeader {
    std::string text;
    std::string identity; /**< what documents know it by; empty: its text */
    KXTableColumnHeaderInfoType type = KXTableColumnHeaderInfoType::Normal;
    bool hasChildren = false;  /**< members of the next dimension */
    bool shouldFormat = false; /**< a date or a time that the chart is to write its own way */

    const std::string& obtainIdentity() const { return identity.empty() ? text : identity; }
    /** @return its bytes in memory */
    std::size_t obtainSize() const { return sizeof(*this) + text.size() + identity.size(); }
    friend bool operator==(const KXTableHeader&, const KXTableHeader&) = default;
};
