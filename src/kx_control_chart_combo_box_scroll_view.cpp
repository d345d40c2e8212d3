#include "kx_control_chart_combo_box_scroll_view.h"

#include "kx_control_chart_list.h"
#include "kx_menu_style.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_saturate.h"

namespace {

constexpr int shadowExtent = 8, framePadding = 8; // logical units
constexpr double frameRadius = 6;
constexpr int shadowSteps = 4;

} // namespace

KXControlChartComboBoxScrollView::KXControlChartComboBoxScrollView(KXControlChart* chart)
    : m_list(chart ? new KXControlChartList(*chart) : nullptr)
{
    if (m_list)
        addChild(m_list);
}

KXControlChartComboBoxScrollView::~KXControlChartComboBoxScrollView() { setParent(nullptr); }

std::string KXControlChartComboBoxScrollView::customSerializeTypeID()
{
    return "KXControlChartComboBoxScrollView";
}

UXRect KXControlChartComboBoxScrollView::_obtainFrame() const
{
    return uxInflateRect(getBoundingRect(), -shadowExtent, -shadowExtent);
}

UXRect KXControlChartComboBoxScrollView::getFrameRect() const
{
    return uxInflateRect(getRect(), -shadowExtent, -shadowExtent);
}

void KXControlChartComboBoxScrollView::setFrameRect(const UXRect& frame)
{
    setRect(uxInflateRect(frame, shadowExtent, shadowExtent));
}

int KXControlChartComboBoxScrollView::obtainWantedHeight() const
{
    return m_list
               ? uxSaturateToInt(std::int64_t{m_list->obtainWantedHeight()} + std::int64_t{2} * framePadding)
               : 0;
}

bool KXControlChartComboBoxScrollView::ptInRect(UXPoint point) const
{
    return uxPointInRect(point, _obtainFrame());
}

void KXControlChartComboBoxScrollView::customLayout()
{
    if (m_list)
        m_list->setRect(uxInflateRect(_obtainFrame(), -framePadding, -framePadding));
    UXObject::customLayout();
    if (m_list)
        m_list->layout();
}

void KXControlChartComboBoxScrollView::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        const UXDoubleRect frame(_obtainFrame());
        // A soft shadow, of frames that grow and fade.
        for (int i = shadowSteps; i > 0; --i) {
            painter->setColor(UXColor(0, 0, 0, 0.035));
            uxAddRoundRectanglePath(*painter, uxInflateDoubleRect(frame, 1.5 * i, 1.5 * i),
                                    frameRadius + 1.5 * i);
            painter->fill();
        }
        painter->setColor(kxMenuGroundColor);
        uxAddRoundRectanglePath(*painter, frame, frameRadius);
        painter->fill();
        painter->setColor(kxMenuBorderColor);
        painter->setLineWidth(1);
        uxAddRoundRectanglePath(*painter, uxInflateDoubleRect(frame, -0.5, -0.5), frameRadius);
        painter->stroke();
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}
