#pragma once

#include "kx_chart_data_action.h"
#include "kx_export.h"
#include "kx_switch_part.h"

/** A box with a tick, or with a line where what it stands for is mixed, and a text beside it; or a round mark
 * for one of many, which a click does not take away. */
class KX_EXPORT KXCheckBox : public KXSwitchPart, public KXChartDataAction {
public:
    KXCheckBox();
    ~KXCheckBox() override;

    /** @return whether it is a round mark */
    bool isRound() const { return m_round; }
    void setRound(bool round);

    // From UXJsonObject and KXChartDataAction
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    /** @return null: a box by itself shows no item; who uses one registers a path */
    KXChartDataPath* createDataPath() override;

protected:
    double _obtainMarkWidth() const override;
    void _paintMark(UXPainter& painter, const UXDoubleRect& rect) const override;
    KXToggleSwitchState _obtainNextState() const override;

private:
    bool m_round = false;
};
