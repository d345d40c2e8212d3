#pragma once

#include "kx_export.h"
#include "ux/ux_object.h"

class KXChartDataUser;
struct KXChartToolboxMenuContext;

/** The strip along a chart's top edge that shows while the pointer is over a chart whose host wants it. */
class KX_EXPORT KXChartToolbox : public UXObject {
public:
    KXChartToolbox();
    ~KXChartToolbox() override;

    /** @param user the chart's; may be null */
    void setDataUser(KXChartDataUser* user);
    KXChartDataUser* getDataUser() const;
    /** @return what the host wants in the strip, its own; null before prepare() and when it wants nothing */
    KXChartToolboxMenuContext* getContext() const;
    bool getMenuOpen() const;

    /** Asks the provider what the strip holds. */
    void prepare();
    /** Draws the strip's place anew, shown or hidden. */
    void refresh();

    // From UXJsonObject
    std::string customSerializeTypeID() override;

private:
    KXChartDataUser* m_dataUser = nullptr;          // the chart's
    KXChartToolboxMenuContext* m_context = nullptr; // the host's
    bool m_menuOpen = false;
};
