// What holds for every kind of chart that the factory makes: a kind is tested here by being in its table.

#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_chart_linked_action_diagram.h"
#include "kx_chart_property.h"
#include "kx_interaction_highlight_complementary_info_effect.h"
#include "kx_json_object_factory.h"
#include "kx_line_chart_options.h"
#include "kx_table_data_provider.h"
#include "kx_test_input.h"
#include "kx_value_chart.h"
#include "ux/ux_accessible_object.h"
#include "ux/ux_accessible_text.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_hint_words.h"
#include "ux/ux_recording_paint_config.h"
#include "ux_fixed_measurer.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr int viewWidth = 480, viewHeight = 320;

/** Answers every kind, counts what it is asked, and can do something in the middle of an answer. */
class Host : public KXTableDataProvider {
public:
    int questions = 0;
    std::function<void()> whenAsked;
    std::optional<double> share; // of each value that belongs to what is chosen elsewhere

    bool obtainHighlightedValues(KXChartDataUser* user, const KXIndexPath& first, std::size_t along,
                                 std::span<double> parts) override
    {
        KXIndexPath path = first;
        for (double& part : parts) {
            part = share.value_or(1) * KXTableDataProvider::obtainValueData(user, path);
            ++path[along];
        }
        return _asked(share.has_value());
    }
    bool obtainDataIsEmpty(KXChartDataUser* user) override
    {
        return _asked(KXTableDataProvider::obtainDataIsEmpty(user));
    }
    std::string obtainDimensionData(KXChartDataUser* user, const KXIndexPath& path) override
    {
        return _asked(KXTableDataProvider::obtainDimensionData(user, path));
    }
    std::uint64_t obtainValueCount(KXChartDataUser* user) override
    {
        return _asked(KXTableDataProvider::obtainValueCount(user));
    }
    std::string obtainValueLabel(KXChartDataUser* user, std::uint64_t value) override
    {
        return _asked(KXTableDataProvider::obtainValueLabel(user, value));
    }
    double obtainValueData(KXChartDataUser* user, const KXIndexPath& path) override
    {
        return _asked(KXTableDataProvider::obtainValueData(user, path));
    }
    std::string obtainValueDataString(KXChartDataUser*, const KXIndexPath&) override { return "no value"; }
    using KXTableDataProvider::obtainValueDataColorForGroup;
    bool obtainValueDataColorForGroup(KXChartDataUser* user, std::uint64_t group, UXColor& color) override
    {
        return _asked(KXTableDataProvider::obtainValueDataColorForGroup(user, group, color));
    }
    bool obtainDataShouldShowToolbox(KXChartDataUser*, KXChartDataPath*) override { return _asked(true); }
    bool obtainDataShouldLinkedHighlightAction(KXChartDataUser*, KXChartDataPath*) override
    {
        return _asked(true);
    }
    std::vector<KXInteractionEffect*> obtainInteractionEffects(const std::vector<KXObjectID>&) override
    {
        _asked(0);
        return {new KXInteractionHighlightComplementaryInfoEffect}; // the chart destroys it
    }

private:
    template <class T>
    T _asked(T answer)
    {
        ++questions;
        if (whenAsked)
            whenAsked();
        return answer;
    }
};

/** A chart with all that a host registers in its view. */
class Board {
public:
    explicit Board(const std::string& type)
    {
        context.addDiagram(&diagram);
        context.setActiveDiagram(&control, &diagram);
        control.setUseCases({1, 2});
        control.setControlRect({0, 0, viewWidth, viewHeight});
        diagram.setRect({0, 0, viewWidth, viewHeight});
        diagram.registerGlobalEventDiagram(&hints);
        diagram.registerGlobalEventDiagram(&links);
        std::unique_ptr<UXJsonObject> made(KXJsonObjectFactory().create(type));
        m_chart = UXObjectWatcher(dynamic_cast<KXChart*>(made.release()));
        getChart()->getChartProperty()->updateTitleValue("Title");
        getChart()->setRect(diagram.getRect());
        diagram.addChild(getChart());
    }
    ~Board()
    {
        host.whenAsked = {};
        destroy();
    }
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    void fill()
    {
        host.addDimension("Category", std::vector<std::string>{"one", "two", "three", "four"});
        host.addMeasure("First", {3, 2, -1, std::nan("")});
        if (dynamic_cast<KXValueChart*>(getChart()))
            return; // which shows nothing but a single value
        host.addMeasure("Second", {5, 1, 4, 2});
        host.addMeasure("Least", {0, 0, 0, 0});
        host.addMeasure("Most", {9, 9, 9, 9});
    }
    void load()
    {
        KXChartDataUser* user = getChart()->obtainLegendDataUser();
        user->setDataProvider(&host);
        user->prepareData();
        if (getChart())
            user->reloadData();
    }
    std::string paint(double scale = 1)
    {
        diagram.layout();
        UXRecordingPaintConfig config(scale);
        diagram.paint(&config, diagram.getBoundingRect());
        diagram.clearDirtyRect();
        return config.getRecording().getText();
    }
    void point()
    {
        for (int y = 5; y < viewHeight; y += 45)
            for (int x = 5; x < viewWidth; x += 45)
                control.mouseMove({x, y}, UXEvent());
        control.mouseLeave({-1, -1}, UXEvent());
    }
    void walk()
    {
        for (const UXKeyCode key :
             {UXKeyCode::Tab, UXKeyCode::Right, UXKeyCode::Down, UXKeyCode::End, UXKeyCode::Left,
              UXKeyCode::Tab, UXKeyCode::Down, UXKeyCode::Tab, UXKeyCode::Right, UXKeyCode::Escape}) {
            if (!getChart())
                return;
            if (!diagram.getFocusedObject())
                diagram.setFocusedObject(getChart());
            KXTestInput{diagram}.type(key);
        }
        diagram.setFocusedObject(nullptr);
    }

    /** Reads what those hear who do not see the view. */
    std::string read()
    {
        std::string words = getChart() ? getChart()->summary() : std::string();
        return words + uxWriteAccessibleTree(*uxCreateAccessibleNode(diagram), 3); // more is more of the same
    }

    KXChart* getChart() const { return static_cast<KXChart*>(m_chart.getObject()); }
    void destroy() { delete getChart(); }

    Host host;
    UXContext context;
    UXControl control;
    UXDiagram diagram{&context};
    UXGlobalControlSpaceEventDiagram hints{&context};
    KXChartLinkedActionDiagram links{&context};

private:
    const UXFixedMeasurer m_measurer;
    UXObjectWatcher m_chart{nullptr};
};

/** Runs a test for each kind. */
void forEachKind(const std::function<void(const std::string& type)>& test)
{
    const std::vector<std::string> types = KXJsonObjectFactory::obtainChartTypeNames();
    EXPECT_GE(types.size(), 3u);
    for (const std::string& type : types) {
        SCOPED_TRACE(type);
        test(type);
    }
}

/** @return how many objects that can be seen are to be laid out */
int countToLayOut(const UXObject& object)
{
    if (!object.getVisible())
        return 0;
    int count = object.getRequireToVerifyLayout();
    for (const UXObject* child : object.getChildren())
        count += countToLayOut(*child);
    return count;
}

/** @return whether the property took another value, which it does of the types that colours have */
bool changeColor(const UXProperty& property, void* owner)
{
    const std::type_info& type = *property.type().info;
    if (type == typeid(bool)) {
        const bool other = !*static_cast<const bool*>(property.place(owner));
        property.update(owner, &other);
        return true;
    }
    const auto changeTo = [&](const auto& value) {
        if (type != typeid(value))
            return false;
        property.update(owner, &value);
        return true;
    };
    const UXColor color(12, 34, 56);
    return changeTo(color) || changeTo(std::vector<UXColor>{color, UXColor(65, 43, 21)}) || changeTo(0.125) ||
           changeTo(3) || changeTo(KXChartLineCapStyle::Square) || changeTo(KXChartLineJoinStyle::Bevel) ||
           changeTo(KXPointShape::Cross) || changeTo(std::vector<KXPointShape>{KXPointShape::Plus});
}

/** Calls change for each key of the object and of those nested in it that says that it only recolours. */
void visitColors(UXJsonObject& object, const std::function<void(const UXProperty&, void* owner)>& visit)
{
    for (const UXPropertyTable* table = UXPropertyTable::obtainTable(object); table;
         table = table->getParent()) {
        void* owner = table->obtainOwner(object);
        for (const UXProperty& property : table->getProperties()) {
            if (&property.type() == &uxObtainNestedObjectType())
                visitColors(*static_cast<UXJsonObject*>(property.place(owner)), visit);
            else if (property.effect == UXPropertyEffect::Repaint ||
                     property.effect == UXPropertyEffect::Recolor)
                visit(property, owner);
        }
    }
}

TEST(KXChartContract, AColorIsPaintedAndNothingMore)
{
    forEachKind([](const std::string& type) {
        Board board(type);
        board.fill();
        board.load();
        board.paint();
        int count = 0;
        visitColors(*board.getChart(), [&](const UXProperty& property, void* owner) {
            SCOPED_TRACE(property.key);
            board.host.questions = 0;
            const int before = countToLayOut(*board.getChart());
            EXPECT_TRUE(changeColor(property, owner));
            EXPECT_EQ(countToLayOut(*board.getChart()), before);
            board.paint();
            EXPECT_EQ(board.host.questions, 0);
            ++count;
        });
        EXPECT_GE(count, 5);
    });
}

TEST(KXChartContract, LooksAsBeforeWhenItsUserIsGone)
{
    struct Case {
        const char* name;
        void (*use)(Board&);
    };
    const Case cases[] = {
        {"hidden and shown",
         [](Board& board) {
             board.getChart()->setVisible(false);
             EXPECT_EQ(board.paint().find("drawText"), std::string::npos);
             board.getChart()->setVisible(true);
         }},
        {"pointed at", [](Board& board) { board.point(); }},
        {"walked through", [](Board& board) { board.walk(); }},
        {"read", [](Board& board) { EXPECT_NE(board.read().find("Title"), std::string::npos); }},
        {"on three devices",
         [](Board& board) {
             for (const double scale : {1.25, 1.5, 2.0})
                 EXPECT_NE(board.paint(scale).find("drawText"), std::string::npos) << scale;
         }},
        {"resized and back",
         [](Board& board) {
             board.getChart()->setRect({0, 0, 60, 20});
             board.paint();
             board.getChart()->setRect(board.diagram.getRect());
         }},
    };
    forEachKind([&](const std::string& type) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.name);
            Board board(type);
            board.fill();
            board.load();
            const std::string before = board.paint();
            c.use(board);
            EXPECT_EQ(board.paint(), before);
        }
    });
}

TEST(KXChartContract, IsReadBackAsItWasSaved)
{
    forEachKind([](const std::string& type) {
        Board board(type), read(type);
        board.fill();
        read.fill();
        visitColors(*board.getChart(),
                    [](const UXProperty& property, void* owner) { changeColor(property, owner); });
        board.load();
        const std::string saved = board.getChart()->serialize();
        KXJsonObjectFactory factory;
        EXPECT_TRUE(read.getChart()->deserialize(saved, &factory));
        EXPECT_EQ(read.getChart()->serialize(), saved);
        EXPECT_TRUE(read.getChart()->getDeserializedUnknownKeys().empty());
        EXPECT_FALSE(read.getChart()->deserialize("{}", &factory));
        EXPECT_EQ(read.getChart()->serialize(), saved) << "what a document lacks stays";
        read.load();
        EXPECT_EQ(read.paint(), board.paint());
    });
}

TEST(KXChartContract, SaysInWordsThatThereIsNothing)
{
    forEachKind([](const std::string& type) {
        for (const bool isEmpty : {true, false}) {
            SCOPED_TRACE(isEmpty ? "no rows" : "nulls");
            Board board(type);
            if (!isEmpty) {
                board.host.addDimension("Category", std::vector<std::string>{"one"});
                board.host.addMeasure("First", {std::nan("")});
            }
            board.load();
            // A value chart without any value leaves its place free.
            if (isEmpty && dynamic_cast<KXValueChart*>(board.getChart()))
                continue;
            const std::string text = board.paint();
            const bool saysSo = text.find("No data") != std::string::npos ||
                                text.find("no value") != std::string::npos ||
                                text.find("\"--") != std::string::npos;
            EXPECT_TRUE(saysSo) << text;
        }
    });
}

/** What is drawn of a value where a part of it is chosen elsewhere, and what a hint tells. */
TEST(KXChartContract, DrawsThePartThatIsChosenElsewhere)
{
    // Places of points, counts of values, ends of ranges and pointers have no parts.
    const std::set<std::string> without{"KXScatterChart", "KXDensityChart", "KXGaugeChart", "KXControlChart"};
    forEachKind([&](const std::string& type) {
        const auto paint = [&](std::optional<double> share) {
            Board board(type);
            board.fill();
            board.host.share = share;
            board.load();
            board.paint();
            return board.paint();
        };
        const std::string whole = paint(std::nullopt), half = paint(0.5);
        EXPECT_EQ(whole == half, without.contains(type));
        EXPECT_EQ(half == paint(0), without.contains(type));
        EXPECT_EQ(paint(1), paint(7)) << "beyond the whole";
        EXPECT_EQ(paint(0), paint(-1)) << "the other way";
    });
}

/** Goes to each node that keys can go to, in the order of the tree. @return how many there are */
int visitNodes(UXAccessibleNode& node, Board& board)
{
    int count = 0;
    const UXAccessibleInfo info = node.obtainInfo();
    if (std::ranges::count(info.actions, UXAccessibleAction::Focus) > 0) {
        EXPECT_TRUE(node.perform(UXAccessibleAction::Focus)) << info.name;
        EXPECT_TRUE(node.obtainInfo().isFocused) << info.name;
        EXPECT_FALSE((info.name + info.value).empty()) << uxWriteAccessibleInfo(info);
        const auto* hint = dynamic_cast<UXHintDelegate*>(board.getChart());
        if (node.getObject() == board.getChart() && hint && hint->getHintVisible()) {
            EXPECT_EQ(uxWriteHint(hint->getHintInfo()), info.name);
        }
        ++count;
    }
    for (std::uint64_t i = 0; i < node.obtainChildCount(); ++i)
        count += visitNodes(*node.createChild(i), board);
    return count;
}

TEST(KXChartContract, SaysToThoseWhoDoNotSeeItWhatItsHintsSay)
{
    forEachKind([](const std::string& type) {
        Board board(type);
        board.fill();
        board.load();
        board.paint();
        const int count = visitNodes(*uxCreateAccessibleNode(board.diagram), board);
        EXPECT_TRUE(count > 0 || board.read().find("No data") != std::string::npos) << board.read();
        EXPECT_NE(board.getChart()->summary().find("Title"), std::string::npos);
    });
}

TEST(KXChartContract, AnyAnswerMayDestroyIt)
{
    forEachKind([](const std::string& type) {
        int asked = 0;
        do {
            Board board(type);
            board.fill();
            board.host.share = 0.5;
            const int destroyedAt = ++asked;
            board.host.whenAsked = [&] {
                if (board.host.questions == destroyedAt)
                    board.destroy();
            };
            board.load();
            board.paint();
            board.point();
            board.walk();
            board.read();
            board.paint();
            if (board.getChart())
                asked = 0; // it was asked less often
        } while (asked > 0 && asked < 2000);
        EXPECT_EQ(asked, 0);
    });
}

} // namespace
