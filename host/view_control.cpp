#include "view_control.h"

#include "kx_chart.h"
#include "ux/ux_event.h"
#include "ux/ux_global_event_diagram.h"
#include "ux/ux_input_delegate.h"
#include "ux/ux_key_code.h"
#include "ux/ux_message_right_click_param.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "view_board.h"
#include "view_grid.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int presentUseCase = 1, interactiveUseCase = 2;
/** One press of an arrow key, in logical units. */
constexpr double scrollStep = 48;
/** A page keeps a bit of what was shown, so that the eye finds its place. */
constexpr double pageShare = 0.9;

UXControlRect toControlRect(const UXRect& pixels)
{
    return {pixels.x, pixels.y, pixels.width, pixels.height};
}

UXRect toPixels(const UXControlRect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }

double boundOrigin(double origin, double extent, double room)
{
    return extent <= room ? std::floor((room - extent) / 2)
                          : std::clamp(std::round(origin), room - extent, 0.0);
}

/** @return how far what lies from begin to end has to move to be seen in the room, its begin first */
double obtainScrollInto(double begin, double end, double room)
{
    if (begin < 0)
        return begin;
    return std::max(0.0, std::min(begin, end - room));
}

} // namespace

ViewControl::ViewControl(ViewBoard& board)
    : m_board(board), m_scrollBars([this](double dx, double dy) { _scroll(dx, dy); })
{
    setUseCases({presentUseCase, interactiveUseCase});
    UXDiagram& diagram = board.getDiagram();
    // The first to see an event is the one in front, and hints are shown by the first that there is.
    diagram.registerGlobalEventDiagram(&m_hints);
    diagram.registerGlobalEventDiagram(&m_menu);
    diagram.registerGlobalEventDiagram(&m_scrollBars);
    diagram.registerGlobalEventDiagram(&m_scroller);
    diagram.registerGlobalEventDiagram(&m_linked);
    board.getContext().setActiveDiagram(this, &diagram);
    resize({1, 1}, 1);
}

ViewControl::~ViewControl() = default;

void ViewControl::resize(const UXSize& pixels, double scale)
{
    const UXSize size(std::max(pixels.width, 1), std::max(pixels.height, 1));
    m_picture = std::make_unique<UXCairoImagePaintConfig>(UXDoubleSize(size));
    m_allDirty = true;
    setScalingFactor(scale);
    setControlRect(UXControlRect(0, 0, size.width, size.height));
    m_board.arrange({uxSaturateToInt(std::floor(size.width / getScalingFactor())),
                     uxSaturateToInt(std::floor(size.height / getScalingFactor()))});
    notifyResetScroller();
}

UXRect ViewControl::_obtainBounds() const { return toPixels(getControlRect()); }

std::vector<UXRect> ViewControl::paintDirtyAreas()
{
    m_board.getDiagram().layout();
    const UXDirtyRegion region = _takeDirtyPixels();
    for (const UXRect& area : region.getRects())
        _paintArea(area);
    return region.getRects();
}

/** @return what lies over the board in the control's pixels, from back to front */
std::vector<UXGlobalControlSpaceEventDiagram*> ViewControl::_obtainOverlays() const
{
    std::vector<UXGlobalControlSpaceEventDiagram*> overlays;
    for (UXGlobalEventDiagram* diagram : m_board.getDiagram().getGlobalEventDiagrams()) {
        if (auto* overlay = dynamic_cast<UXGlobalControlSpaceEventDiagram*>(diagram))
            overlays.insert(overlays.begin(), overlay);
    }
    return overlays;
}

UXDirtyRegion ViewControl::_takeDirtyPixels()
{
    UXDiagram& diagram = m_board.getDiagram();
    UXDirtyRegion region;
    const UXRect bounds = _obtainBounds();
    if (m_allDirty)
        region.add(bounds);
    for (const UXRect& rect : diagram.getDirtyRegion().getRects())
        region.add(uxIntersectionRect(toPixels(diagramSpaceToControlSpace(rect)), bounds));
    diagram.clearDirtyRect();
    for (UXGlobalControlSpaceEventDiagram* overlay : _obtainOverlays()) {
        for (const UXRect& rect : overlay->getDirtyRegion().getRects())
            region.add(uxIntersectionRect(rect, bounds));
        overlay->clearDirtyRect();
    }
    m_allDirty = false;
    return region;
}

void ViewControl::_paintArea(const UXRect& pixels)
{
    UXDiagram& diagram = m_board.getDiagram();
    const UXPaintClip clip(*m_picture, UXDoubleRect(pixels));
    if (UXPainter* painter = uxCreatePainter(m_picture.get())) {
        painter->setColor(m_board.getGround());
        painter->addRectanglePath(UXDoubleRect(pixels));
        painter->fill();
        uxDestroyPainter(painter);
    }
    const UXControlPoint origin = getDiagramOriginInControlSpace();
    UXCairoPaintConfig board(m_picture->getSurface(), getZoomRatioWithScalingFactor(),
                             UXDoublePoint(origin.x, origin.y));
    const UXControlRect area = toControlRect(pixels);
    const UXPaintClip boardClip(
        board, controlSpaceToDiagramSpace(UXDoubleControlRect(area.x, area.y, area.width, area.height)));
    diagram.paint(&board, controlSpaceToDiagramSpace(area));
    for (UXGlobalControlSpaceEventDiagram* overlay : _obtainOverlays()) {
        if (overlay->getVisible())
            overlay->paintOver(this, m_picture.get(), pixels);
    }
}

void ViewControl::press(const UXControlPoint& point, const UXEvent& event)
{
    m_board.hideFocusRing();
    mouseDown(point, event);
}

void ViewControl::turnWheel(const UXControlPoint& point, const UXEvent& event)
{
    if (!event.containsEventKey(UXEventKey::Ctrl)) {
        mouseWheel(point, event);
        return;
    }
    // A touch pad turns by parts of a notch.
    UXEvent own = event;
    own.setMousePoint(controlSpaceToDiagramSpace(point));
    m_wheelTurn += event.getWheelDelta().y;
    for (; m_wheelTurn <= -1; ++m_wheelTurn)
        zoomIn(true, own);
    for (; m_wheelTurn >= 1; --m_wheelTurn)
        zoomOut(true, own);
}

void ViewControl::compose(const std::string& text, int caret)
{
    UXInputDelegate* input = _findInput();
    // What is left behind composes nothing any more.
    auto* before = dynamic_cast<UXInputDelegate*>(m_composing.getObject());
    if (before && before != input)
        before->setInputComposition({}, 0);
    m_composing = UXObjectWatcher(input ? input->getInputOwner() : nullptr);
    if (!input)
        return;
    const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    std::size_t position = 0;
    for (int left = caret; position < text.size(); ++position)
        if (begins(text[position]) && left-- <= 0)
            break;
    input->setInputComposition(text, position);
}

/** @return what takes the keys, null where it is no text; what lies over the board has them before it */
UXInputDelegate* ViewControl::_findInput() const
{
    UXDiagram& board = m_board.getDiagram();
    std::vector<UXDiagram*> diagrams(board.getGlobalEventDiagrams().begin(),
                                     board.getGlobalEventDiagrams().end());
    diagrams.push_back(&board);
    for (const UXDiagram* diagram : diagrams)
        if (auto* input = dynamic_cast<UXInputDelegate*>(diagram->getFocusedObject());
            input && diagram->getVisible())
            return input;
    return nullptr;
}

void ViewControl::pressKey(const UXEvent& event)
{
    if (keyDown(event) || _changeThemeByKey(event) || _zoomByKey(event) || _scrollByKey(event))
        return;
    const bool isShift = event.containsEventKey(UXEventKey::Shift);
    switch (event.getKeyCode()) {
    case static_cast<int>(UXKeyCode::Tab):
        m_board.moveFocus(!isShift);
        _showFocusedCard();
        break;
    case static_cast<int>(UXKeyCode::Enter):
    case static_cast<int>(UXKeyCode::Space):
        m_board.activateFocusedChart();
        break;
    case static_cast<int>(ViewKeyCode::F10):
        if (isShift)
            _openFocusedMenu();
        break;
    case static_cast<int>(ViewKeyCode::ContextMenu):
        _openFocusedMenu();
        break;
    default:
        break;
    }
}

bool ViewControl::_changeThemeByKey(const UXEvent& event)
{
    if (!event.containsEventKey(UXEventKey::Ctrl) || event.getKeyCode() != static_cast<int>(ViewKeyCode::T))
        return false;
    m_board.takeNextTheme();
    m_allDirty = true; // the ground between the cards, too
    return true;
}

bool ViewControl::_zoomByKey(const UXEvent& event)
{
    if (!event.containsEventKey(UXEventKey::Ctrl))
        return false;
    switch (static_cast<ViewKeyCode>(event.getKeyCode())) {
    case ViewKeyCode::Plus:
        zoomIn(false, event);
        return true;
    case ViewKeyCode::Minus:
        zoomOut(false, event);
        return true;
    case ViewKeyCode::Digit0:
        zoomReset();
        return true;
    default:
        return false;
    }
}

bool ViewControl::_scrollByKey(const UXEvent& event)
{
    const double step = scrollStep * getScalingFactor();
    const UXControlRect rect = getControlRect();
    const UXControlRect shown = diagramSpaceToControlSpace(m_board.getDiagram().getBoundingRect());
    switch (static_cast<UXKeyCode>(event.getKeyCode())) {
    case UXKeyCode::Left:
        _scroll(-step, 0);
        return true;
    case UXKeyCode::Right:
        _scroll(step, 0);
        return true;
    case UXKeyCode::Up:
        _scroll(0, -step);
        return true;
    case UXKeyCode::Down:
        _scroll(0, step);
        return true;
    case UXKeyCode::PageUp:
        _scroll(0, -rect.height * pageShare);
        return true;
    case UXKeyCode::PageDown:
        _scroll(0, rect.height * pageShare);
        return true;
    case UXKeyCode::Home:
        _scroll(0, -shown.height);
        return true;
    case UXKeyCode::End:
        _scroll(0, shown.height);
        return true;
    default:
        return false;
    }
}

void ViewControl::_scroll(double dx, double dy)
{
    const UXDoubleControlPoint origin = getDiagramDoubleOriginInControlSpace();
    setDiagramDoubleOriginInControlSpace({origin.x - dx, origin.y - dy});
}

void ViewControl::_showFocusedCard()
{
    const ViewCard* card = m_board.getFocusedCard();
    if (!card)
        return;
    const UXRect wanted = uxInflateRect(card->getRect(), ViewGrid::gap, ViewGrid::gap);
    const UXControlRect shown = diagramSpaceToControlSpace(wanted), room = getControlRect();
    _scroll(obtainScrollInto(shown.x, shown.x + shown.width, room.width),
            obtainScrollInto(shown.y, shown.y + shown.height, room.height));
}

void ViewControl::_openFocusedMenu()
{
    const ViewCard* card = m_board.getFocusedCard();
    if (!card)
        return;
    const UXPoint middle(uxMidX(card->getRect()), uxMidY(card->getRect()));
    UXEvent event(UXEventType::RightClick);
    event.setMousePoint(middle);
    event.setControlPoint(diagramSpaceToControlSpace(middle));
    event.setControl(this);
    card->getChart().triggerEventHandler(event);
    m_menu.lightFirstEntry();
}

void ViewControl::setDiagramDoubleOriginInControlSpace(const UXDoubleControlPoint& origin)
{
    const UXControlRect rect = getControlRect();
    const UXRect diagram = m_board.getDiagram().getBoundingRect();
    const double zoom = getZoomRatioWithScalingFactor();
    UXControl::setDiagramDoubleOriginInControlSpace(
        {boundOrigin(origin.x, std::ceil(diagram.width * zoom), rect.width),
         boundOrigin(origin.y, std::ceil(diagram.height * zoom), rect.height)});
}

bool ViewControl::hasDefaultBackground() const { return true; }

bool ViewControl::shouldReduceMotion() const { return m_reduceMotion; }

void ViewControl::notifyFullScreenDirtyRect(UXDiagram*) { m_allDirty = true; }

void ViewControl::notifyCursorChange(int cursor) { m_shownCursor = cursor; }

void ViewControl::notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint)
{
    if (!param || !param->event || !param->data)
        return;
    const UXControlPoint at = param->event->getControlPoint();
    const UXControlRect rect = getControlRect();
    m_menu.open(*static_cast<const ViewMenuEntries*>(param->data), UXPoint(at.x, at.y),
                UXSize(rect.width, rect.height), getScalingFactor());
}

void ViewControl::notifyResetScroller()
{
    // Zoom and size move the origin by themselves.
    setDiagramDoubleOriginInControlSpace(getDiagramDoubleOriginInControlSpace());
    m_scrollBars.update(diagramSpaceToControlSpace(m_board.getDiagram().getBoundingRect()), getControlRect(),
                        getScalingFactor());
}
