#include "ux/ux_hint_info.h"

#include <algorithm>

namespace {

UXHintRowInfo makeRow(const std::string& label, const std::string& value)
{
    UXHintRowInfo row;
    row.label = label;
    row.value = value;
    return row;
}

UXHintRowInfo makeSymbolRow(const UXColor& color, UXSymbolStyle style, const std::string& label,
                            const std::string& value)
{
    UXHintRowInfo row = makeRow(label, value);
    row.color = color;
    row.symbolStyle = style;
    row.showSymbol = true;
    return row;
}

} // namespace

// Out of line: a hint's rows are much code, and every property class with hint settings copies and compares
// them.
UXHintInfo::UXHintInfo() = default;
UXHintInfo::UXHintInfo(bool isEnabled) : enabled(isEnabled) {}
UXHintInfo::UXHintInfo(const UXHintInfo&) = default;
UXHintInfo::UXHintInfo(UXHintInfo&&) noexcept = default;
UXHintInfo& UXHintInfo::operator=(const UXHintInfo&) = default;
UXHintInfo& UXHintInfo::operator=(UXHintInfo&&) noexcept = default;
UXHintInfo::~UXHintInfo() = default;
bool UXHintInfo::operator==(const UXHintInfo&) const = default;

UXHintRowInfo& UXHintInfo::addRow(const UXHintRowInfo& row) { return rows.emplace_back(row); }

UXHintRowInfo& UXHintInfo::addRow(const std::string& label, const std::string& value)
{
    return rows.emplace_back(makeRow(label, value));
}

UXHintRowInfo& UXHintInfo::addRow(const UXColor& color, UXSymbolStyle style, const std::string& label,
                                  const std::string& value)
{
    return rows.emplace_back(makeSymbolRow(color, style, label, value));
}

UXHintRowInfo& UXHintInfo::addRow(int blankHeight)
{
    UXHintRowInfo row;
    row.blankHeight = std::max(blankHeight, 0);
    return rows.emplace_back(row);
}

UXHintRowInfo& UXHintInfo::addFooterRow(const UXColor& color, UXSymbolStyle style, const std::string& label,
                                        const std::string& value)
{
    return footerRows.emplace_back(makeSymbolRow(color, style, label, value));
}

void UXHintInfo::clearRows()
{
    rows.clear();
    omittedRowCount = 0;
}

void UXHintInfo::clearFooterRows() { footerRows.clear(); }
