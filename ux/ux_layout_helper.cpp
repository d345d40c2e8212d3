#include "ux/ux_layout_helper.h"

#include "ux/ux_text_measurer.h"

UXLayoutHelper::~UXLayoutHelper() = default;

UXDoubleSize UXLayoutHelper::getTextSize(const std::string& text, const UXTextProperty& property)
{
    return getTextSize(text, property, -1);
}

UXDoubleSize UXLayoutHelper::getTextSize(const std::string& text, const UXTextProperty& property,
                                         double widthLimit)
{
    return getTextSize(text, property.font, property.option, property.lineMode, widthLimit);
}

UXDoubleSize UXLayoutHelper::getTextSize(const std::string& text, const UXFont& font, UXTextOption option,
                                         int lineMode)
{
    return getTextSize(text, font, option, lineMode, -1);
}

UXDoubleSize UXLayoutHelper::getTextSize(const std::string& text, const UXFont& font, UXTextOption option,
                                         int lineMode, double widthLimit)
{
    return uxMeasureText(text, font, option, lineMode, widthLimit);
}

UXLayoutHelper* uxCreateLayoutHelper() { return new UXLayoutHelper; }
