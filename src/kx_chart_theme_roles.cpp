#include "kx_assistant_line_property.h"
#include "kx_chart.h"
#include "kx_chart_theme.h"
#include "kx_json_object_factory.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_property_table.h"
#include "ux/ux_text_property.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <typeinfo>
#include <vector>

// Which part of a theme each key of a chart takes its colour from.

namespace {

using Color = UXColor (KXChartTheme::*)() const;

struct Role {
    const char* key;
    Color color; // null: the key keeps what it has
    /** The class where the key plays another part than elsewhere, which comes first; null for any. */
    const char* type = nullptr;
    bool takesPalette = false; // a list of colours
};

constexpr Role roles[] = {
    {"m_totalColor", &KXChartTheme::obtainBandColor, "KXTableChart"}, // the ground of totals
    {"m_accentColor", &KXChartTheme::obtainFirstColor},
    {"m_axisAndTickLabelColor", nullptr}, // the next two in one
    {"m_axisColor", &KXChartTheme::getAxisColor},
    {"m_tickLabelProperty", &KXChartTheme::getQuietText},
    {"m_backgroundColor", &KXChartTheme::getGround},
    {"m_bandColor", &KXChartTheme::obtainBandColor},
    {"m_barColor", &KXChartTheme::obtainFaintColor},
    {"m_borderColor", &KXChartTheme::getGridColor},
    {"m_captionProperty", &KXChartTheme::getQuietText},
    {"m_color", &KXChartTheme::getQuietText},
    {"m_customPartitionColor", nullptr},
    {"m_decreaseColor", &KXChartTheme::getDecreaseColor},
    {"m_defaultColor", &KXChartTheme::obtainFirstColor},
    {"m_differenceProperty", &KXChartTheme::getQuietText},
    {"m_errorColor", &KXChartTheme::getPoorColor},
    {"m_extremeColor", &KXChartTheme::getPointerColor},
    {"m_fairColor", &KXChartTheme::getFairColor},
    {"m_fontColor", &KXChartTheme::getStrongText},
    {"m_goodColor", &KXChartTheme::getGoodColor},
    {"m_gridLineColor", &KXChartTheme::getGridColor},
    {"m_headerColor", &KXChartTheme::getTrackColor},
    {"m_headerProperty", &KXChartTheme::getText},
    {"m_hintInfo", nullptr}, // a window of its own
    {"m_increaseColor", &KXChartTheme::getIncreaseColor},
    {"m_itemColors", nullptr, nullptr, true},
    {"m_labelProperty", &KXChartTheme::getText},
    {"m_leaderLineColor", &KXChartTheme::getAxisColor},
    {"m_legendLabelColor", &KXChartTheme::getQuietText},
    {"m_maxColor", &KXChartTheme::getHighColor},
    {"m_maxMinFontColor", &KXChartTheme::getQuietText},
    {"m_middleColor", &KXChartTheme::getMiddleColor},
    {"m_minColor", &KXChartTheme::getLowColor},
    {"m_negativeColor", nullptr}, // clear, or of bars that the user asks for
    {"m_negativeFontColor", &KXChartTheme::getPoorColor},
    {"m_panelColor", nullptr}, // clear: the ground shows
    {"m_partitionLabelFontColor", &KXChartTheme::getQuietText},
    {"m_pipeBackgroundColor", &KXChartTheme::getTrackColor},
    {"m_pipeTargetColor", &KXChartTheme::getPointerColor},
    {"m_pipeValueMaxColor", &KXChartTheme::getPoorColor},
    {"m_pipeValueMiddleColor", &KXChartTheme::getFairColor},
    {"m_pipeValueMinColor", &KXChartTheme::getGoodColor},
    {"m_pointerColor", &KXChartTheme::getPointerColor},
    {"m_poorColor", &KXChartTheme::getPoorColor},
    {"m_positiveColor", nullptr}, // of bars that the user asks for
    {"m_progressColor", &KXChartTheme::obtainFirstColor},
    {"m_quietColor", &KXChartTheme::getFaintText},
    {"m_scaleProperty", &KXChartTheme::getQuietText},
    {"m_scrollBarColor", &KXChartTheme::getTrackColor},
    {"m_scrollBarSliderColor", &KXChartTheme::getAxisColor},
    {"m_separatorColor", &KXChartTheme::getGridColor},
    {"m_seriesColors", nullptr, nullptr, true},
    {"m_targetColor", &KXChartTheme::getStrongText},
    {"m_targetFontColor", &KXChartTheme::getQuietText},
    {"m_titleProperty", &KXChartTheme::getStrongText},
    {"m_trackColor", &KXChartTheme::getTrackColor},
    {"m_totalColor", &KXChartTheme::getTotalColor},
    {"m_totalProperty", &KXChartTheme::getText},
    {"m_valueProperty", &KXChartTheme::getStrongText},
};

/** @param type the class of the key's object */
const Role* findRole(const std::string& key, const std::string& type)
{
    const auto found = std::ranges::find_if(
        roles, [&](const Role& role) { return key == role.key && (!role.type || type == role.type); });
    return found == std::end(roles) ? nullptr : &*found;
}

/** Walks a chart, the objects that it holds for good, and beside them those of a chart as it is made. */
class ThemeChange {
public:
    ThemeChange(KXChart& chart, const KXChartTheme* former, const KXChartTheme* theme)
        : m_chart(&chart), m_former(former), m_theme(theme)
    {
    }

    void walk(UXJsonObject& object, UXJsonObject& usual)
    {
        const UXPropertyTable* table = UXPropertyTable::obtainTable(object);
        if (!table || UXPropertyTable::obtainTable(usual) != table)
            return;
        for (const std::string& key : table->obtainKeys()) {
            const UXPropertyTable::Found own = table->find(object, key), made = table->find(usual, key);
            if (own.property && made.property)
                _change(*own.property, table->getName(), own.owner, made.owner);
            if (!m_chart.isAlive())
                return;
        }
    }

private:
    using Lines = std::vector<KXAssistantLineProperty>;

    void _change(const UXProperty& property, const char* typeName, void* owner, void* usualOwner)
    {
        const UXPropertyType& type = property.type();
        void *const place = property.place(owner), *const usual = property.place(usualOwner);
        if (type.isObject)
            walk(*static_cast<UXJsonObject*>(place), *static_cast<UXJsonObject*>(usual));
        else if (*type.info == typeid(Lines) && property.update)
            _changeLines(property, owner, *static_cast<const Lines*>(place));
        else if (const Role* role = findRole(property.key, typeName); !role || !property.update)
            return;
        else if (role->takesPalette)
            _changePalette(property, owner, place, usual);
        else if (role->color)
            _changeColor(property, *role, owner, place, usual);
    }

    void _changeColor(const UXProperty& property, const Role& role, void* owner, const void* place,
                      const void* usual)
    {
        const auto obtainColor = [&](const KXChartTheme* theme, const UXColor& otherwise) {
            return theme ? std::invoke(role.color, *theme) : otherwise;
        };
        if (*property.type().info == typeid(UXColor)) {
            const auto& made = *static_cast<const UXColor*>(usual);
            const UXColor wanted = obtainColor(m_theme, made);
            if (const auto& present = *static_cast<const UXColor*>(place);
                present == obtainColor(m_former, made) && present != wanted)
                property.update(owner, &wanted);
        } else if (*property.type().info == typeid(UXTextProperty)) {
            const UXColor made = static_cast<const UXTextProperty*>(usual)->textColor;
            auto text = *static_cast<const UXTextProperty*>(place);
            const UXColor wanted = obtainColor(m_theme, made);
            if (text.textColor != obtainColor(m_former, made) || text.textColor == wanted)
                return;
            text.textColor = wanted;
            property.update(owner, &text);
        }
    }

    void _changePalette(const UXProperty& property, void* owner, const void* place, const void* usual)
    {
        using Colors = std::vector<UXColor>;
        const auto& made = *static_cast<const Colors*>(usual);
        const Colors wanted = m_theme ? m_theme->getPalette() : made;
        if (const auto& present = *static_cast<const Colors*>(place);
            present == (m_former ? m_former->getPalette() : made) && present != wanted)
            property.update(owner, &wanted);
    }

    /** Lines of reference, each an object of its own in a list. */
    void _changeLines(const UXProperty& property, void* owner, const Lines& present)
    {
        Lines wanted = present;
        KXAssistantLineProperty usual;
        for (KXAssistantLineProperty& line : wanted)
            walk(line, usual);
        if (wanted != present)
            property.update(owner, &wanted);
    }

    const UXObjectWatcher m_chart;
    const KXChartTheme* m_former;
    const KXChartTheme* m_theme;
};

} // namespace

void kxApplyTheme(KXChart& chart, const KXChartTheme* former, const KXChartTheme* theme)
{
    KXJsonObjectFactory factory;
    const std::unique_ptr<UXJsonObject> usual(factory.create(chart.customSerializeTypeID()));
    if (usual)
        ThemeChange(chart, former, theme).walk(chart, *usual);
}

bool kxIsThemeKey(const std::string& key) { return findRole(key, {}) != nullptr; }
