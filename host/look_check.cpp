#include "look_check.h"

#include "kx_chart.h"
#include "kx_chart_property.h"
#include "ux/ux_color_contrast.h"
#include "ux/ux_palette.h"
#include "ux/ux_property_table.h"
#include "ux/ux_text_property.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <typeinfo>

namespace {

constexpr UXColor paper(255, 255, 255);

std::string toText(const UXColor& color)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", static_cast<unsigned>(color.red) & 255U,
                  static_cast<unsigned>(color.green) & 255U, static_cast<unsigned>(color.blue) & 255U);
    return text.data();
}

std::string toText(double number)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f", number);
    return text.data();
}

std::string toText(const std::vector<UXColor>& colors)
{
    std::string text;
    for (const UXColor& color : colors)
        text.append(text.empty() ? "" : " ").append(toText(color));
    return text;
}

/** Walks a chart and the objects that it holds for good. */
class LookCheck {
public:
    explicit LookCheck(const UXColor& ground) : m_ground(ground) {}

    /** @param path of the object, ended by a point; empty for the chart */
    void walk(UXJsonObject& object, const std::string& path)
    {
        const UXPropertyTable* table = UXPropertyTable::obtainTable(object);
        for (const std::string& key : table ? table->obtainKeys() : std::vector<std::string>()) {
            const UXPropertyTable::Found found = table->find(object, key);
            if (!found.property)
                continue;
            void* const place = found.property->place(found.owner);
            const UXPropertyType& type = found.property->type();
            if (type.isObject)
                walk(*static_cast<UXJsonObject*>(place), path + key + '.');
            else if (*type.info == typeid(UXTextProperty))
                _checkText(path + key, static_cast<const UXTextProperty*>(place)->textColor);
            else if (*type.info == typeid(std::vector<UXColor>))
                checkPalette(path + key, *static_cast<const std::vector<UXColor>*>(place));
        }
    }

    void checkPalette(const std::string& name, const std::vector<UXColor>& colors)
    {
        if (colors.empty())
            return;
        m_hasPalette = true;
        const UXPaletteNumbers numbers = uxMeasurePalette(colors, m_ground);
        std::string line = name;
        line.append(" on ").append(toText(m_ground));
        line.append(": least contrast ").append(toText(numbers.leastContrast));
        if (colors.size() > 1) {
            constexpr std::array eyes{"", " to eyes without red cones", " without green", " without blue"};
            line.append(", least difference ");
            for (std::size_t i = 0; i < eyes.size(); ++i)
                line.append(i > 0 ? ", " : "").append(toText(numbers.leastDifferences[i])).append(eyes[i]);
        }
        m_lines.push_back(std::move(line));
        if (numbers.areEnough())
            return;
        std::string offer = name;
        offer.append(": needs a contrast of ").append(toText(uxVisibleContrast));
        offer.append(" and differences of ").append(toText(uxDistinctDifference));
        offer.append("; these are the nearest that have them: ");
        m_lines.push_back(offer.append(toText(uxMakeDistinctPalette(colors, m_ground))));
    }

    bool hasPalette() const { return m_hasPalette; }
    const std::vector<std::string>& getLines() const { return m_lines; }

private:
    void _checkText(const std::string& key, const UXColor& color)
    {
        const double contrast = uxObtainContrast(color, m_ground);
        if (color.alpha <= 0 || contrast >= uxReadableContrast)
            return;
        std::string line = key;
        line.append(": ").append(toText(uxLayColorOver(color, m_ground)));
        line.append(" on ").append(toText(m_ground));
        line.append(" has a contrast of ").append(toText(contrast));
        line.append(", texts need ").append(toText(uxReadableContrast));
        line.append("; the nearest that has it: ").append(toText(uxMakeReadableColor(color, m_ground)));
        m_lines.push_back(std::move(line));
    }

    UXColor m_ground;
    bool m_hasPalette = false;
    std::vector<std::string> m_lines;
};

} // namespace

std::vector<std::string> checkLook(KXChart& chart)
{
    LookCheck check(uxLayColorOver(chart.getChartProperty()->getBackgroundColor(), paper));
    check.walk(chart, "");
    if (!check.hasPalette())
        check.checkPalette("the colours that series take in turn", chart.getDefaultColors());
    return check.getLines();
}
