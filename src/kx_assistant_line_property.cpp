#include "kx_assistant_line_property.h"

#include "kx_key_definitions.h"
#include "ux/ux_localize.h"

#include <algorithm>

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
    const auto placeOf = [](const UXProperty& key, const KXAssistantLineProperty& line) {
        return key.place(const_cast<KXAssistantLineProperty*>(&line));
    };
    return std::ranges::all_of(
        KXAssistantLineProperty::obtainPropertyTable().getProperties(),
        [&](const UXProperty& key) { return key.type().equal(placeOf(key, a), placeOf(key, b)); });
}

const UXPropertyType& KXKeyTypeOf<KXAssistantLineProperty>::obtain()
{
    using Line = KXAssistantLineProperty;
    static constexpr UXPropertyType type{
        .info = &typeid(Line),
        .name = "KXAssistantLineProperty",
        .equal = uxEqualPropertyValues<Line>,
        .assign = uxAssignPropertyValue<Line>,
        .write =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* value) {
                object.serializeObject(key, const_cast<Line*>(static_cast<const Line*>(value)));
            },
        .read =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, void* value) {
                // A key that is missing keeps its default, and makes no element a wrong one.
                auto* line = static_cast<Line*>(value);
                return object.deserializeExistingObject(key, line) || !(*line == Line());
            }};
    return type;
}
