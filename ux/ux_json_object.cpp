#include "ux/ux_json_object.h"

#include "ux/json/ux_json_encoding.h"
#include "ux/json/ux_json_text.h"
#include "ux/ux_assert.h"
#include "ux/ux_json_object_factory.h"
#include "ux/ux_json_object_watcher.h"
#include "ux/ux_json_path_resolver.h"
#include "ux/ux_json_value.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_read_double.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace {

constexpr const char* c_typeKey = "type";
constexpr const char* c_versionKey = "version";
constexpr const char* c_idKey = "id";

/** What is written at most this deep leaves room for the levels inside a value, so that it can be read. */
constexpr int c_deepestContainer = uxDeepestJsonNesting - 8;

/** A hostile document has any number of keys. */
constexpr std::size_t c_mostUnknownKeys = 1000;

/** References to the document's own object use it; nested objects have others. */
constexpr std::int64_t c_rootID = 0;

/** @return the key as the document spells it */
std::string obtainSpelling(const UXJsonObjectFactory& factory, const std::string& key)
{
    if (!factory.getSerializeUsingTemplateKeys() || !key.starts_with("m_"))
        return key;
    const std::string rest = key.substr(2);
    const bool isTaken = rest.empty() || rest == c_typeKey || rest == c_versionKey || rest == c_idKey;
    return isTaken ? key : rest;
}

/** @return whether the stored type is the object's; a value without a type fits every object */
bool isOfType(const UXJsonValue& value, UXJsonObject& object)
{
    const UXJsonValue* stored = value.find(c_typeKey);
    std::string type;
    return !stored || (stored->getString(type) && type == object.customSerializeTypeID());
}

bool readDecimal(const std::string& text, double& value)
{
    const char* end = text.data() + text.size();
    const auto [stop, error] = uxReadDouble(text.data(), end, value);
    return error == std::errc() && stop == end;
}

/** @return whether the stored version is not above the object's; a value without a version is old enough */
bool isOfKnownVersion(const UXJsonValue& value, UXJsonObject& object)
{
    const UXJsonValue* stored = value.find(c_versionKey);
    std::string text;
    double version = 0, known = 0;
    if (!stored)
        return true;
    return stored->getString(text) && readDecimal(text, version) &&
           readDecimal(object.customSerializeVersion(), known) && version <= known;
}

} // namespace

/** What the objects of one document share while it is written or read. */
struct UXJsonObject::Document {
    struct Identity {
        std::int64_t id = 0;
        bool isWritten = false;
    };

    Document(UXJsonObjectFactory& usedFactory, const UXJsonObject* rootObject) : factory(usedFactory)
    {
        identities[rootObject] = {c_rootID, true};
        if (factory.m_generateUniqueLastObjectID)
            lastID = factory.m_lastObjectID;
    }

    /** @return the identity of an object of the document, made when it is first asked for */
    Identity& obtainIdentity(const UXJsonObject* object);
    /** @return whether the object is being written or read right now */
    bool isInside(const UXJsonObject& object) const;

    UXJsonObjectFactory& factory;
    std::map<const UXJsonObject*, Identity> identities;
    std::int64_t lastID = 0;
    int depth = 0;
    std::string path; // of the object that is being read
    std::vector<std::string> unknownKeys{};
};

UXJsonObject::Document::Identity& UXJsonObject::Document::obtainIdentity(const UXJsonObject* object)
{
    const auto [found, isNew] = identities.try_emplace(object);
    if (isNew && factory.m_serializePointerAddress)
        found->second.id = static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(object));
    else if (isNew)
        found->second.id = ++lastID;
    return found->second;
}

/** Where one object stands in a document. */
struct UXJsonObject::Frame {
    Document& document;
    bool isWriting;
    UXJsonValue* own;
    Frame* outer = nullptr; // of the same object, which takes part in another document

    std::vector<UXJsonValue*> values{own};                 // the last one is written or looked into
    std::vector<std::unique_ptr<UXJsonValue>> openLists{}; // being written
    std::vector<UXJsonValue*> readLists{};                 // null where none was found
    std::vector<std::string> readListKeys{};
    std::set<std::string> readKeys{}; // of the object itself, as the document spells them
    int checks = 0;
};

struct UXJsonObject::State {
    bool isAlive = true;
    bool isCompatible = true;
    std::vector<std::string> unknownKeys{};
    Frame* frame = nullptr;
};

bool UXJsonObject::Document::isInside(const UXJsonObject& object) const
{
    const Frame* frame = object.m_state ? object.m_state->frame : nullptr;
    while (frame && &frame->document != this)
        frame = frame->outer;
    return frame != nullptr;
}

/** Puts an object into a document until the scope ends, whether or not the object lives that long. */
class UXJsonObject::FrameScope {
public:
    FrameScope(const UXJsonObject& object, Document& document, UXJsonValue& value, bool isWriting)
        : m_state(object._obtainState()), m_frame{document, isWriting, &value, m_state->frame}
    {
        m_state->frame = &m_frame;
        ++document.depth;
    }
    ~FrameScope()
    {
        m_state->frame = m_frame.outer;
        --m_frame.document.depth;
    }
    FrameScope(const FrameScope&) = delete;
    FrameScope& operator=(const FrameScope&) = delete;

    State& getState() { return *m_state; }
    const Frame& getFrame() const { return m_frame; }

private:
    std::shared_ptr<State> m_state;
    Frame m_frame;
};

UXJsonObject::UXJsonObject() = default;

UXJsonObject::UXJsonObject(const UXJsonPathResolver& resolver) : m_pathResolver(&resolver) {}

UXJsonObject::UXJsonObject(const UXJsonObject& other)
    : m_pathResolver(other.m_pathResolver), m_propertyTable(other.m_propertyTable)
{
}

UXJsonObject& UXJsonObject::operator=(const UXJsonObject&) { return *this; }

UXJsonObject::~UXJsonObject()
{
    if (m_state)
        m_state->isAlive = false;
}

void UXJsonObject::customSerialize() {}
std::string UXJsonObject::customSerializeTypeID() { return {}; }
std::string UXJsonObject::customSerializeVersion() { return "0"; }
bool UXJsonObject::customDeserialize() { return true; }

// Documents

std::string UXJsonObject::serialize(UXJsonObjectFactory* factory)
{
    for (const Frame* frame = m_state ? m_state->frame : nullptr; frame; frame = frame->outer) {
        if (!uxAssert(!frame->isWriting))
            return {};
    }
    UXJsonObjectFactory defaults;
    Document document(factory ? *factory : defaults, this);
    UXJsonValue value = UXJsonValue::makeObject();
    _writeMembers(document, value);
    document.factory.m_lastObjectID = document.lastID;
    return uxFormatJson(value);
}

bool UXJsonObject::deserialize(const std::string& text, UXJsonObjectFactory* factory)
{
    const std::unique_ptr<UXJsonValue> value = uxParseJson(text);
    if (!value || !value->isObject())
        return false;
    const UXNotificationScope scope;
    UXJsonObjectFactory defaults;
    Document document(factory ? *factory : defaults, this);
    document.factory.clearDeserializedObjects();
    document.factory.registerDeserializedObject(c_rootID, this);
    const std::shared_ptr<State> state = _obtainState();
    const bool isComplete = _readMembers(document, *value, "");
    state->unknownKeys = std::move(document.unknownKeys);
    document.factory.clearDeserializedObjects();
    return isComplete;
}

const UXJsonValue* UXJsonObject::getSerializedJsonValue() const
{
    const Frame* frame = m_state ? m_state->frame : nullptr;
    return frame && frame->isWriting ? frame->own : nullptr;
}

bool UXJsonObject::getDeserializedObjectIsCompatible() const { return !m_state || m_state->isCompatible; }

const std::vector<std::string>& UXJsonObject::getDeserializedUnknownKeys() const
{
    static const std::vector<std::string> none;
    return m_state ? m_state->unknownKeys : none;
}

UXJsonObjectUseCase UXJsonObject::getSerializeUseCase() const
{
    const Frame* frame = m_state ? m_state->frame : nullptr;
    return frame ? frame->document.factory.getUseCase() : UXJsonObjectUseCase{};
}

const std::shared_ptr<UXJsonObject::State>& UXJsonObject::_obtainState() const
{
    if (!m_state)
        m_state = std::make_shared<State>();
    return m_state;
}

std::shared_ptr<const bool> UXJsonObject::_obtainLife() const
{
    const std::shared_ptr<State>& state = _obtainState();
    return {state, &state->isAlive};
}

UXJsonObject::Frame* UXJsonObject::_obtainWriter() const
{
    Frame* frame = m_state ? m_state->frame : nullptr;
    return uxAssert(frame && frame->isWriting) ? frame : nullptr;
}

UXJsonObject::Frame* UXJsonObject::_obtainReader() const
{
    Frame* frame = m_state ? m_state->frame : nullptr;
    return uxAssert(frame && !frame->isWriting) ? frame : nullptr;
}

void UXJsonObject::_writeMembers(Document& document, UXJsonValue& value)
{
    const FrameScope scope(*this, document, value, true);
    value.set(c_typeKey, UXJsonValue::makeString(customSerializeTypeID()));
    value.set(c_versionKey, UXJsonValue::makeString(customSerializeVersion()));
    Document::Identity& identity = document.obtainIdentity(this);
    identity.isWritten = true;
    if (identity.id != c_rootID)
        value.set(c_idKey, UXJsonValue::makeInteger(identity.id));
    customSerialize();
}

bool UXJsonObject::_readMembers(Document& document, UXJsonValue& value, const std::string& key)
{
    const std::string outerPath = document.path;
    if (!key.empty())
        document.path += key + '.';
    FrameScope scope(*this, document, value, false);
    scope.getState().isCompatible = isOfType(value, *this) && isOfKnownVersion(value, *this);
    const bool isComplete = customDeserialize();

    // The object itself may be gone; what it asked for is known all the same.
    const std::set<std::string>& readKeys = scope.getFrame().readKeys;
    for (std::size_t i = 0; i < value.count() && document.unknownKeys.size() < c_mostUnknownKeys; ++i) {
        const std::string& own = value.keyAt(i);
        const bool isKnown = own == c_typeKey || own == c_versionKey || own == c_idKey ||
                             readKeys.contains(own);
        if (!isKnown)
            document.unknownKeys.push_back(document.path + own);
    }
    document.path = outerPath;
    return isComplete;
}

// Writing

/** Puts the value under the key, or at the end of the list that is open. */
void UXJsonObject::_write(const std::string& key, UXJsonValue value)
{
    Frame* frame = _obtainWriter();
    if (!frame)
        return;
    UXJsonValue& container = *frame->values.back();
    if (!uxAssert(container.isArray() == key.empty()))
        return;
    if (container.isArray())
        container.append(std::move(value));
    else
        container.set(obtainSpelling(frame->document.factory, key), std::move(value));
}

template <class T>
void UXJsonObject::_encode(const std::string& key, const T& value)
{
    _write(key, uxEncodeJson(value));
}

void UXJsonObject::serializeBool(const std::string& key, bool value)
{
    _write(key, UXJsonValue::makeBool(value));
}
void UXJsonObject::serializeInt64(const std::string& key, int value) { _encode(key, value); }
void UXJsonObject::serializeInt64(const std::string& key, std::int64_t value)
{
    _write(key, UXJsonValue::makeInteger(value));
}
void UXJsonObject::serializeDouble(const std::string& key, double value) { _encode(key, value); }
void UXJsonObject::serializeString(const std::string& key, const std::string& value) { _encode(key, value); }
void UXJsonObject::serializeUXPoint(const std::string& key, const UXPoint& value) { _encode(key, value); }
void UXJsonObject::serializeUXSize(const std::string& key, const UXSize& value) { _encode(key, value); }
void UXJsonObject::serializeUXRect(const std::string& key, const UXRect& value) { _encode(key, value); }
void UXJsonObject::serializeUXColor(const std::string& key, const UXColor& value) { _encode(key, value); }
void UXJsonObject::serializeUXFont(const std::string& key, const UXFont& value) { _encode(key, value); }
void UXJsonObject::serializeUXTextProperty(const std::string& key, const UXTextProperty& value)
{
    _encode(key, value);
}
void UXJsonObject::serializeUXHintInfo(const std::string& key, const UXHintInfo& value)
{
    _encode(key, value);
}
void UXJsonObject::serializeUXPosition(const std::string& key, UXPosition value) { _encode(key, value); }
void UXJsonObject::serializeUXHintPosition(const std::string& key, UXHintPosition value)
{
    _encode(key, value);
}
void UXJsonObject::serializeUXArrangement(const std::string& key, UXArrangement value)
{
    _encode(key, value);
}
void UXJsonObject::serializeUXSymbolStyle(const std::string& key, UXSymbolStyle value)
{
    _encode(key, value);
}
void UXJsonObject::serializeUXTextAlign(const std::string& key, UXTextAlign value) { _encode(key, value); }

void UXJsonObject::serializeObject(const std::string& key, UXJsonObject* object)
{
    // 1. Nothing is written where nested objects are not wanted.
    Frame* frame = _obtainWriter();
    if (!frame || frame->document.factory.getSerializeRootLevelOnly())
        return;

    // 2. An object inside itself, and one too deep to be read again, has no value.
    const Document& document = frame->document;
    if (!object || !uxAssert(document.depth < c_deepestContainer && !document.isInside(*object))) {
        _write(key, UXJsonValue());
        return;
    }

    // 3. The others write themselves, then take their place.
    UXJsonValue value = UXJsonValue::makeObject();
    object->_writeMembers(frame->document, value);
    _write(key, std::move(value));
}

void UXJsonObject::serializeObjectList(const std::string& key, const std::vector<UXJsonObject*>& objects)
{
    if (serializeCheckInit(key)) {
        serializeArrayBegin();
        for (UXJsonObject* object : objects)
            serializeObject("", object);
        serializeArrayEnd(key);
    }
    serializeCheckFinalize();
}

void UXJsonObject::serializeObjectWeakRef(const std::string& key, UXJsonObject* object)
{
    // 1. No object.
    Frame* frame = _obtainWriter();
    if (!frame || !object) {
        _write(key, UXJsonValue());
        return;
    }

    // 2. A child has a place and is not written, unless somebody has written it nevertheless.
    const auto found = frame->document.identities.find(object);
    const bool isWritten = found != frame->document.identities.end() && found->second.isWritten;
    const std::string path = isWritten || !m_pathResolver ? "" : m_pathResolver->obtainPath(this, object);
    if (!path.empty()) {
        _encode(key, path);
        return;
    }

    // 3. What is still to be written gets the id now that it will carry then.
    _write(key, UXJsonValue::makeInteger(frame->document.obtainIdentity(object).id));
}

bool UXJsonObject::serializeCheckInit(const std::string&)
{
    Frame* frame = _obtainWriter();
    if (!frame)
        return false;
    ++frame->checks;
    return frame->document.depth + static_cast<int>(frame->openLists.size()) < c_deepestContainer;
}

void UXJsonObject::serializeArrayBegin()
{
    if (Frame* frame = _obtainWriter()) {
        frame->openLists.push_back(std::make_unique<UXJsonValue>(UXJsonValue::makeArray()));
        frame->values.push_back(frame->openLists.back().get());
        ++frame->document.depth;
    }
}

void UXJsonObject::serializeArrayEnd(const std::string& key)
{
    Frame* frame = _obtainWriter();
    if (!frame || !uxAssert(!frame->openLists.empty()))
        return;
    const std::unique_ptr<UXJsonValue> list = std::move(frame->openLists.back());
    frame->openLists.pop_back();
    frame->values.pop_back();
    --frame->document.depth;
    _write(key, std::move(*list));
}

void UXJsonObject::serializeCheckFinalize()
{
    Frame* frame = _obtainWriter();
    if (frame && uxAssert(frame->checks > 0))
        --frame->checks;
}

// Reading

/** @return the value under the key, or the present one for the empty key; null where there is none */
UXJsonValue* UXJsonObject::_find(const std::string& key) const
{
    Frame* frame = _obtainReader();
    UXJsonValue* value = frame ? frame->values.back() : nullptr;
    if (!value || key.empty())
        return value;
    const std::string spelling = obtainSpelling(frame->document.factory, key);
    if (value == frame->own)
        frame->readKeys.insert(spelling);
    return value->find(spelling);
}

/** @return how a path names the value under the key, or, for the empty key, an element of the list that is
 * being read */
std::string UXJsonObject::_obtainPlace(const std::string& key) const
{
    const Frame* frame = _obtainReader();
    if (!key.empty() || !frame || frame->readListKeys.empty())
        return key;
    return frame->readListKeys.back() + "[]";
}

template <class T>
bool UXJsonObject::_decode(const std::string& key, T& value) const
{
    const UXJsonValue* found = _find(key);
    return found && uxDecodeJson(*found, value);
}

bool UXJsonObject::deserializeObjectVersion(std::string& version)
{
    const Frame* frame = _obtainReader();
    const UXJsonValue* found = frame ? frame->own->find(c_versionKey) : nullptr;
    return found && found->getString(version);
}

bool UXJsonObject::deserializeBool(const std::string& key, bool& value) { return _decode(key, value); }
bool UXJsonObject::deserializeInt64(const std::string& key, int& value) { return _decode(key, value); }
bool UXJsonObject::deserializeInt64(const std::string& key, std::int64_t& value)
{
    const UXJsonValue* found = _find(key);
    return found && found->getInteger(value);
}
bool UXJsonObject::deserializeDouble(const std::string& key, double& value) { return _decode(key, value); }
bool UXJsonObject::deserializeString(const std::string& key, std::string& value)
{
    return _decode(key, value);
}
bool UXJsonObject::deserializeUXPoint(const std::string& key, UXPoint& value) { return _decode(key, value); }
bool UXJsonObject::deserializeUXSize(const std::string& key, UXSize& value) { return _decode(key, value); }
bool UXJsonObject::deserializeUXRect(const std::string& key, UXRect& value) { return _decode(key, value); }
bool UXJsonObject::deserializeUXColor(const std::string& key, UXColor& value) { return _decode(key, value); }
bool UXJsonObject::deserializeUXFont(const std::string& key, UXFont& value) { return _decode(key, value); }
bool UXJsonObject::deserializeUXTextProperty(const std::string& key, UXTextProperty& value)
{
    return _decode(key, value);
}
bool UXJsonObject::deserializeUXHintInfo(const std::string& key, UXHintInfo& value)
{
    return _decode(key, value);
}
bool UXJsonObject::deserializeUXPosition(const std::string& key, UXPosition& value)
{
    return _decode(key, value);
}
bool UXJsonObject::deserializeUXHintPosition(const std::string& key, UXHintPosition& value)
{
    return _decode(key, value);
}
bool UXJsonObject::deserializeUXArrangement(const std::string& key, UXArrangement& value)
{
    return _decode(key, value);
}
bool UXJsonObject::deserializeUXSymbolStyle(const std::string& key, UXSymbolStyle& value)
{
    return _decode(key, value);
}
bool UXJsonObject::deserializeUXTextAlign(const std::string& key, UXTextAlign& value)
{
    return _decode(key, value);
}

bool UXJsonObject::deserializeObject(const std::string& key, const std::function<bool(UXJsonObject*)>& place)
{
    // 1. Null stands for no object; everything else must name a type that the factory knows.
    UXJsonValue* found = _find(key);
    if (!found || !place)
        return false;
    if (found->isNull())
        return place(nullptr);
    Document& document = _obtainReader()->document;
    const UXJsonValue* stored = found->find(c_typeKey);
    std::string type;
    std::unique_ptr<UXJsonObject> made(stored && stored->getString(type) ? document.factory.create(type)
                                                                         : nullptr);
    if (!made)
        return false;

    // 2. What the object holds can refer back to it.
    _registerObject(document, *found, made.get());
    const bool isComplete = made->_readMembers(document, *found, _obtainPlace(key));
    return place(made.release()) && isComplete;
}

bool UXJsonObject::deserializeExistingObject(const std::string& key, UXJsonObject* object)
{
    UXJsonValue* found = _find(key);
    if (!found || !found->isObject() || !object || !isOfType(*found, *object))
        return false;
    Document& document = _obtainReader()->document;
    _registerObject(document, *found, object);
    return object->_readMembers(document, *found, _obtainPlace(key));
}

bool UXJsonObject::deserializeExistingObjectList(const std::string& key,
                                                 const std::vector<UXJsonObject*>& objects)
{
    // Who hears of what is read may destroy those that are still to be read, and this object.
    const UXJsonObjectWatcher self(this);
    const std::vector<UXJsonObjectWatcher> watchers(objects.begin(), objects.end());
    std::uint64_t count = 0;
    bool isComplete = deserializeArrayBegin(key) && deserializePeekArray(count) && count == objects.size();
    for (std::uint64_t i = 0; i < count && i < objects.size(); ++i) {
        const auto index = static_cast<std::size_t>(i);
        UXJsonValue* element = nullptr;
        if (!deserializeArrayElement(i, element))
            continue;
        pushJsonValue(element);
        isComplete = watchers[index].isAlive() && deserializeExistingObject("", objects[index]) && isComplete;
        if (!self.isAlive())
            return false;
        popJsonValue();
        deleteJsonValue(element);
    }
    return deserializeArrayEnd() && isComplete;
}

/** Makes an object that is being read known to the references to its id. */
void UXJsonObject::_registerObject(Document& document, const UXJsonValue& value, UXJsonObject* object)
{
    const UXJsonValue* stored = value.find(c_idKey);
    std::int64_t id = c_rootID;
    if (stored && stored->getInteger(id) && id != c_rootID)
        document.factory.registerDeserializedObject(id, object);
}

bool UXJsonObject::deserializeObjectWeakRef(const std::string& key,
                                            const std::function<bool(UXJsonObject*)>& place)
{
    const UXJsonValue* found = _find(key);
    if (!found || !place)
        return false;
    if (found->isNull())
        return place(nullptr);

    std::int64_t id = 0;
    std::string path;
    UXJsonObject* object = nullptr;
    if (found->getInteger(id))
        object = _obtainReader()->document.factory.obtainDeserializedObject(id);
    else if (found->getString(path) && m_pathResolver)
        object = m_pathResolver->obtainObject(this, path);
    return object && place(object);
}

bool UXJsonObject::deserializeArrayBegin(const std::string& key)
{
    Frame* frame = _obtainReader();
    UXJsonValue* found = frame ? _find(key) : nullptr;
    if (found && !found->isArray())
        found = nullptr;
    if (frame) {
        frame->readLists.push_back(found);
        frame->readListKeys.push_back(key);
    }
    return found != nullptr;
}

bool UXJsonObject::deserializePeekArray(std::uint64_t& count)
{
    const Frame* frame = _obtainReader();
    if (!frame || frame->readLists.empty() || !frame->readLists.back())
        return false;
    count = frame->readLists.back()->count();
    return true;
}

bool UXJsonObject::deserializeArrayElement(std::uint64_t index, UXJsonValue*& value)
{
    const Frame* frame = _obtainReader();
    if (!frame || frame->readLists.empty() || !frame->readLists.back() ||
        index >= frame->readLists.back()->count())
        return false;
    value = frame->readLists.back()->at(static_cast<std::size_t>(index));
    return true;
}

bool UXJsonObject::deserializeArrayEnd()
{
    Frame* frame = _obtainReader();
    if (!frame || !uxAssert(!frame->readLists.empty()))
        return false;
    const bool wasList = frame->readLists.back() != nullptr;
    frame->readLists.pop_back();
    frame->readListKeys.pop_back();
    return wasList;
}

void UXJsonObject::pushJsonValue(UXJsonValue* value)
{
    if (Frame* frame = _obtainReader())
        frame->values.push_back(value);
}

void UXJsonObject::popJsonValue()
{
    Frame* frame = _obtainReader();
    if (frame && uxAssert(frame->values.size() > 1))
        frame->values.pop_back();
}

void UXJsonObject::deleteJsonValue(UXJsonValue* value)
{
    // The document keeps its elements until it is read. What is still being looked into must not be released.
    const Frame* frame = _obtainReader();
    uxAssert(!frame || std::find(frame->values.begin(), frame->values.end(), value) == frame->values.end());
}
