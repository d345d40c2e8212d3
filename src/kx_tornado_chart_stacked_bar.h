#pragma once

#include "kx_export.h"
#include "kx_stacked_bar.h"

#include <string>

/** One side of a row of a tornado as an object of its own: a stacked bar that grows outwards. */
class KX_EXPORT KXTornadoChartStackedBar : public KXStackedBar {
public:
    KXTornadoChartStackedBar();
    ~KXTornadoChartStackedBar() override;

    bool getIsOnLeft() const { return m_isOnLeft; }
    /** @param isOnLeft the first segment stands at the right end, or, of a vertical bar, at the top */
    void setIsOnLeft(bool isOnLeft);

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

protected:
    bool growsBackwards() const override;

private:
    bool m_isOnLeft = false;
};
