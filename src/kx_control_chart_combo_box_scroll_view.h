#pragma once

#include "kx_export.h"
#include "ux/ux_object.h"

#include <string>

class KXControlChart;
class KXControlChartList;

/** The list that a combo box opens: in a frame with a shadow, which belongs to its rectangle but takes no
 * events. */
class KX_EXPORT KXControlChartComboBoxScrollView : public UXObject {
public:
    /** @param chart whose members are listed; destroys this first. Null for an empty one. */
    explicit KXControlChartComboBoxScrollView(KXControlChart* chart = nullptr);
    ~KXControlChartComboBoxScrollView() override;

    /** @return a child; null without a chart */
    KXControlChartList* getList() const { return m_list; }
    /** @return the view less its shadow, in the parent's space */
    UXRect getFrameRect() const;
    void setFrameRect(const UXRect& frame);
    /** @return the height of a frame that shows all rows, in logical units */
    int obtainWantedHeight() const;

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    bool ptInRect(UXPoint point) const override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    void customLayout() override;

private:
    UXRect _obtainFrame() const;

    KXControlChartList* m_list;
};
