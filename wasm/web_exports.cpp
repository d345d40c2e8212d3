// What a page calls. Views, charts and tables are handed out as numbers, which are their addresses; the page
// destroys what it has made, a view with the charts on it. Texts come as UTF-8 at an address of the module's
// memory.

#include "kx_chart_data_user.h"
#include "kx_chart_property.h"
#include "kx_chart_theme.h"
#include "ux/ux_clipboard.h"
#include "ux/ux_event.h"
#include "ux/ux_saturate.h"
#include "web_page.h"
#include "web_table.h"
#include "web_text_measurer.h"
#include "web_view.h"

#include <cmath>
#include <cstdlib>
#include <span>
#include <string>
#include <utility>
#include <vector>

#define WEB_EXPORT(name) extern "C" __attribute__((export_name(#name)))

namespace {

WebTextMeasurer& textMeasurer()
{
    static WebTextMeasurer measurer;
    return measurer;
}

/** The text that was answered last. */
std::string& answer()
{
    static std::string text;
    return text;
}

std::string& clipboardText()
{
    static std::string text;
    return text;
}

std::string makeText(const char* text, std::size_t size) { return {text, size}; }

UXEvent makeEvent(UXEventType type, int keys)
{
    UXEvent event(type);
    for (const UXEventKey key : {UXEventKey::Shift, UXEventKey::Ctrl, UXEventKey::Alt, UXEventKey::LeftButton,
                                 UXEventKey::RightButton})
        if ((keys & static_cast<int>(key)) != 0)
            event.addEventKey(key);
    return event;
}

/** @param sizes of the texts, which stand one behind the other */
KXDataColumn makeTexts(const char* bytes, const std::uint32_t* sizes, std::size_t count)
{
    std::vector<std::string> texts;
    texts.reserve(count);
    for (std::size_t i = 0; i < count; bytes += sizes[i++])
        texts.emplace_back(bytes, sizes[i]);
    return {std::move(texts)};
}

} // namespace

// Memory and texts
WEB_EXPORT(allocate) void* webAllocate(std::size_t size) { return std::malloc(size); }

WEB_EXPORT(release) void webRelease(void* memory) { std::free(memory); }

WEB_EXPORT(answerAddress) const char* webAnswerAddress() { return answer().data(); }

WEB_EXPORT(answerSize) std::size_t webAnswerSize() { return answer().size(); }

/** @param usePage off: texts are measured without the page, alike on every machine */
WEB_EXPORT(measureByPage) void webMeasureByPage(int usePage)
{
    uxSetTextMeasurer(usePage != 0 ? &textMeasurer() : nullptr);
}

WEB_EXPORT(setClipboard) void webSetClipboard(const char* text, std::size_t size)
{
    clipboardText() = makeText(text, size);
    uxSetClipboard([] { return clipboardText(); },
                   [](const std::string& copied) {
                       clipboardText() = copied;
                       webWriteClipboard(copied);
                   });
}

// Views
WEB_EXPORT(createView) WebView* webCreateView() { return new WebView; }

WEB_EXPORT(destroyView) void webDestroyView(WebView* view) { delete view; }

WEB_EXPORT(resizeView) void webResizeView(WebView* view, double width, double height, double scale)
{
    view->resize({uxSaturateToInt(width), uxSaturateToInt(height)}, scale);
}

WEB_EXPORT(setGround) void webSetGround(WebView* view, int red, int green, int blue, double alpha)
{
    view->setGround({red, green, blue, alpha});
}

WEB_EXPORT(setReduceMotion) void webSetReduceMotion(WebView* view, int reduceMotion)
{
    view->setReduceMotion(reduceMotion != 0);
}

WEB_EXPORT(measureAnew) void webMeasureAnew(WebView* view) { view->measureAnew(); }

/** @return the number of words at the address that frameAddress answers */
WEB_EXPORT(drawFrame) std::size_t webDrawFrame(WebView* view, double nowMilliseconds)
{
    return view->drawFrame(static_cast<std::int64_t>(nowMilliseconds)).size();
}

WEB_EXPORT(frameAddress) const std::uint32_t* webFrameAddress(const WebView* view)
{
    return view->getFrame().data();
}

/** @return how long until drawFrame has something to run, -1 while there is nothing to wait for */
WEB_EXPORT(nextTimer) double webNextTimer(const WebView* view, double nowMilliseconds)
{
    return static_cast<double>(
        view->obtainNextTimer(static_cast<std::int64_t>(nowMilliseconds)).value_or(-1));
}

// Input; each returns whether a chart handled it
/** @param type of a UXEventType, from MouseDown to MouseDoubleClick
 *  @param x, y in pixels of the canvas
 *  @param keys those of UXEventKey that are down */
WEB_EXPORT(pointer)
int webPointer(WebView* view, int type, double x, double y, int keys, int clickCount, double wheelX,
               double wheelY)
{
    const auto eventType = static_cast<UXEventType>(type);
    const UXControlPoint point(uxSaturateToInt(std::floor(x)), uxSaturateToInt(std::floor(y)));
    UXEvent event = makeEvent(eventType, keys);
    event.setClickCount(clickCount);
    event.setWheelDelta({wheelX, wheelY});
    switch (eventType) {
    case UXEventType::MouseDown:
        return view->mouseDown(point, event);
    case UXEventType::MouseMove:
        return view->mouseMove(point, event);
    case UXEventType::MouseUp:
        return view->mouseUp(point, event);
    case UXEventType::MouseEnter:
        return view->mouseEnter(point, event);
    case UXEventType::MouseLeave:
        return view->mouseLeave(point, event);
    case UXEventType::MouseWheel:
        return view->mouseWheel(point, event);
    case UXEventType::MouseDoubleClick:
        return view->mouseDoubleClick(point, event);
    default:
        return 0;
    }
}

WEB_EXPORT(key)
int webKey(WebView* view, int goesDown, int code, int keys, const char* text, std::size_t size)
{
    UXEvent event = makeEvent(goesDown != 0 ? UXEventType::KeyDown : UXEventType::KeyUp, keys);
    event.setKeyCode(code);
    event.setKeyText(makeText(text, size));
    return goesDown != 0 ? view->keyDown(event) : view->keyUp(event);
}

WEB_EXPORT(focusChart) void webFocusChart(WebView* view, WebChart* chart) { view->setFocusedChart(chart); }

WEB_EXPORT(activateChart) void webActivateChart(WebView* view) { view->activateFocusedChart(); }

// Charts
/** @return 0 for a document that is no chart's */
WEB_EXPORT(addChart) WebChart* webAddChart(WebView* view, const char* document, std::size_t size)
{
    return view->addChart(makeText(document, size));
}

WEB_EXPORT(removeChart) void webRemoveChart(WebView* view, WebChart* chart) { view->removeChart(chart); }

/** In logical units. */
WEB_EXPORT(placeChart) void webPlaceChart(WebChart* chart, double x, double y, double width, double height)
{
    chart->setRect({uxSaturateToInt(x), uxSaturateToInt(y), uxSaturateToInt(width), uxSaturateToInt(height)});
}

/** Answers the document as it is saved now. */
WEB_EXPORT(saveChart) void webSaveChart(WebChart* chart) { answer() = chart->getChart().serialize(); }

/** Answers the chart as SVG. */
WEB_EXPORT(drawSvg) void webDrawSvg(WebChart* chart, double width, double height)
{
    answer() = chart->obtainSvg({uxSaturateToInt(width), uxSaturateToInt(height)});
}

/** Answers the title, or the remarks where there is none. */
WEB_EXPORT(nameChart) void webNameChart(WebChart* chart)
{
    const KXChartProperty& property = *chart->getChart().getChartProperty();
    answer() = property.getTitleValue().empty() ? property.getRemarks() : property.getTitleValue();
}

/** @param former the theme that the chart has, 0 for none; both are names, and an unknown one is none */
WEB_EXPORT(applyTheme)
void webApplyTheme(WebChart* chart, const char* former, std::size_t formerSize, const char* name,
                   std::size_t size)
{
    const auto before = KXChartTheme::create(makeText(former, formerSize));
    const auto theme = KXChartTheme::create(makeText(name, size));
    kxApplyTheme(chart->getChart(), before.get(), theme.get());
}

// Tables
WEB_EXPORT(createTable) WebTable* webCreateTable() { return new WebTable; }

WEB_EXPORT(destroyTable) void webDestroyTable(WebTable* table) { delete table; }

/** Between beginUpdate and endUpdate charts are told nothing. */
WEB_EXPORT(beginUpdate) void webBeginUpdate(WebTable* table) { table->beginUpdate(); }

WEB_EXPORT(endUpdate) void webEndUpdate(WebTable* table) { table->endUpdate(); }

WEB_EXPORT(clearTable) void webClearTable(WebTable* table) { table->clear(); }

WEB_EXPORT(dataChanged) void webDataChanged(WebTable* table) { table->dataChanged(); }

/** @param column -1 adds a dimension or measure, otherwise the one that is replaced
 *  @param type of a KXChartDataType @param level of a KXChartAggregateType */
WEB_EXPORT(setTexts)
void webSetTexts(WebTable* table, int isMeasure, int column, const char* label, std::size_t labelSize,
                 int type, int level, const char* bytes, const std::uint32_t* sizes, std::size_t count)
{
    KXDataColumn texts = makeTexts(bytes, sizes, count);
    if (column >= 0 && isMeasure != 0)
        return table->replaceMeasure(static_cast<std::size_t>(column), std::move(texts));
    if (column >= 0)
        return table->replaceDimension(static_cast<std::size_t>(column), std::move(texts));
    if (isMeasure != 0)
        table->addMeasure(makeText(label, labelSize), std::move(texts));
    else
        table->addDimension(makeText(label, labelSize), std::move(texts), static_cast<KXChartDataType>(type),
                            static_cast<KXChartAggregateType>(level));
}

/** @param isBorrowed the page keeps the numbers where they are, as long as the table has the column */
WEB_EXPORT(setNumbers)
void webSetNumbers(WebTable* table, int isMeasure, int column, const char* label, std::size_t labelSize,
                   int isInteger, const double* numbers, std::size_t count, int isBorrowed)
{
    const std::span<const double> all(numbers, count);
    KXDataColumn made = isBorrowed != 0 ? KXDataColumn::borrow(all)
                                        : KXDataColumn(std::vector<double>(all.begin(), all.end()));
    if (column >= 0 && isMeasure != 0)
        return table->replaceMeasure(static_cast<std::size_t>(column), std::move(made));
    if (column >= 0)
        return table->replaceDimension(static_cast<std::size_t>(column), std::move(made));
    if (isMeasure == 0) {
        table->addDimension(makeText(label, labelSize), std::move(made));
        return;
    }
    table->addMeasure(makeText(label, labelSize), std::move(made),
                      isInteger != 0 ? KXChartDataType::Integer : KXChartDataType::Float);
}

WEB_EXPORT(setColorMeasure) void webSetColorMeasure(WebTable* table, int measure)
{
    table->setColorMeasure(measure);
}

WEB_EXPORT(setBand) void webSetBand(WebTable* table, int measure, int low, int high)
{
    table->setBand(static_cast<std::uint64_t>(measure), static_cast<std::uint64_t>(low),
                   static_cast<std::uint64_t>(high));
}

WEB_EXPORT(setHandlers) void webSetHandlers(WebTable* table, int hasClicks, int hasMenus)
{
    table->setHandlers(hasClicks != 0, hasMenus != 0);
}

/** @return whether the chart takes data of tables */
WEB_EXPORT(serveChart) int webServeChart(WebTable* table, WebChart* chart)
{
    KXChartDataUser* user = chart->getChart().obtainLegendDataUser();
    if (user)
        table->serve(*user);
    return user ? 1 : 0;
}
