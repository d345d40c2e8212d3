#include "ux/ux_object.h"

#include "ux/ux_assert.h"
#include "ux/ux_child_walk.h"
#include "ux/ux_diagram.h"
#include "ux/ux_object_watcher.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

/** Counts failed checks instead of printing them. */
class AssertCounter {
public:
    AssertCounter()
    {
        uxSetAssertHandler([this](std::source_location) { ++count; });
    }
    ~AssertCounter() { uxSetAssertHandler({}); }

    int count = 0;
};

/** Writes its name into a log when it is destroyed. */
class Mortal : public UXObject {
public:
    Mortal(const std::string& name, std::string& log) : m_log(log) { setName(name); }
    ~Mortal() override { m_log += getName(); }

private:
    std::string& m_log;
};

UXObject* addNamed(UXObject& parent, const std::string& name)
{
    auto* child = new UXObject;
    child->setName(name);
    parent.addChild(child);
    return child;
}

std::string namesOf(const UXObject& parent)
{
    std::string names;
    for (const UXObject* child : parent.getChildren())
        names += child->getName();
    return names;
}

} // namespace

TEST(UXObjectChildren, OrderOperations)
{
    struct Case {
        const char* name;
        void (*change)(UXObject& parent, std::vector<UXObject*>& children);
        const char* expected;
    };
    using Children = std::vector<UXObject*>;
    const Case cases[] = {
        {"to front", [](UXObject& p, Children& c) { p.bringChildToFront(c[1]); }, "acdb"},
        {"to back", [](UXObject& p, Children& c) { p.bringChildToBack(c[2]); }, "cabd"},
        {"upper", [](UXObject& p, Children& c) { p.bringChildUpper(c[1]); }, "acbd"},
        {"upper at the front stays", [](UXObject& p, Children& c) { p.bringChildUpper(c[3]); }, "abcd"},
        {"lower", [](UXObject& p, Children& c) { p.bringChildLower(c[2]); }, "acbd"},
        {"lower at the back stays", [](UXObject& p, Children& c) { p.bringChildLower(c[0]); }, "abcd"},
        {"over one in front", [](UXObject& p, Children& c) { p.bringChildOverChild(c[0], c[2]); }, "bcad"},
        {"over one behind", [](UXObject& p, Children& c) { p.bringChildOverChild(c[3], c[0]); }, "adbc"},
        {"over its neighbour", [](UXObject& p, Children& c) { p.bringChildOverChild(c[1], c[0]); }, "abcd"},
        {"under one in front", [](UXObject& p, Children& c) { p.bringChildUnderChild(c[0], c[3]); }, "bcad"},
        {"under one behind", [](UXObject& p, Children& c) { p.bringChildUnderChild(c[3], c[1]); }, "adbc"},
        {"over itself stays", [](UXObject& p, Children& c) { p.bringChildOverChild(c[1], c[1]); }, "abcd"},
        {"asked of the child", [](UXObject&, Children& c) { c[0]->bringToFront(); }, "bcda"},
        {"child to back", [](UXObject&, Children& c) { c[3]->bringToBack(); }, "dabc"},
        {"two of them", [](UXObject&, Children& c) { c[0]->bringUpper(), c[3]->bringLower(); }, "badc"},
        {"added again", [](UXObject& p, Children& c) { p.addChild(c[0]); }, "bcda"},
        {"added again at a place", [](UXObject& p, Children& c) { p.addChild(c[0], 2); }, "bcad"},
        {"a place past the end", [](UXObject& p, Children& c) { p.addChild(c[0], 99); }, "bcda"},
        {"a place before the start", [](UXObject& p, Children& c) { p.addChild(c[3], -5); }, "dabc"},
        {"itself, no child", [](UXObject& p, Children&) { p.bringChildToFront(&p); }, "abcd"},
        {"no child", [](UXObject& p, Children&) { p.bringChildLower(nullptr); }, "abcd"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UXObject parent;
        Children children;
        for (const char* name : {"a", "b", "c", "d"})
            children.push_back(addNamed(parent, name));
        c.change(parent, children);
        EXPECT_EQ(namesOf(parent), c.expected);
    }
}

TEST(UXObjectChildren, AddingElsewhereMoves)
{
    UXObject first, second;
    UXObject* a = addNamed(first, "a");
    UXObject* b = addNamed(first, "b");
    second.addChild(a);
    b->setParent(&second);
    EXPECT_EQ(namesOf(first), "");
    EXPECT_EQ(namesOf(second), "ab");
    second.removeChildAndAddToParent(a, &first);
    EXPECT_EQ(a->getParent(), &first);
    EXPECT_TRUE(a->hasParent(&first));
    EXPECT_FALSE(a->hasParent(&second));

    b->setParent(nullptr);
    const std::unique_ptr<UXObject> free(b);
    EXPECT_EQ(b->getParent(), nullptr);
    EXPECT_EQ(second.getChildrenCount(), 0u);
    EXPECT_EQ(second.getChild(0), nullptr);
    second.removeChild(std::uint64_t{7});
}

TEST(UXObjectChildren, RefusesWhatWouldBeACircle)
{
    AssertCounter asserts;
    UXObject root;
    UXObject* child = addNamed(root, "child");
    UXObject* grandchild = addNamed(*child, "grandchild");
    grandchild->addChild(&root);
    grandchild->addChild(grandchild);
    grandchild->addChild(child);
    root.addChild(nullptr);
    UXDiagram diagram;
    root.addChild(&diagram);
    EXPECT_EQ(asserts.count, 5);
    EXPECT_EQ(root.getChildrenCount(), 1u);
    EXPECT_EQ(grandchild->getChildrenCount(), 0u);
    EXPECT_TRUE(grandchild->hasParent(&root));
}

TEST(UXObjectChildren, RefusesWhatWouldStandTooDeep)
{
    AssertCounter asserts;
    // From the leaf up, as nothing else notices how deep it becomes.
    auto inner = std::make_unique<UXObject>();
    inner->setRect({0, 0, 10, 10});
    for (int i = 1; i < uxDeepestObjectNesting; ++i) {
        auto outer = std::make_unique<UXObject>();
        outer->setRect({0, 0, 10, 10});
        outer->addChild(inner.release());
        inner = std::move(outer);
    }
    EXPECT_EQ(asserts.count, 0);
    UXDiagram diagram;
    diagram.addChild(inner.get());
    EXPECT_EQ(asserts.count, 1);
    EXPECT_EQ(inner->getParent(), nullptr);

    UXObject* child = inner->getChild(0);
    diagram.addChild(child);
    EXPECT_EQ(asserts.count, 1);
    diagram.layout();
    EXPECT_EQ(diagram.obtainObjectsUnder({5, 5}).size(), static_cast<std::size_t>(uxDeepestObjectNesting));
    delete child;
}

TEST(UXChildWalk, MeetsEachOnceWhateverChanges)
{
    struct Case {
        const char* name;
        std::function<void(UXObject& parent, UXObject& met)> act; // when b is met
        const char* expected;
    };
    const Case cases[] = {
        {"nothing", [](UXObject&, UXObject&) {}, "abcd"},
        {"it goes", [](UXObject&, UXObject& met) { delete &met; }, "abcd"},
        {"one before goes", [](UXObject& parent, UXObject&) { delete parent.getChild(0); }, "abcd"},
        {"one behind goes", [](UXObject& parent, UXObject&) { delete parent.getChild(2); }, "abd"},
        {"it moves to the end", [](UXObject&, UXObject& met) { met.bringToFront(); }, "abcd"},
        {"one met moves ahead",
         [](UXObject& p, UXObject&) { p.bringChildOverChild(p.getChild(0), p.getChild(2)); }, "abcd"},
        {"one met moves up", [](UXObject& parent, UXObject&) { parent.getChild(0)->bringUpper(); }, "abcd"},
        {"one ahead moves back", [](UXObject& parent, UXObject&) { parent.getChild(2)->bringToBack(); },
         "abd"},
        {"one comes first", [](UXObject& parent, UXObject&) { parent.addChild(new UXObject, 0); }, "abcd"},
        {"one comes last", [](UXObject& parent, UXObject&) { addNamed(parent, "e"); }, "abcde"},
        {"all go", [](UXObject& parent, UXObject&) { parent.clearChildren(); }, "ab"},
        {"the parent goes", [](UXObject& parent, UXObject&) { delete &parent; }, "ab"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        auto* parent = new UXObject;
        const UXObjectWatcher watcher(parent);
        for (const char* name : {"a", "b", "c", "d"})
            addNamed(*parent, name);
        std::string met;
        UXChildWalk walk(parent);
        while (UXObject* child = walk.next()) {
            met += child->getName();
            UXChildWalk inner(parent);
            inner.next();
            if (child->getName() == "b")
                c.act(*parent, *child);
        }
        EXPECT_EQ(met, c.expected);
        delete watcher.getObject();
    }
}

TEST(UXObjectChildren, Lifetimes)
{
    std::string log;
    {
        UXObject root;
        auto* a = new Mortal("a", log);
        root.addChild(a);
        a->addChild(new Mortal("b", log));
        root.addChild(new Mortal("c", log));
        auto* kept = new Mortal("d", log);
        root.addChild(kept);

        delete root.getChild(1);
        EXPECT_EQ(log, "c");
        EXPECT_EQ(root.getChildrenCount(), 2u);

        root.removeChild(kept);
        root.clearChildren();
        EXPECT_EQ(log, "cab");
        EXPECT_EQ(root.getChildrenCount(), 0u);
        root.addChild(kept);
        root.removeChildren();
        EXPECT_EQ(log, "cab");
        root.addChild(kept);
    }
    EXPECT_EQ(log, "cabd");

    UXObject onDiagram;
    {
        UXDiagram diagram;
        diagram.addChild(&onDiagram);
    }
    EXPECT_EQ(onDiagram.getParent(), nullptr);
}

TEST(UXObjectWatcher, TurnsNullWithItsObject)
{
    auto object = std::make_unique<UXObject>();
    UXObjectWatcher first(object.get()), second(object.get());
    const UXObjectWatcher copy(first);
    auto inScope = std::make_unique<UXObjectWatcher>(object.get());
    second = UXObjectWatcher(nullptr);
    inScope.reset();
    EXPECT_FALSE(second.isAlive());
    EXPECT_EQ(copy.getObject(), object.get());
    second = first;
    object.reset();
    EXPECT_FALSE(first.isAlive());
    EXPECT_EQ(copy.getObject(), nullptr);
    EXPECT_EQ(second.getObject(), nullptr);
}

namespace {

/** Refers to another object by name or by its place. */
class Referring : public UXObject {
public:
    UXObject* part = nullptr;

    void customSerialize() override { serializeObjectWeakRef("m_part", part); }
    bool customDeserialize() override
    {
        return deserializeObjectWeakRef(
            "m_part", [this](UXJsonObject* found) { return part = dynamic_cast<UXObject*>(found), true; });
    }
};

} // namespace

TEST(UXObjectJson, RefersToObjectsInsideByTheirPlace)
{
    Referring root;
    addNamed(root, "a");
    UXObject* b = addNamed(root, "b");
    UXObject* inner = addNamed(*b, "inner");
    root.part = inner;
    const std::string text = root.serialize();
    EXPECT_NE(text.find("\"1/0\""), std::string::npos) << text;
    root.part = nullptr;
    EXPECT_TRUE(root.deserialize(text));
    EXPECT_EQ(root.part, inner);
    EXPECT_TRUE(root.deserialize("{\"m_part\": \"1\"}"));
    EXPECT_EQ(root.part, b);

    for (const char* wrong : {"", "/", "1/", "/1", "2", "1/0/0", "-1", "1x", "0x1", "99999999999999999999"}) {
        SCOPED_TRACE(wrong);
        EXPECT_FALSE(root.deserialize("{\"m_part\": \"" + std::string(wrong) + "\"}"));
        EXPECT_EQ(root.part, b);
    }

    UXObject stranger;
    root.part = &stranger;
    const std::string lost = root.serialize();
    root.part = nullptr;
    const std::string none = root.serialize();
    root.part = b;
    EXPECT_FALSE(root.deserialize(lost));
    EXPECT_EQ(root.part, b) << "what is not inside cannot be found again";
    EXPECT_TRUE(root.deserialize(none));
    EXPECT_EQ(root.part, nullptr);
}
