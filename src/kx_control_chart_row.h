#pragma once

#include "kx_control_chart_options.h"
#include "kx_export.h"
#include "kx_list_cell.h"
#include "ux/ux_double_rect.h"

#include <limits>
#include <string>

class KXControlChartList;
class UXPainter;

/** What a row of a filter control says. */
struct KXControlChartRowContent {
    std::string text, valueText;                             /**< on the left and on the right */
    double share = std::numeric_limits<double>::quiet_NaN(); /**< of the row's bar, 0 to 1; NaN for none */
    bool isFaint = false;                                    /**< nothing in the data belongs to it */

    friend bool operator==(const KXControlChartRowContent& a, const KXControlChartRowContent& b)
    {
        const bool isSameShare = a.share == b.share || (a.share != a.share && b.share != b.share);
        return isSameShare && a.text == b.text && a.valueText == b.valueText && a.isFaint == b.isFaint;
    }
};

/** Draws one row of a filter control: a mark, the text, and its count with a bar. A list has as many of these
 * as show just now; while it scrolls they stand for other members in turn. */
class KX_EXPORT KXControlChartRow : public KXListCell {
public:
    /** @param list the one that shows the row, not owned; it outlives the row. Null for an empty one. */
    explicit KXControlChartRow(KXControlChartList* list = nullptr);
    ~KXControlChartRow() override;

    const KXControlChartRowContent& getContent() const { return m_content; }
    /** Stands for the row of that index from now on. */
    void showRow(std::uint64_t index, KXControlChartRowContent content);
    /** @return whether there is no room for all that the row says */
    bool isCut() const;

    // From KXListCell, UXJsonObject and UXObject
    void endHover() override;
    void explain(UXPoint point, UXEvent* event) override;
    void endExplanation() override;
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    bool customKeyDown(const UXEvent& event, bool& stop) override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;

private:
    /** Where the texts stand; that of the value is empty where it has none. */
    struct Places {
        UXDoubleRect text, value;
    };

    Places _obtainPlaces() const;
    void _paintRow(UXPainter& painter) const;
    void _paintTexts(UXPainter& painter) const;

    KXControlChartList* m_list; // the parent's parent
    KXControlChartRowContent m_content;
};
