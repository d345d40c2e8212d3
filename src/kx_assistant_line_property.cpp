#include "kx_assistant_line_property.h"

#include "kx_key_definitions.h"
#include "kx_key_record_type.h"
#include "ux/ux_localize.h"

namespace {

constexpr int operationCount = 10;
constexpr int labelFontSize = 11;
constexpr UXColor labelColor(80, 80, 80);

KXChartValueOperation toOperation(int number)
{
    return number >= 0 && number < operationCount ? static_cast<KXChartValueOperation>(number)
                                                  : KXChartValueOperation::FixedValue;
}

} // namespace

KX_DEFINE_KEYS(KXAssistantLineProperty, KXChartPropertyBase, KX_ASSISTANT_LINE_PROPERTY_KEYS)

KXAssistantLineProperty::KXAssistantLineProperty() = default;
KXAssistantLineProperty::KXAssistantLineProperty(const KXAssistantLineProperty&) = default;
KXAssistantLineProperty& KXAssistantLineProperty::operator=(const KXAssistantLineProperty&) = default;
KXAssistantLineProperty::~KXAssistantLineProperty() = default;

KXChartValueOperation KXAssistantLineProperty::obtainOperation() const { return toOperation(m_operation); }
KXChartValueOperation KXAssistantLineProperty::obtainToOperation() const
{
    return toOperation(m_toOperation);
}

std::string KXAssistantLineProperty::obtainCaption() const
{
    static constexpr const char* names[] = {"Value", "Minimum",    "Maximum",   "Average", "Median",
                                            "Share", "Percentile", "Deviation", "Trend",   "Moving average"};
    return m_labelText.empty() ? uxLocalizeString(names[static_cast<int>(obtainOperation())]) : m_labelText;
}

UXTextProperty KXAssistantLineProperty::_makeDefaultLabelProperty()
{
    UXTextProperty property;
    property.font.size = labelFontSize;
    property.textColor = labelColor;
    return property;
}

bool operator==(const KXAssistantLineProperty& a, const KXAssistantLineProperty& b)
{
    return kxEqualRecords(a, b);
}

const UXPropertyType& KXKeyTypeOf<KXAssistantLineProperty>::obtain()
{
    static constexpr UXPropertyType type = kxMakeRecordKeyType<KXAssistantLineProperty>(
        "KXAssistantLineProperty");
    return type;
}
