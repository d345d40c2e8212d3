#include "fuzz_settings.h"

#include "kx_chart_property_base.h"
#include "kx_json_object_factory.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_json_object_watcher.h"
#include "ux/ux_property_accessor.h"

#include <iterator>
#include <map>
#include <memory>

namespace {

/** @return a document with the keys of the object's type: that of a new one, made once, as far as the factory
 * knows it. Writing what a chart has would cost more than all else that is done with it. */
std::string obtainDocument(UXJsonObject& object)
{
    static std::map<std::string, std::string> documents;
    const auto [found, isNew] = documents.try_emplace(object.customSerializeTypeID());
    if (isNew) {
        const std::unique_ptr<UXJsonObject> made(KXJsonObjectFactory().create(found->first));
        if (made)
            found->second = made->serialize();
    }
    return found->second.empty() ? object.serialize() : found->second;
}

} // namespace

std::string FuzzSettings::_pickQuoted(const std::string& document)
{
    const std::size_t from = document.size() * m_input.takeByte() / 256;
    const std::size_t begin = document.find('"', from);
    const std::size_t end = begin == std::string::npos ? begin : document.find('"', begin + 1);
    return end == std::string::npos ? std::string() : document.substr(begin + 1, end - begin - 1);
}

void FuzzSettings::update(UXJsonObject& object)
{
    const std::string document = obtainDocument(object);
    const std::string key = _pickQuoted(document);
    UXPropertyAccessor accessor(&object);
    UXJsonObject* inner = nullptr;
    if (accessor.obtainObject(key, &inner) && inner)
        return update(*inner);
    const bool isWatched = m_input.takeBelow(8) == 7;
    if (isWatched)
        accessor.markOldProperty();
    if (!_updateSimple(accessor, key, document))
        _updateComposed(accessor, key);
    _read(accessor, key);
    if (isWatched && accessor.propertyChanged(true))
        require(!accessor.propertyChanged(false), "nothing changes by itself");
}

bool FuzzSettings::_updateSimple(UXPropertyAccessor& accessor, const std::string& key,
                                 const std::string& document)
{
    const bool flag = m_input.takeBool();
    const double number = m_input.takeNumber();
    const int whole = m_input.takeInt();
    const std::string text = m_input.takeBool() ? m_input.takeText() : _pickQuoted(document);
    // One of them is of the key's type.
    return accessor.updateValue(key, flag) || accessor.updateValue(key, number) ||
           accessor.updateValue(key, whole) || accessor.updateValue(key, std::int64_t{whole}) ||
           accessor.updateEnumString(key, text) || accessor.updateValue(key, text) ||
           accessor.updateValue(key, UXColor(whole, flag, 255, number));
}

bool FuzzSettings::_updateComposed(UXPropertyAccessor& accessor, const std::string& key)
{
    UXTextProperty property;
    if (!accessor.obtainValue(key, property)) {
        const int index = m_input.takeByte();
        return accessor.updateVectorValue(key, static_cast<std::uint64_t>(index),
                                          UXColor(m_input.takeByte(), 0, 0));
    }
    property.font.size = m_input.takeInt();
    property.lineMode = m_input.takeBelow(3);
    property.align = static_cast<UXTextAlign>(m_input.takeBelow(4));
    property.option = static_cast<UXTextOption>(m_input.takeBelow(5));
    property.font.familyName = m_input.takeBool() ? m_input.takeText() : "Default";
    return accessor.updateValue(key, property);
}

void FuzzSettings::_read(const UXPropertyAccessor& accessor, const std::string& key) const
{
    bool flag = false;
    double number = 0;
    std::string text;
    std::uint64_t count = 0;
    UXColor color;
    accessor.obtainValue(key, flag);
    accessor.obtainValue(key, number);
    accessor.obtainValue(key, text);
    accessor.obtainEnumString(key, text);
    if (accessor.obtainUXColorVectorCount(key, count))
        require(count == 0 || accessor.obtainVectorValue(key, count - 1, color), "a list has its elements");
}

UXJsonObject* FuzzSettings::_pickInner(UXJsonObject& object, const std::string& document)
{
    const std::string key = _pickQuoted(document);
    UXJsonObject* inner = nullptr;
    return UXPropertyAccessor(&object).obtainObject(key, &inner) && inner ? inner : &object;
}

KXKeys FuzzSettings::takeGroups()
{
    static constexpr const char* groups[] = {
        "Orientation", "DataDensity", "GridLine",   "ColorSeries", "Highlight",  "Hint",      "Title",
        "AxisRange",   "AxisTick",    "Stack",      "Axis",        "TickLabel",  "ScrollBar", "Bar",
        "DataLabel",   "Total",       "DataFormat", "Legend",      "Background", "Border"};
    KXKeys chosen;
    for (int count = m_input.takeBelow(8); count > 0; --count)
        chosen.insert(groups[m_input.takeBelow(static_cast<int>(std::size(groups)))]);
    return chosen;
}

void FuzzSettings::exchange(KXChartPropertyBase& from, KXChartPropertyBase& to,
                            const std::function<void()>& act)
{
    const std::string document = obtainDocument(from);
    KXKeys keys;
    for (int count = m_input.takeBelow(4); count > 0; --count)
        keys.insert(_pickQuoted(document));
    const bool exclude = m_input.takeBool();
    // Each ends with the call: what it tells may destroy both.
    switch (m_input.takeBelow(8)) {
    case 0:
        return from.assignTo(&to, keys, exclude);
    case 1:
        return from.assignUpdatedPropertiesTo(&to, keys, exclude);
    case 2:
        return to.unmarkUpdatedProperties();
    case 3:
        return to.triggerAllPropertiesUpdatedEvents();
    case 4:
        return to.registerUpdatedEvents(_pickQuoted(document), [act](const std::string&) { act(); });
    case 5: {
        const std::unique_ptr<KXChartPropertyBase> made(from.copy(keys, exclude));
        return made->assignTo(&to, keys, exclude);
    }
    case 6:
        return to.registerUpdatedEvents([act](const std::string&) { act(); });
    default: {
        const auto type = static_cast<KXChartResetType>(m_input.takeBelow(2));
        return to.customResetProperties(type, &from, takeGroups());
    }
    }
}

void FuzzSettings::reload(UXJsonObject& from, UXJsonObject& to)
{
    std::string document = from.serialize();
    if (UXJsonObject* inner = _pickInner(from, document); inner != &from)
        document = inner->serialize();
    const std::size_t place = document.size() * m_input.takeByte() / 256;
    if (m_input.takeBool() && place < document.size())
        document[place] = static_cast<char>(m_input.takeByte());
    KXJsonObjectFactory factory;
    to.deserialize(document, &factory);
}
