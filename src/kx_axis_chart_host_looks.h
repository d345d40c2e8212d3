#pragma once

#include "kx_axis_chart_mark.h"
#include "kx_export.h"
#include "ux/ux_color.h"
#include "ux/ux_text_property.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

/** What the host has said about the looks of marks and labels. It is asked once about each of them:
 * about colours until these are reloaded, about labels until the data are. */
class KX_EXPORT KXAxisChartHostLooks {
public:
    /** More answers about marks are not kept; those that are still needed are asked for again. */
    static constexpr std::size_t greatestAnswerCount = 65'536;

    /** A label as it is without the host, or as the host has made it. */
    struct Label {
        std::string text;
        UXTextProperty property;

        friend bool operator==(const Label&, const Label&) = default;
    };

    void clear();
    void clearColors();

    /** @return those of marks about whose colours the host was not asked */
    std::vector<KXAxisChartMark> findUnknown(const std::vector<KXAxisChartMark>& marks);
    /** @param color what the host gave, none where it gave none */
    void setMarkColor(const KXAxisChartMark& mark, const std::optional<UXColor>& color);
    /** @return none where the host gave none, or was not asked */
    std::optional<UXColor> findMarkColor(const KXAxisChartMark& mark) const;

    /** A label that the host is to be asked about. */
    struct WantedLabel {
        KXAxisChartMark mark;
        Label usual;
    };
    void wantLabel(const KXAxisChartMark& mark, const Label& usual);
    /** @return the next one, none after the last */
    std::optional<WantedLabel> takeWantedLabel();
    /** @return what the host made of this label of the mark, null where it was not asked about it */
    const Label* findLabel(const KXAxisChartMark& mark, const Label& usual) const;
    void setLabel(const KXAxisChartMark& mark, const Label& usual, const Label& made);

private:
    struct LabelAnswer {
        Label usual, made;
    };

    std::map<KXAxisChartMark, std::optional<UXColor>> m_markColors;
    std::map<KXAxisChartMark, LabelAnswer> m_labels;
    std::map<KXAxisChartMark, Label> m_wantedLabels;
};
