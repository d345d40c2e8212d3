#pragma once

#include "ux/ux_export.h"
#include "ux/ux_json_object_watcher.h"

#include <cstdint>
#include <map>
#include <string>

enum class UXJsonObjectUseCase : int;

/** Makes the objects that a document names by type, knows those read so far by their identifier, and holds
 * what can be chosen about a document. One factory serves one document at a time. */
class UX_EXPORT UXJsonObjectFactory {
public:
    UXJsonObjectFactory();
    UXJsonObjectFactory(const UXJsonObjectFactory&);
    UXJsonObjectFactory& operator=(const UXJsonObjectFactory&);
    virtual ~UXJsonObjectFactory();

    /** @return a new object of the type, which the caller owns; null for an unknown name */
    UXJsonObject* create(const std::string& typeName);

    /** Records an object, which stays the caller's, under the identifier that references to it use. */
    void registerDeserializedObject(std::int64_t id, UXJsonObject* object);
    /** @return the object recorded last under the identifier; null when there is none or it is gone */
    UXJsonObject* obtainDeserializedObject(std::int64_t id) const;
    /** Forgets all recorded objects; reading a document begins and ends with it. */
    void clearDeserializedObjects();

    // Settings, all off at first

    /** On: nested objects are left out of the text. */
    bool getSerializeRootLevelOnly() const;
    void setSerializeRootLevelOnly(bool rootLevelOnly);
    /** On: an object's identifier is its address, to find it in a debugger. */
    bool getSerializePointerAddress() const;
    void setSerializePointerAddress(bool pointerAddress);
    /** On: keys are written and read without a leading "m_", as in templates that people write. The keys
     *  m_type, m_version and m_id stay whole. */
    bool getSerializeUsingTemplateKeys() const;
    void setSerializeUsingTemplateKeys(bool templateKeys);
    /** On: identifiers go on from the last one that this factory gave out, so that documents can be merged.
     */
    bool getGenerateUniqueLastObjectID() const;
    void setGenerateUniqueLastObjectID(bool uniqueLastObjectID);
    /** What the document is for; objects ask it with UXJsonObject::getSerializeUseCase. */
    UXJsonObjectUseCase getUseCase() const;
    void setUseCase(UXJsonObjectUseCase useCase);

    /** Makes an object of the type. This one knows no types and answers null. */
    virtual UXJsonObject* customCreate(const std::string& typeName);

private:
    friend class UXJsonObject;
    struct Registered {
        UXJsonObject* object;
        UXJsonObjectWatcher watcher;
    };

    std::map<std::int64_t, Registered> m_deserializedObjects;
    std::int64_t m_lastObjectID = 0;
    bool m_serializeRootLevelOnly = false;
    bool m_serializePointerAddress = false;
    bool m_serializeUsingTemplateKeys = false;
    bool m_generateUniqueLastObjectID = false;
    UXJsonObjectUseCase m_useCase{};
};
