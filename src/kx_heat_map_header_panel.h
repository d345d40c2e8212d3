#pragma once

#include "kx_export.h"
#include "kx_grid_panel.h"
#include "kx_text_losses.h"
#include "ux/ux_text_property.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/** The names of rows, or of columns, beside the cells of a heat map: of as many as there is room for, in
 * steps of 1, 2, 5, 10 and so on. Those of columns are turned where they have no room otherwise. */
class KX_EXPORT KXHeatMapHeaderPanel : public KXGridPanel {
public:
    /** @return the name of a line, or the placeholder of one that is still to come; called in a layout, and
     * may note what the host is to be asked */
    using TextFunction = std::function<std::string(std::uint64_t line)>;

    /** A name that is in sight. */
    struct Label {
        std::uint64_t line = 0;
        std::string text;
        UXDoubleRect rect; /**< in the own space; of a turned one as it would lie before, from its lower left
                              corner on */
        bool isTurned = false;
    };

    KXHeatMapHeaderPanel();
    ~KXHeatMapHeaderPanel() override;

    /** @param mayTurn whether names of columns may run upwards */
    void setNames(TextFunction text, const UXTextProperty& property, bool mayTurn);
    /** Decides how the names of lines stand.
     *  @param seen those in sight
     *  @param most how much it may take across
     *  @return how much it takes */
    int fit(const KXGridLines& lines, const KXGridRange& seen, int most);
    /** Forgets how wide the names were that have been seen. */
    void forgetWidths() { m_widest = 0; }
    const std::vector<Label>& getLabels() const { return m_labels; }
    /** @return the names that are not written, or in part; in the own space */
    const KXTextLosses& getLosses() const { return m_losses; }

    // From UXJsonObject
    std::string customSerializeTypeID() override;

protected:
    void _layoutCells() override;
    void _paintCells(UXPainter& painter, const UXRect& dirtyRect) const override;

private:
    bool _areRows() const { return getColumnBand() == KXGridBand::Header; }
    std::string _obtainName(std::uint64_t line) const;
    double _measure(const std::string& text) const;
    void _measureNames(const KXGridRange& seen);

    TextFunction m_text;
    UXTextProperty m_property;
    bool m_mayTurn = false;
    bool m_isTurned = false;
    std::uint64_t m_step = 1;
    double m_widest = 0; // of the names seen so far, so that nothing moves when one scrolls back
    double m_lineHeight = 0;
    double m_room = 0; // along the lines, where a longer name is cut
    std::vector<Label> m_labels;
    KXTextLosses m_losses;
};
