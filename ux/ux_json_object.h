#pragma once

#include "ux/ux_export.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class UXJsonObjectFactory;
class UXJsonPathResolver;
class UXJsonValue;
class UXPropertyTable;
struct UXColor;
struct UXFont;
struct UXHintInfo;
struct UXPoint;
struct UXRect;
struct UXSize;
struct UXTextProperty;
enum class UXArrangement : int;
enum class UXHintPosition : int;
enum class UXJsonObjectUseCase : int;
enum class UXPosition : int;
enum class UXSymbolStyle : int;
enum class UXTextAlign : int;

/** An object that can be written to JSON text and read back.
 *
 *  A class writes its members in customSerialize and reads them in customDeserialize, with the operations
 * below. A key is the member's name. In a list the key is empty: the next element for a writer, the value on
 * top of the reader's stack for a reader. An object's value holds "type" and "version" before its own keys, a
 * nested object's also "id", a number that counts from 1 in each document.
 *
 *  Reading is strict and never throws: a key that is missing or holds another type leaves the member as it
 * was and answers false. Of a key that occurs twice the last one counts. Writing and reading outside of
 * serialize and deserialize has no effect. Text is UTF-8; bytes that are none are written as U+FFFD. */
class UX_EXPORT UXJsonObject {
public:
    UXJsonObject();
    /** A copy takes nothing of a document that the other is written to or read from. */
    UXJsonObject(const UXJsonObject& other);
    UXJsonObject& operator=(const UXJsonObject& other);
    virtual ~UXJsonObject();

    // What a class says about itself
    virtual void customSerialize() = 0;
    /** @return the class's own name, by which a factory makes the object again */
    virtual std::string customSerializeTypeID() = 0;
    /** @return the version of what customSerialize writes, a decimal number; "0" unless a class says
     * otherwise */
    virtual std::string customSerializeVersion();
    /** @return whether every key that was asked for was read */
    virtual bool customDeserialize() = 0;

    // Documents
    /** @param factory settings, not kept; null for the default ones
     *  @return the document, the same bytes for the same state; empty while this object is being written
     * already */
    std::string serialize(UXJsonObjectFactory* factory = nullptr);
    /** @param factory makes the nested objects, not kept; without one there are none
     *  @return whether the text is a JSON object and every key was read. Broken text, nesting deeper than
     * 256, text above 64 MiB and a number beyond double's range leave the object as it was. */
    bool deserialize(const std::string& text, UXJsonObjectFactory* factory = nullptr);

    /** @return this object's value as far as it is written; null while nothing is being written */
    const UXJsonValue* getSerializedJsonValue() const;
    /** @return whether the value read last named this type, or none, and no version above this class's */
    bool getDeserializedObjectIsCompatible() const;
    /** @return the keys of the document read last into this object that nobody asked for, those of nested
     * objects behind theirs and a dot, as in "m_yAxisProperty.m_showTitel"; at most 1000 */
    const std::vector<std::string>& getDeserializedUnknownKeys() const;
    /** @return what the present document is for, the default use case without a document */
    UXJsonObjectUseCase getSerializeUseCase() const;

    // Writing values. NaN and infinities are written as null.
    void serializeBool(const std::string& key, bool value);
    void serializeInt64(const std::string& key, int value);
    void serializeInt64(const std::string& key, std::int64_t value);
    void serializeDouble(const std::string& key, double value);
    void serializeString(const std::string& key, const std::string& value);
    void serializeUXPoint(const std::string& key, const UXPoint& value);
    void serializeUXSize(const std::string& key, const UXSize& value);
    void serializeUXRect(const std::string& key, const UXRect& value);
    void serializeUXColor(const std::string& key, const UXColor& value);
    void serializeUXFont(const std::string& key, const UXFont& value);
    void serializeUXTextProperty(const std::string& key, const UXTextProperty& value);
    void serializeUXHintInfo(const std::string& key, const UXHintInfo& value);
    void serializeUXPosition(const std::string& key, UXPosition value);
    void serializeUXHintPosition(const std::string& key, UXHintPosition value);
    void serializeUXArrangement(const std::string& key, UXArrangement value);
    void serializeUXSymbolStyle(const std::string& key, UXSymbolStyle value);
    void serializeUXTextAlign(const std::string& key, UXTextAlign value);
    /** Writes the object with its type name, version and id; null, and an object inside itself, as null. */
    void serializeObject(const std::string& key, UXJsonObject* object);
    void serializeObjectList(const std::string& key, const std::vector<UXJsonObject*>& objects);
    /** Writes the id of an object of the document, 0 for the document's own, or the place of one that the
     * path resolver knows inside this object; null as null. */
    void serializeObjectWeakRef(const std::string& key, UXJsonObject* object);

    // Writing a list: check, begin, elements, end, and in every case finalize
    /** @return whether the list can be written here */
    bool serializeCheckInit(const std::string& key);
    void serializeArrayBegin();
    void serializeArrayEnd(const std::string& key);
    void serializeCheckFinalize();

    // Reading values
    /** @return false when the object has no version text */
    bool deserializeObjectVersion(std::string& version);
    bool deserializeBool(const std::string& key, bool& value);
    /** A whole number; one beyond the type's range becomes its limit. */
    bool deserializeInt64(const std::string& key, int& value);
    bool deserializeInt64(const std::string& key, std::int64_t& value);
    bool deserializeDouble(const std::string& key, double& value);
    bool deserializeString(const std::string& key, std::string& value);
    bool deserializeUXPoint(const std::string& key, UXPoint& value);
    bool deserializeUXSize(const std::string& key, UXSize& value);
    bool deserializeUXRect(const std::string& key, UXRect& value);
    bool deserializeUXColor(const std::string& key, UXColor& value);
    bool deserializeUXFont(const std::string& key, UXFont& value);
    bool deserializeUXTextProperty(const std::string& key, UXTextProperty& value);
    bool deserializeUXHintInfo(const std::string& key, UXHintInfo& value);
    bool deserializeUXPosition(const std::string& key, UXPosition& value);
    bool deserializeUXHintPosition(const std::string& key, UXHintPosition& value);
    bool deserializeUXArrangement(const std::string& key, UXArrangement& value);
    bool deserializeUXSymbolStyle(const std::string& key, UXSymbolStyle& value);
    bool deserializeUXTextAlign(const std::string& key, UXTextAlign& value);
    /** Makes the object with the factory, reads it, and hands it to place, which owns it from then on,
     * whatever it answers. A null that was written for no object is handed on as null.
     *  @return whether the object was made, read in full and placed */
    bool deserializeObject(const std::string& key, const std::function<bool(UXJsonObject*)>& place);
    /** Reads into an object that exists; its type must be the stored one. */
    bool deserializeExistingObject(const std::string& key, UXJsonObject* object);
    /** Reads into objects that exist, in order. A wrong element is passed over, and so is what has no
     * counterpart.
     *  @return whether there was one good element for each object */
    bool deserializeExistingObjectList(const std::string& key, const std::vector<UXJsonObject*>& objects);
    /** Hands place the object that was referred to, which stays its owner's, or null when null was written.
     *  @return false, without calling place, when no object read so far and none inside this one is meant */
    bool deserializeObjectWeakRef(const std::string& key, const std::function<bool(UXJsonObject*)>& place);

    // Reading a list: begin, count, elements, and in every case end
    bool deserializeArrayBegin(const std::string& key);
    bool deserializePeekArray(std::uint64_t& count);
    /** @param value the element, to be pushed, popped and released with deleteJsonValue */
    bool deserializeArrayElement(std::uint64_t index, UXJsonValue*& value);
    /** @return whether the matching deserializeArrayBegin found a list */
    bool deserializeArrayEnd();
    /** Makes value the one that the readers look into. */
    void pushJsonValue(UXJsonValue* value);
    void popJsonValue();
    void deleteJsonValue(UXJsonValue* value);

protected:
    /** @param resolver names the objects inside this one that are not written with it; outlives the object */
    explicit UXJsonObject(const UXJsonPathResolver& resolver);

private:
    friend class UXJsonObjectFactory;
    friend class UXJsonObjectWatcher;
    friend class UXPropertyAccessor;
    friend class UXPropertyTable;
    friend class UXPropertyTableBinding;
    struct Document;
    struct Frame;
    class FrameScope;
    struct State;

    const std::shared_ptr<State>& _obtainState() const;
    /** @return a flag that outlives the object and then turns false */
    std::shared_ptr<const bool> _obtainLife() const;
    Frame* _obtainWriter() const;
    Frame* _obtainReader() const;
    void _write(const std::string& key, UXJsonValue value);
    UXJsonValue* _find(const std::string& key) const;
    std::string _obtainPlace(const std::string& key) const;
    template <class T>
    void _encode(const std::string& key, const T& value);
    template <class T>
    bool _decode(const std::string& key, T& value) const;
    void _writeMembers(Document& document, UXJsonValue& value);
    /** @param key under which the value stands in the object that is being read; empty for the document */
    bool _readMembers(Document& document, UXJsonValue& value, const std::string& key);
    static void _registerObject(Document& document, const UXJsonValue& value, UXJsonObject* object);

    // Made when the object is first written, read or watched.
    mutable std::shared_ptr<State> m_state;
    const UXJsonPathResolver* m_pathResolver = nullptr;
    const UXPropertyTable* m_propertyTable = nullptr;
};
