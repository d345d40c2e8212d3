#include "key_reference.h"

#include "kx_json_object_factory.h"

#include <algorithm>
#include <cctype>
#include <memory>

namespace {

/** Writes one value alone. */
class ValueWriter : public UXJsonObject {
public:
    ValueWriter(const UXProperty& property, void* owner) : m_property(property), m_owner(owner) {}

    void customSerialize() override
    {
        m_property.type().write(m_property.type(), *this, m_property.key, m_property.place(m_owner));
    }
    std::string customSerializeTypeID() override { return ""; }
    bool customDeserialize() override { return true; }

private:
    const UXProperty& m_property;
    void* m_owner;
};

/** @return the value as it stands in a document; nothing for what is left out, a part's place and a nested
 * object */
std::string obtainDefault(const UXProperty& property, void* owner)
{
    if (property.type().isObject)
        return "";
    const std::string document = ValueWriter(property, owner).serialize();
    const std::string key = '"' + std::string(property.key) + "\":";
    const std::size_t place = document.find(key);
    if (place == std::string::npos)
        return "";
    const std::size_t start = place + key.size();
    return '`' + document.substr(start, document.rfind('}') - start) + '`';
}

std::string obtainLink(const std::string& name)
{
    std::string anchor = name;
    std::ranges::transform(anchor, anchor.begin(),
                           [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return "[" + name + "](#" + anchor + ")";
}

/** @return one of the objects of a list; null for what is no list of objects */
std::unique_ptr<UXJsonObject> makeElement(const UXPropertyType& type)
{
    const char* const name = type.element ? type.element().name : nullptr;
    return std::unique_ptr<UXJsonObject>(name ? KXJsonObjectFactory().create(name) : nullptr);
}

std::string obtainTypeText(const UXPropertyType& type)
{
    if (makeElement(type))
        return "list of: object: " + obtainLink(type.element().name);
    if (type.element)
        return "list of: " + obtainTypeText(type.element());
    if (!type.names)
        return type.name;
    std::string text;
    for (int number = 0; !type.names().obtainNameOfNumber(number).empty(); ++number)
        text += (number == 0 ? "`\"" : ", `\"") + type.names().obtainNameOfNumber(number) + "\"`";
    return text;
}

std::string obtainResetText(const UXPropertyReset& reset)
{
    if (!reset.group)
        return "";
    const std::string group = reset.group;
    if (group.empty())
        return reset.onlyByAll ? "all" : "every";
    return reset.onlyByAll ? group + ", all" : group;
}

std::string obtainEffectText(UXPropertyEffect effect)
{
    const char* const texts[] = {"", "repaints", "recolours", "lays out", "reloads"};
    return texts[static_cast<int>(effect)];
}

} // namespace

KeyReference::KeyReference()
{
    for (const std::string& type : KXJsonObjectFactory::obtainChartTypeNames())
        _addKind(type);
}

void KeyReference::_addKind(const std::string& type)
{
    const std::unique_ptr<UXJsonObject> chart(KXJsonObjectFactory().create(type));
    m_otherDefaults.clear();
    const std::string links = _addObject(*chart, "");
    m_kinds += "## " + type + " documents\n\nVersion " + chart->customSerializeVersion() +
               ". Keys, in the order in which they are saved: " + links + ".\n\n";
    if (!m_otherDefaults.empty())
        m_kinds += "It starts from other values than the tables say:\n\n| Key | Default |\n|---|---|\n" +
                   m_otherDefaults + "\n";
}

std::string KeyReference::_addObject(UXJsonObject& object, const std::string& path)
{
    std::string links;
    for (const UXPropertyTable* table = UXPropertyTable::obtainTable(object); table;
         table = table->getParent()) {
        links = obtainLink(table->getName()) + (links.empty() ? "" : ", ") + links;
        _addTable(*table, object);
        void* owner = table->obtainOwner(object);
        for (const UXProperty& property : table->getWrittenProperties()) {
            const std::string value = obtainDefault(property, owner);
            const auto [known, isNew] = m_defaults.try_emplace({table, property.key}, value);
            if (!isNew && known->second != value)
                m_otherDefaults += "| `" + path + property.key + "` | " + value + " |\n";
            if (&property.type() == &uxObtainNestedObjectType())
                _addObject(*static_cast<UXJsonObject*>(property.place(owner)), path + property.key + ".");
            if (const std::unique_ptr<UXJsonObject> element = makeElement(property.type()))
                _addObject(*element, path + property.key + ".");
        }
    }
    return links;
}

void KeyReference::_addTable(const UXPropertyTable& table, UXJsonObject& object)
{
    if (m_tables.find("\n## " + std::string(table.getName()) + "\n") != std::string::npos)
        return;
    m_tables += "\n## " + std::string(table.getName()) +
                "\n\n| Key | Type | Default | Meaning | Reset | Change |\n|---|---|---|---|---|---|\n";
    void* owner = table.obtainOwner(object);
    for (const UXProperty& property : table.getWrittenProperties()) {
        std::string type = obtainTypeText(property.type());
        if (&property.type() == &uxObtainNestedObjectType())
            type = "object: " +
                   obtainLink(static_cast<UXJsonObject*>(property.place(owner))->customSerializeTypeID());
        m_tables += "| `" + std::string(property.key) + "` | " + type + " | " +
                    obtainDefault(property, owner) + " | " + property.meaning + " | " +
                    obtainResetText(property.reset) + " | " + obtainEffectText(property.effect) + " |\n";
    }
}
