#include "chart_sample.h"
#include "drawing_check.h"
#include "host_drawing_difference.h"
#include "host_random_charts.h"
#include "kx_axis_property.h"
#include "kx_axis_tick_label_view.h"
#include "kx_bar_chart.h"
#include "kx_bar_chart_property.h"
#include "kx_bar_labels.h"
#include "kx_chart_diagnostic.h"
#include "kx_chart_label.h"
#include "kx_gauge_chart.h"
#include "kx_legend.h"
#include "kx_legend_cell.h"
#include "kx_line_chart_data_view.h"
#include "kx_line_chart_property.h"
#include "kx_value_chart.h"
#include "opened_sample.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/ux_accessible_object.h"
#include "ux/ux_accessible_text.h"
#include "ux/ux_diagram.h"
#include "ux/ux_enum_map.h"
#include "ux/ux_label.h"
#include "ux/ux_mirror_painter.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <sstream>
#include <string_view>

namespace {

using Json = nlohmann::json;

std::unique_ptr<KXChart> makeChart(const Json& document, const UXPadding& padding)
{
    std::unique_ptr<UXJsonObject> made(KXJsonObjectFactory().create(document.at("type").get<std::string>()));
    auto* chart = dynamic_cast<KXChart*>(made.release());
    EXPECT_TRUE(chart->deserialize(document.dump()));
    chart->setPadding(padding);
    return std::unique_ptr<KXChart>(chart);
}

void load(KXChart& chart, KXChartDataProvider& provider)
{
    KXChartDataUser* user = chart.obtainLegendDataUser();
    user->setDataProvider(&provider);
    user->prepareData();
    user->reloadData();
}

/** @return where a part of the chart stood when the chart stood on its diagram */
UXDoubleRect obtainPlaceOnDiagram(const UXObject& part, KXChart& chart)
{
    const UXRect inChart = part.translateRectToParent(part.getBoundingRect(), &chart);
    UXDoubleRect place(chart.isRightToLeft() ? uxMirrorRect(inChart, chart.getBoundingRect()) : inChart);
    place.x += chart.getRect().x;
    place.y += chart.getRect().y;
    return place;
}

/** @return the labels, in the diagram's space, of each axis whose user says which of them show: those may lie
 * over each other, and over nothing else */
std::vector<std::vector<DrawnText>> findWantedTickLabels(KXChart& chart)
{
    std::vector<std::vector<DrawnText>> wanted;
    const auto* axes = dynamic_cast<KXXYAxisChart*>(&chart);
    const std::vector<UXObject*> parts = axes ? axes->getPlot()->getChildren() : std::vector<UXObject*>();
    for (UXObject* part : parts) {
        auto* view = dynamic_cast<KXAxisTickLabelView*>(part);
        if (!view || view->getTickLabelIntervalMode() == KXAxisTickLabelIntervalMode::Auto)
            continue;
        std::vector<DrawnText>& labels = wanted.emplace_back();
        for (UXLabel* label : view->obtainLabels())
            if (label->getVisible())
                labels.push_back({label->getText(), obtainPlaceOnDiagram(*label, chart)});
    }
    return wanted;
}

/** @return whether there is no room for a word and its line with what goes around them */
bool isTiny(const KXChart& chart)
{
    const UXRect content = chart.getContentRect();
    return content.width < 60 || content.height < 60;
}

/** @return the cells of a legend that a reader can scroll to, in the diagram's space: all after the first
 * one, and that one where it is wider than the legend */
std::vector<DrawnText> findScrolledCells(KXChart& chart)
{
    std::vector<KXLegendCell*> shown;
    for (UXObject* part : chart.getLegend()->getChildren())
        for (UXObject* child : part->getChildren())
            if (auto* cell = dynamic_cast<KXLegendCell*>(child); cell && cell->getVisible())
                shown.push_back(cell);
    std::ranges::sort(shown, {}, &KXLegendCell::getIndex);
    std::vector<DrawnText> cells;
    const UXRect legend = chart.getLegend()->getRect();
    for (KXLegendCell* cell : shown)
        if (cell != shown.front() || cell->getRect().width > legend.width)
            cells.push_back({cell->getLabel(), obtainPlaceOnDiagram(*cell, chart)});
    return uxContainsRect(chart.getBoundingRect(), legend) ? cells : std::vector<DrawnText>();
}

/** @return whether the text is one of them, at its place */
bool isAmong(const std::vector<DrawnText>& texts, const DrawnText& text)
{
    const UXDoublePoint middle(uxMidDoubleX(text.bounds), uxMidDoubleY(text.bounds));
    return std::ranges::any_of(texts, [&](const DrawnText& known) {
        return known.text == text.text && uxPointInDoubleRect(middle, known.bounds);
    });
}

/** @return the value and the title of a chart whose value is too large for its room even in its least size,
 * in the diagram's space: these two may lie over each other; of any other chart, nothing */
std::vector<DrawnText> findOverflowingValue(KXChart& chart)
{
    constexpr int leastSize = 9;
    const auto* value = dynamic_cast<KXValueChart*>(&chart);
    if (!value || value->getValueLabel()->getTextProperty().font.size > leastSize)
        return {};
    std::vector<DrawnText> texts;
    for (const UXLabel* label :
         {static_cast<UXLabel*>(value->getValueLabel()), static_cast<UXLabel*>(chart.getTitle())})
        texts.push_back({label->getText(), obtainPlaceOnDiagram(*label, chart)});
    return texts;
}

DrawingExcuses obtainExcuses(KXChart& chart)
{
    DrawingExcuses excuses;
    excuses.mayMeet = [axes = findWantedTickLabels(chart),
                       overflowing = findOverflowingValue(chart)](const DrawnText& a, const DrawnText& b) {
        if (isAmong(overflowing, a) && isAmong(overflowing, b))
            return true;
        return std::ranges::any_of(axes, [&](const std::vector<DrawnText>& labels) {
            return isAmong(labels, a) && isAmong(labels, b);
        });
    };
    excuses.mayBeCut = [isTiny = isTiny(chart), cells = findScrolledCells(chart)](const DrawnText& text) {
        return isTiny || isAmong(cells, text);
    };
    return excuses;
}

/** A page that shows all that is painted on it in a mirror, but for texts and images. */
class MirroredPage : public UXPaintConfig {
public:
    MirroredPage(UXPaintConfig& page, double width) : m_page(page), m_width(width) {}

    bool isPaintConfigValid() const override { return m_page.isPaintConfigValid(); }
    UXPainter* createPainter(UXObject* object) override
    {
        std::unique_ptr<UXPainter> painter(m_page.createPainter(object));
        painter->translate(m_width, 0);
        return new UXMirrorPainter(std::move(painter));
    }

private:
    UXPaintConfig& m_page;
    double m_width;
};

/** @return the pixels of the chart's picture, on a page or on a mirrored one */
std::vector<std::uint32_t> drawPixels(KXChart& chart, const PictureSetting& setting, bool isMirrored)
{
    UXCairoImagePaintConfig page(UXDoubleSize(setting.size), setting.scale);
    MirroredPage mirrored(page, setting.size.width);
    paintChart(chart, setting, isMirrored ? mirrored : static_cast<UXPaintConfig&>(page));
    const std::uint32_t* const pixels = page.getPixels();
    const auto count = static_cast<std::size_t>(page.getPixelSize().height) *
                       static_cast<std::size_t>(page.getRowLength());
    return {pixels, pixels + (pixels ? count : 0)};
}

/** @return whether no part of a pixel is further apart than the edge of a curve drawn from its other end */
bool lookAlike(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b)
{
    constexpr int mostApart = 6;
    return std::ranges::equal(a, b, [](std::uint32_t first, std::uint32_t second) {
        for (int shift = 0; shift < 32; shift += 8)
            if (std::abs(static_cast<int>(first >> shift & 255U) - static_cast<int>(second >> shift & 255U)) >
                mostApart)
                return false;
        return true;
    });
}

/** @return what lies under a point of the chart, from the front, by kinds and places in the chart */
std::string describeHit(UXDiagram& diagram, const KXChart& chart, UXPoint point)
{
    std::string hit;
    for (const UXObjectWatcher& under :
         diagram.obtainObjectsUnder(chart.translatePointToParent(point, nullptr)))
        hit += under.getObject()->customSerializeTypeID() + ' ' + under.getObject()->getName() + ';';
    return hit;
}

std::string draw(KXChart& chart, const PictureSetting& setting, std::vector<std::string>* faults = nullptr)
{
    UXRecordingPaintConfig config(setting.scale);
    paintChart(chart, setting, config);
    if (faults)
        *faults = checkDrawing(config.getRecording(), UXDoubleRect(chart.getRect()), obtainExcuses(chart));
    return config.getRecording().getText();
}

UXColor toColor(const Json& color)
{
    return {color.at("red"), color.at("green"), color.at("blue"), color.at("alpha")};
}

UXTextProperty toTextProperty(const Json& document)
{
    UXTextProperty property;
    property.font.familyName = document.at("font").at("familyName");
    property.font.size = document.at("font").at("size");
    property.font.bold = document.at("font").at("bold");
    UXEnum::UXEnumMap<UXTextAlign>(uxObtainEnumNames(UXTextAlign()))
        .obtainValue(document.at("align"), property.align);
    UXEnum::UXEnumMap<UXTextOption>(uxObtainEnumNames(UXTextOption()))
        .obtainValue(document.at("option"), property.option);
    property.lineMode = document.at("lineMode");
    property.textColor = toColor(document.at("textColor"));
    return property;
}

/** Sets every key, lists apart, as an editor of properties does. */
void updateKeys(UXPropertyAccessor& accessor, const Json& wanted)
{
    for (const auto& [key, value] : wanted.items()) {
        UXJsonObject* part = nullptr;
        if (value.is_object() && value.contains("type") && accessor.obtainObject(key, &part)) {
            UXPropertyAccessor inner(part);
            updateKeys(inner, value);
        } else if (value.is_boolean()) {
            accessor.updateValue(key, value.get<bool>());
        } else if (value.is_number()) {
            accessor.updateValue(key, value.get<double>()) || accessor.updateValue(key, value.get<int>()) ||
                accessor.updateValue(key, value.get<std::int64_t>());
        } else if (value.is_string()) {
            accessor.updateEnumString(key, value) || accessor.updateValue(key, value.get<std::string>());
        } else if (value.is_object() && value.contains("red")) {
            accessor.updateValue(key, toColor(value));
        } else if (value.is_object() && value.contains("textColor")) {
            accessor.updateValue(key, toTextProperty(value));
        }
    }
}

void updateChart(KXChart& chart, const Json& wanted)
{
    // A key that sets several others comes after some of them, so those are set once more.
    for (int i = 0; i < 2; ++i)
        updateKeys(dynamic_cast<UXPropertyAccessor&>(chart), wanted);
}

/** @return what the hint of the item says beside its name, nothing where none shows */
std::optional<std::string> obtainHintValue(KXChart& chart, KXChartDataPath& path)
{
    chart.showLinkedHighlight(path, nullptr);
    auto& hint = dynamic_cast<UXHintDelegate&>(chart);
    const UXHintInfo info = hint.getHintInfo();
    const bool isShown = hint.getHintVisible();
    chart.hideLinkedHighlight(nullptr);
    if (!isShown)
        return std::nullopt;
    return info.rows.empty() ? info.text : info.rows.front().value;
}

/** @return the labels that say something of a value, by their marks */
std::vector<std::pair<KXAxisChartMark, std::string>> obtainMarkLabels(const KXXYAxisChart& chart)
{
    constexpr auto names = KXAxisChartLabelDisplayOption::Title;
    std::vector<std::pair<KXAxisChartMark, std::string>> labels;
    for (const auto& view : chart.getDataViews()) {
        const auto* bars = dynamic_cast<KXBarChartDataView*>(view.get());
        if (bars && bars->getBarChartProperty()->getLabelDisplayOption() != names)
            for (const KXBarLabel& label : bars->getLabels())
                if (label.mark)
                    labels.emplace_back(*label.mark, label.text);
        const auto* lines = dynamic_cast<KXLineChartDataView*>(view.get());
        if (lines && lines->getLineChartProperty()->getLabelDisplayOption() != names)
            for (const KXLineLabel& label : lines->getLabels())
                labels.emplace_back(label.mark, label.text);
    }
    return labels;
}

/** @return what is wrong with the hints of the items that have a label, empty where nothing is */
std::string checkHints(KXChart& chart)
{
    const auto check = [&](KXChartDataPath& path, const std::string& label, bool isWhole) -> std::string {
        if (label.empty()) // there is no room for it, and nothing to point at
            return {};
        const std::optional<std::string> hint = obtainHintValue(chart, path);
        if (!hint)
            return "the label \"" + label + "\" has no hint";
        if (isWhole ? *hint == label : hint->find(label) != std::string::npos)
            return {};
        return "the hint says \"" + *hint + "\", the label \"" + label + "\"";
    };
    std::string fault;
    KXChartDataPath path;
    if (auto* value = dynamic_cast<KXValueChart*>(&chart)) {
        path.valueIndexPath = {0, 0};
        if (value->getValueLabel()->getVisible())
            fault = check(path, value->getValueLabel()->getText(), true);
    } else if (auto* gauge = dynamic_cast<KXGaugeChart*>(&chart)) {
        const KXChartLabel* labels[] = {gauge->getMainLabel(), gauge->getTargetLabel(), gauge->getMinLabel(),
                                        gauge->getMaxLabel()};
        for (std::uint64_t i = 0; i < std::size(labels) && fault.empty(); ++i) {
            const std::string caption = i == 1 ? gauge->getTargetCaption() : "";
            path.valueIndexPath = {i, 0};
            if (labels[i]->getVisible())
                fault = check(path, labels[i]->getText().substr(caption.size()), true);
        }
    } else if (auto* axes = dynamic_cast<KXXYAxisChart*>(&chart)) {
        for (const auto& [mark, text] : obtainMarkLabels(*axes)) {
            const std::unique_ptr<KXChartDataPath> own(axes->createItemPath({0, mark.series, mark.category}));
            // Of two totals the same members can be gathered.
            if (fault.empty() && own->identifier != "Others")
                fault = check(*own, text, false);
        }
    }
    return fault;
}

/** @return the first text that reaches out of a chart of some size, empty where none does. The drawing does
 * not show it: all that paints is clipped to the chart. Titles and values are as large as their texts, and
 * what has no room is not drawn. */
std::string findTextOutside(UXObject& object, KXChart& chart)
{
    const bool holdsMore = dynamic_cast<UXVirtualScrollView*>(&object) != nullptr; // than it shows
    if (holdsMore || isTiny(chart))
        return {};
    const auto* value = dynamic_cast<KXValueChart*>(&chart);
    std::string fault;
    for (UXObject* child : object.getChildren()) {
        if (!child->getVisible() || !fault.empty())
            continue;
        auto* label = dynamic_cast<UXLabel*>(child);
        const bool isCut = child == chart.getTitle() || (value && child == value->getValueLabel());
        if (label && !isCut && !label->getText().empty() && !uxIsEmptyRect(label->getRect()) &&
            !uxContainsRect(chart.getBoundingRect(),
                            label->translateRectToParent(label->getBoundingRect(), &chart)))
            return "the text \"" + label->getText() + "\" reaches out of the chart";
        fault = findTextOutside(*child, chart);
    }
    return fault;
}

/** @return the first label of a bar that lies over another bar, empty where none does */
std::string findLabelOverBar(const KXBarChart& chart)
{
    for (const KXBarLabel& label : chart.getDataView().getLabels()) {
        for (const KXBar& bar : chart.getDataView().getBars()) {
            const UXDoubleRect common = uxIntersectionDoubleRect(label.rect, bar.rect);
            if (label.mark != bar.mark && common.width > 0 && common.height > 0)
                return "the label \"" + label.text + "\" lies over another bar";
        }
    }
    return {};
}

/** @return the first text of a gauge that lies over its dial, empty where none does */
std::string findTextOverDial(const KXGaugeChart& chart)
{
    const UXRect pipe = chart.getPipeRect();
    const double middle = pipe.x + pipe.height, bottom = pipe.getBottom();
    std::vector<KXChartLabel*> labels = chart.getPartitionLabelsPool();
    labels.insert(labels.end(), {chart.getMinLabel(), chart.getMaxLabel(), chart.getTargetLabel()});
    if (chart.getShowPointer()) // without one the main text stands in the hole
        labels.push_back(chart.getMainLabel());
    for (const KXChartLabel* label : labels) {
        const UXRect rect = label->getRect();
        const double across = std::max({rect.x - middle, middle - uxMaxX(rect), 0.0});
        if (label->getVisible() && rect.y < bottom && std::hypot(across, bottom - uxMaxY(rect)) < pipe.height)
            return "the text \"" + label->getText() + "\" lies over the dial";
    }
    return {};
}

std::string findTextOverData(KXChart& chart)
{
    if (const auto* bars = dynamic_cast<KXBarChart*>(&chart))
        return findLabelOverBar(*bars);
    if (const auto* gauge = dynamic_cast<KXGaugeChart*>(&chart))
        return findTextOverDial(*gauge);
    return {};
}

/** @return the first text that is drawn with an ellipsis without the chart saying so, empty where there is
 * none */
std::string findUntoldEllipsis(const KXChart& chart, const std::string& drawing)
{
    constexpr std::string_view ellipsis = "\u2026", start = "drawText \"";
    const std::vector<KXChartDiagnostic> diagnostics = chart.diagnostics();
    const auto isTold = [&](std::string_view shown) {
        return std::ranges::any_of(diagnostics, [&](const KXChartDiagnostic& diagnostic) {
            return diagnostic.kind == KXChartDiagnosticKind::ShortenedText &&
                   diagnostic.text.starts_with(shown);
        });
    };
    std::istringstream lines(drawing);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t end = line.rfind(std::string(ellipsis) + '"');
        if (!line.starts_with(start) || end == std::string::npos || end <= start.size())
            continue;
        const std::string_view shown = std::string_view(line).substr(start.size(), end - start.size());
        if (shown.find_first_of("\\\"") == std::string_view::npos && !isTold(shown))
            return "nobody is told that \"" + std::string(shown) + "\" is shortened";
    }
    return {};
}

/** A random chart, and for its document, its data and its size another one each, to go to and come back from.
 */
class ChartCase {
public:
    explicit ChartCase(std::uint64_t seed)
        : m_random(seed), m_type(m_random.pickType()), m_document(_makeDocument()),
          m_otherDocument(_makeDocument()), m_table(m_random.makeTable(m_type)),
          m_otherTable(m_random.makeTable(m_type)), m_setting(m_random.makePicture()),
          m_otherSetting(m_random.makePicture()), m_padding(m_random.makePadding())
    {
    }

    /** @return the first thing that is wrong, empty where nothing is */
    std::string check()
    {
        std::vector<std::string> faults;
        std::unique_ptr<KXChart> chart = _make(m_document, *m_table);
        m_drawing = draw(*chart, m_setting, &faults);
        if (!faults.empty())
            return faults.front();
        std::string fault = findTextOutside(*chart, *chart);
        if (fault.empty())
            fault = findTextOverData(*chart);
        if (fault.empty())
            fault = _compare("drawn again", *chart);
        if (fault.empty())
            fault = findUntoldEllipsis(*chart, m_drawing);
        if (fault.empty()) {
            static_cast<void>(chart->summary() + uxWriteAccessibleTree(*uxCreateAccessibleNode(*chart)));
            fault = _compare("after it was read", *chart);
        }
        if (fault.empty())
            fault = checkHints(*chart);
        if (fault.empty())
            fault = _compare("after its hints", *chart);
        if (fault.empty())
            fault = _checkMirrored(*chart);
        if (fault.empty())
            fault = _checkSaving(*chart);
        if (fault.empty())
            fault = _checkReturns();
        return fault;
    }

    std::string describe() const
    {
        std::ostringstream text;
        text << m_setting.size.width << " x " << m_setting.size.height << " less " << m_setting.margin
             << " at " << m_setting.scale << ", padding " << m_padding.left << ' ' << m_padding.top << ' '
             << m_padding.right << ' ' << m_padding.bottom << "\n"
             << m_document.dump() << "\n"
             << m_table->categoryCount << " categories";
        for (const std::vector<double>& values : m_table->values) {
            text << "\n ";
            for (std::size_t i = 0; i < std::min<std::size_t>(values.size(), 12); ++i)
                text << ' ' << values[i];
        }
        return text.str();
    }

private:
    /** From the case to another state and back. */
    struct Way {
        const char* name;
        const Json& document;
        RandomTable& table;
        const PictureSetting& setting;
        std::function<void(KXChart&)> leave, comeBack;
        bool leavesLists = false; // as they were, so that the other state is not quite reached
    };

    /** @return what a chart saves whose keys were set one by one as well, so that it holds also what reading
     * would forget, and no key says other than another one */
    Json _makeDocument()
    {
        const Json wanted = m_random.makeDocument(m_type);
        const std::unique_ptr<KXChart> chart = makeChart(wanted, {});
        updateChart(*chart, wanted);
        return Json::parse(chart->serialize());
    }

    std::unique_ptr<KXChart> _make(const Json& document, RandomTable& table)
    {
        std::unique_ptr<KXChart> chart = makeChart(document, m_padding);
        load(*chart, table);
        return chart;
    }

    std::string _compare(const std::string& when, KXChart& chart)
    {
        const std::string drawing = draw(chart, m_setting);
        return drawing == m_drawing ? "" : when + " " + findDifference(m_drawing, drawing);
    }

    /** From right to left the chart has no faults of its own, twice mirrored it is as it was, and what lies
     * where is the same. */
    std::string _checkMirrored(KXChart& chart)
    {
        // At other scales places are no binary fractions, and mirroring them leaves noise that rounding
        // shows.
        PictureSetting setting = m_setting;
        setting.scale = m_setting.scale < 1.5 ? 1 : 2;
        const std::vector<std::uint32_t> pixels = drawPixels(chart, setting, false);
        const std::vector<std::string> hits = _obtainHits(chart);
        chart.setDirection(UXDirection::RightToLeft);
        std::vector<std::string> faults;
        draw(chart, m_setting, &faults);
        if (!faults.empty())
            return "from right to left " + faults.front();
        // Numbers in tables and lines of input go by the direction, whatever the page does.
        const bool isMirrorProof = m_type == "KXTableChart" || m_type == "KXControlChart";
        if (!isMirrorProof && !lookAlike(drawPixels(chart, setting, true), pixels))
            return "twice mirrored it looks otherwise";
        if (_obtainHits(chart) != hits)
            return "from right to left something else is hit";
        chart.setDirection(UXDirection::AsParent);
        return _compare("mirrored and back", chart);
    }

    std::vector<std::string> _obtainHits(KXChart& chart) const
    {
        UXDiagram diagram;
        diagram.addChild(&chart);
        diagram.setRect(chart.getRect());
        diagram.layout();
        std::vector<std::string> hits;
        for (int i = 0; i < 200; ++i)
            hits.push_back(describeHit(
                diagram, chart,
                {i * 37 % std::max(chart.getRect().width, 1), i * 53 % std::max(chart.getRect().height, 1)}));
        chart.setParent(nullptr);
        return hits;
    }

    std::string _checkSaving(KXChart& chart)
    {
        const Json read = Json::parse(makeChart(m_document, m_padding)->serialize());
        if (read != m_document)
            return "read " + findDifference(m_document.dump(1), read.dump(1));
        const std::string saved = chart.serialize();
        const std::unique_ptr<KXChart> loaded = makeChart(Json::parse(saved), m_padding);
        if (loaded->serialize() != saved)
            return "read and saved " + findDifference(saved, loaded->serialize());
        load(*loaded, *m_table);
        return _compare("saved and read", *loaded);
    }

    /** There the chart has to look like one that has always been there, and back again as it did. */
    std::string _checkWay(const Way& way)
    {
        const std::unique_ptr<KXChart> chart = _make(m_document, *m_table);
        draw(*chart, m_setting);
        way.leave(*chart);
        const std::string drawn = draw(*chart, way.setting);
        if (!way.leavesLists) {
            const std::unique_ptr<KXChart> other = _make(way.document, way.table);
            const std::string fault = findDifference(draw(*other, way.setting), drawn);
            if (!fault.empty())
                return std::string("with ") + way.name + " " + fault;
        }
        way.comeBack(*chart);
        return _compare(std::string("after ") + way.name, *chart);
    }

    std::string _checkReturns()
    {
        const Way ways[] = {
            {"another size", m_document, *m_table, m_otherSetting, [](KXChart&) {}, [](KXChart&) {}},
            {"other data", m_document, *m_otherTable, m_setting,
             [this](KXChart& chart) { load(chart, *m_otherTable); },
             [this](KXChart& chart) { load(chart, *m_table); }},
            {"another document", m_otherDocument, *m_table, m_setting,
             [this](KXChart& chart) { chart.deserialize(m_otherDocument.dump()); },
             [this](KXChart& chart) { chart.deserialize(m_document.dump()); }},
            {"other keys", m_otherDocument, *m_table, m_setting,
             [this](KXChart& chart) { updateChart(chart, m_otherDocument); },
             [this](KXChart& chart) { updateChart(chart, m_document); }, true},
        };
        for (const Way& way : ways) {
            const std::string fault = _checkWay(way);
            if (!fault.empty())
                return fault;
        }
        return {};
    }

    RandomCharts m_random;
    std::string m_type;
    Json m_document, m_otherDocument;
    std::unique_ptr<RandomTable> m_table, m_otherTable;
    PictureSetting m_setting, m_otherSetting;
    UXPadding m_padding;
    std::string m_drawing;
};

/** @return the number in an environment variable, which says how long to look by hand */
std::uint64_t obtainNumber(const char* variable, std::uint64_t usual)
{
    const char* text = std::getenv(variable);
    return text ? std::strtoull(text, nullptr, 10) : usual;
}

} // namespace

TEST(RandomChart, KeepsItsPromises)
{
    const std::uint64_t first = obtainNumber("KX_RANDOM_FIRST", 1),
                        count = obtainNumber("KX_RANDOM_COUNT", 200);
    int failures = 0;
    for (std::uint64_t seed = first; seed < first + count && failures < 20; ++seed) {
        ChartCase chart(seed);
        const std::string fault = chart.check();
        if (fault.empty())
            continue;
        ++failures;
        ADD_FAILURE() << "KX_RANDOM_FIRST=" << seed << " KX_RANDOM_COUNT=1: " << fault << "\n"
                      << chart.describe();
    }
}

TEST(RandomChart, TheGallerysHintsSayWhatItsLabelsSay)
{
    for (const ChartSample& sample : readChartSamples(KX_SOURCE_DIR "/samples")) {
        const OpenedSample opened(sample);
        if (KXChart* chart = opened.getChart()) {
            draw(*chart, {});
            EXPECT_EQ(checkHints(*chart), "") << sample.name;
        }
    }
}
