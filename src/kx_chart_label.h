#pragma once

#include "kx_chart_data_action.h"
#include "kx_export.h"
#include "ux/ux_label.h"

#include <string>

/** A label of a chart: it shows a default text while its own is empty, and it can be clicked as a piece of
 * data. */
class KX_EXPORT KXChartLabel : public UXLabel, public KXChartDataAction {
public:
    KXChartLabel();
    ~KXChartLabel() override;

    /** @return the text shown while the label's own text is empty */
    std::string getDefaultText() const;
    void setDefaultText(const std::string& text);
    /** @return what the label is called in the data paths that it makes */
    std::string getIdentifier() const;
    void setIdentifier(const std::string& identifier);

    // From UXJsonObject, UXLabel and KXChartDataAction
    std::string customSerializeTypeID() override;
    KXChartDataPath* createDataPath() override;

protected:
    std::string obtainText() override;

private:
    std::string m_defaultText;
    std::string m_identifier;
};
