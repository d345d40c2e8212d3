#include "ux/ux_json_object_factory.h"

UXJsonObjectFactory::UXJsonObjectFactory() = default;
UXJsonObjectFactory::UXJsonObjectFactory(const UXJsonObjectFactory&) = default;
UXJsonObjectFactory& UXJsonObjectFactory::operator=(const UXJsonObjectFactory&) = default;
UXJsonObjectFactory::~UXJsonObjectFactory() = default;

UXJsonObject* UXJsonObjectFactory::create(const std::string& typeName) { return customCreate(typeName); }

void UXJsonObjectFactory::registerDeserializedObject(std::int64_t id, UXJsonObject* object)
{
    m_deserializedObjects.insert_or_assign(id, Registered{object, UXJsonObjectWatcher(object)});
}

UXJsonObject* UXJsonObjectFactory::obtainDeserializedObject(std::int64_t id) const
{
    const auto found = m_deserializedObjects.find(id);
    const bool isThere = found != m_deserializedObjects.end() && found->second.watcher.isAlive();
    return isThere ? found->second.object : nullptr;
}

void UXJsonObjectFactory::clearDeserializedObjects() { m_deserializedObjects.clear(); }

bool UXJsonObjectFactory::getSerializeRootLevelOnly() const { return m_serializeRootLevelOnly; }
void UXJsonObjectFactory::setSerializeRootLevelOnly(bool rootLevelOnly)
{
    m_serializeRootLevelOnly = rootLevelOnly;
}

bool UXJsonObjectFactory::getSerializePointerAddress() const { return m_serializePointerAddress; }
void UXJsonObjectFactory::setSerializePointerAddress(bool pointerAddress)
{
    m_serializePointerAddress = pointerAddress;
}

bool UXJsonObjectFactory::getSerializeUsingTemplateKeys() const { return m_serializeUsingTemplateKeys; }
void UXJsonObjectFactory::setSerializeUsingTemplateKeys(bool templateKeys)
{
    m_serializeUsingTemplateKeys = templateKeys;
}

bool UXJsonObjectFactory::getGenerateUniqueLastObjectID() const { return m_generateUniqueLastObjectID; }
void UXJsonObjectFactory::setGenerateUniqueLastObjectID(bool uniqueLastObjectID)
{
    m_generateUniqueLastObjectID = uniqueLastObjectID;
}

UXJsonObjectUseCase UXJsonObjectFactory::getUseCase() const { return m_useCase; }
void UXJsonObjectFactory::setUseCase(UXJsonObjectUseCase useCase) { m_useCase = useCase; }

UXJsonObject* UXJsonObjectFactory::customCreate(const std::string&) { return nullptr; }
