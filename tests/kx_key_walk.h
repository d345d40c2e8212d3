#pragma once

#include "kx_chart_property_base.h"
#include "kx_keys.h"
#include "kx_other_value.h"
#include "ux/ux_property_accessor.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

/** One key of a property class, as the walk below uses it. */
template <class Class>
struct KXWalkedKey {
    const char* key;
    /** Updates the key to another value. */
    void (*change)(Class&);
    /** Stores another value without more ado. */
    void (*store)(Class&);
    /** Updates the key to the value that it has. */
    void (*repeat)(Class&);
    /** Updates the first object's key to the second's value if the key passes the list. */
    void (*filter)(Class&, const Class&, const KXKeys&, bool exclude);
    /** Updates the first object's key by name to the second's value, and reads it back the same way. */
    bool (*access)(Class&, const Class&);
    bool (*equal)(const Class&, const Class&);
    /** @return JSON values of types that the key does not have */
    std::vector<std::string> (*obtainWrongValues)();
};

template <class T>
std::vector<std::string> kxObtainWrongValues()
{
    std::vector<std::string> wrong{"null", "{}"};
    if (!std::is_same_v<T, bool>)
        wrong.push_back("true");
    if (std::is_same_v<T, bool> || std::is_integral_v<T>)
        wrong.push_back("0.5");
    if (std::is_enum_v<T>)
        wrong.insert(wrong.end(), {"0", "\"no such name\"", "\"\""});
    if (!std::is_same_v<T, std::string> && !std::is_enum_v<T>)
        wrong.push_back("\"1\"");
    return wrong;
}

/** Makes the walked key of one row of a key table; Self is the property class, Filter its filtered update. */
#define KX_WALKED_KEY_WITH(Type, Name, member, FILTER)                                           \
    KXWalkedKey<Self>{                                                                           \
        #member,                                                                                 \
        [](Self& object) { object.update##Name(kxMakeOtherValue(object.get##Name())); },         \
        [](Self& object) { object.set##Name(kxMakeOtherValue(object.get##Name())); },            \
        [](Self& object) { object.update##Name(object.get##Name()); },                           \
        [](Self& object, const Self& source, const KXKeys& keys, bool exclude) { FILTER(Name) }, \
        [](Self& object, const Self& source) {                                                   \
            return kxAccessKey<Type>(object, #member, source.get##Name());                       \
        },                                                                                       \
        [](const Self& a, const Self& b) { return a.get##Name() == b.get##Name(); },             \
        kxObtainWrongValues<Type>},
#define KX_FILTERED_UPDATE(Name) object.update##Name(source.get##Name(), keys, exclude);
#define KX_WALKED_KEY(Type, Name, member, ...) KX_WALKED_KEY_WITH(Type, Name, member, KX_FILTERED_UPDATE)

/** @return whether the accessor takes the value under the key and answers it again */
template <class T>
bool kxAccessKey(UXJsonObject& object, const std::string& key, const T& value)
{
    UXPropertyAccessor accessor(&object);
    T answered{};
    if constexpr (std::is_enum_v<T>)
        return accessor.updateEnum(key, value) && accessor.obtainEnum(key, answered) && answered == value;
    else if constexpr (UXPropertyValue<T>)
        return accessor.updateValue(key, value) && accessor.obtainValue(key, answered) && answered == value;
    else {
        std::uint64_t count = 0;
        return accessor.obtainVectorCount<typename T::value_type>(key, count);
    }
}

inline std::string kxQuote(const char* key) { return '"' + std::string(key) + '"'; }

/** What every property class must do with every one of its keys. Give it the class's keys and which of
 *  them stand in its document; each failure names the key. */
template <class Class>
class KXKeyWalk {
public:
    KXKeyWalk(std::vector<KXWalkedKey<Class>> written, std::vector<KXWalkedKey<Class>> all)
        : m_written(std::move(written)), m_all(std::move(all))
    {
    }

    void run() const
    {
        readsBackWhatItWrote();
        keepsWhatItCannotRead();
        marksAndCallsBackOncePerChange();
        assignsByKeyLists();
        assignsOnlyUpdatedKeys();
        triggersEveryKeyOnce();
        isAccessibleByKey();
    }

private:
    void expectEqual(const Class& a, const Class& b, const KXKeys& but = {}) const
    {
        for (const auto& row : m_all)
            EXPECT_EQ(row.equal(a, b), !but.contains(row.key)) << row.key;
    }

    void change(Class& object) const
    {
        for (const auto& row : m_all)
            row.change(object);
    }

    void readsBackWhatItWrote() const
    {
        SCOPED_TRACE("reads back what it wrote");
        Class changed, read;
        for (const auto& row : m_written)
            row.change(changed);
        const std::string document = changed.serialize();
        EXPECT_TRUE(read.deserialize(document)) << document;
        expectEqual(changed, read);
        EXPECT_EQ(read.serialize(), document);
        EXPECT_TRUE(read.getUpdatedKeys().empty());

        std::size_t position = 0;
        for (const auto& row : m_written) {
            const std::size_t found = document.find(kxQuote(row.key));
            EXPECT_TRUE(found != std::string::npos && found > position) << row.key << " in " << document;
            position = found;
        }
    }

    void keepsWhatItCannotRead() const
    {
        Class changed;
        for (const auto& row : m_written)
            row.change(changed);
        const std::string document = changed.serialize();
        for (const auto& row : m_written) {
            SCOPED_TRACE(std::string("keeps what it cannot read: ") + row.key);
            // Of a key that occurs twice the last one counts, so the good value never does.
            const std::string start = document.substr(0, document.rfind('}')) + "," + kxQuote(row.key) + ":";
            for (const std::string& wrong : row.obtainWrongValues()) {
                Class read;
                EXPECT_FALSE(read.deserialize(start + wrong + "}")) << wrong;
                expectEqual(read, changed, {row.key});
                EXPECT_TRUE(row.equal(read, Class())) << wrong;
            }
            std::string missing = document;
            const std::string quoted = kxQuote(row.key);
            missing.replace(missing.find(quoted), quoted.size(), "\"m_unknownKey\"");
            Class read;
            EXPECT_FALSE(read.deserialize(missing));
            EXPECT_TRUE(row.equal(read, Class()));
        }
    }

    void marksAndCallsBackOncePerChange() const
    {
        for (const auto& row : m_all) {
            SCOPED_TRACE(std::string("marks and calls back once per change: ") + row.key);
            Class object;
            std::vector<std::string> called;
            object.registerUpdatedEvents([&](const std::string& key) { called.push_back(key); });
            row.repeat(object);
            row.store(object);
            EXPECT_TRUE(called.empty() && object.getUpdatedKeys().empty());
            EXPECT_FALSE(row.equal(object, Class()));
            row.change(object);
            EXPECT_EQ(called, std::vector<std::string>{row.key});
            EXPECT_EQ(object.getUpdatedKeys(), KXKeys{row.key});
            object.unmarkUpdatedProperties();
            row.repeat(object);
            EXPECT_EQ(called.size(), 1u);
            EXPECT_TRUE(object.getUpdatedKeys().empty());
        }
    }

    void assignsByKeyLists() const
    {
        Class changed;
        change(changed);
        for (const auto& row : m_all) {
            SCOPED_TRACE(std::string("assigns by key lists: ") + row.key);
            Class filtered;
            row.filter(filtered, changed, {row.key}, true);
            row.filter(filtered, changed, {"m_other"}, false);
            expectEqual(filtered, Class());
            row.filter(filtered, changed, {row.key}, false);
            expectEqual(filtered, Class(), {row.key});

            Class taken, left;
            changed.assignTo(&taken, {row.key}, false);
            EXPECT_TRUE(row.equal(taken, changed));
            changed.assignTo(&left, {row.key}, true);
            expectEqual(left, changed, {row.key});
            const std::unique_ptr<KXChartPropertyBase> copied(changed.copy({row.key}, true));
            expectEqual(dynamic_cast<Class&>(*copied), left);
        }
    }

    void assignsOnlyUpdatedKeys() const
    {
        for (const auto& row : m_all) {
            SCOPED_TRACE(std::string("assigns only updated keys: ") + row.key);
            Class source, target;
            for (const auto& other : m_all)
                other.store(source);
            row.change(source);
            if (row.equal(source, Class())) // the second change of a flag is the first one's opposite
                row.change(source);
            source.assignUpdatedPropertiesTo(&target, {}, true);
            expectEqual(target, Class(), {row.key});
            EXPECT_TRUE(row.equal(target, source));
            EXPECT_FALSE(target.getRequireKeysToAssignTo());
            EXPECT_TRUE(target.getKeysToAssignTo().empty());
        }
    }

    void triggersEveryKeyOnce() const
    {
        SCOPED_TRACE("triggers every key once");
        Class object;
        m_all.front().change(object);
        const KXKeys before = object.getUpdatedKeys();
        std::vector<std::string> called, expected;
        for (const auto& row : m_all) {
            expected.push_back(row.key);
            object.registerUpdatedEvents(row.key, [&](const std::string& key) { called.push_back(key); });
        }
        object.triggerAllPropertiesUpdatedEvents();
        EXPECT_EQ(called, expected);
        EXPECT_EQ(object.getUpdatedKeys(), before);
        m_all.front().repeat(object);
        EXPECT_EQ(called.size(), expected.size());
    }

    void isAccessibleByKey() const
    {
        Class changed;
        change(changed);
        for (const auto& row : m_all) {
            SCOPED_TRACE(std::string("is accessible by key: ") + row.key);
            Class object;
            EXPECT_TRUE(row.access(object, changed));
        }
    }

    std::vector<KXWalkedKey<Class>> m_written;
    std::vector<KXWalkedKey<Class>> m_all;
};

/** Walks a class that writes every key of its one table. */
#define KX_WALK_KEYS(Class, KEYS)                                         \
    do {                                                                  \
        using Self = Class;                                               \
        const std::vector<KXWalkedKey<Self>> walked{KEYS(KX_WALKED_KEY)}; \
        KXKeyWalk<Self>(walked, walked).run();                            \
    } while (false)

/** Walks a class whose document holds the keys WRITTEN of all its KEYS, both in its order. */
#define KX_WALK_KEY_LISTS(Class, WRITTEN, KEYS)                                 \
    do {                                                                        \
        using Self = Class;                                                     \
        KXKeyWalk<Self>({WRITTEN(KX_WALKED_KEY)}, {KEYS(KX_WALKED_KEY)}).run(); \
    } while (false)
