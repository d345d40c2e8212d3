#pragma once

#include "kx_axis_chart_stacks.h"
#include "kx_bar_chart_data_view.h"
#include "kx_export.h"
#include "kx_tornado_rows.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/** Draws the two sides of each row of a tornado. A negative value on a mirrored side is as long as it is
 * great, and hatched. */
class KX_EXPORT KXTornadoChartDataView : public KXBarChartDataView {
public:
    KXTornadoChartDataView();
    ~KXTornadoChartDataView() override;

    /** @param center where bars start that are not mirrored */
    void takeRows(KXTornadoRows rows, KXTornadoForm form, double center);
    void setLabelsInGap(bool labelsInGap) { m_labelsInGap = labelsInGap; }
    const KXTornadoRows& getRows() const { return m_rows; }
    KXTornadoForm getForm() const { return m_form; }
    /** @return whether a bar is drawn by the magnitude of a negative value */
    bool isHatched(const KXAxisChartMark& mark) const;

    // From KXBarChartDataView
    bool placesItself() const override;
    bool isMirrored() const override;
    bool labelsCategoriesInGap() const override;
    KXAxisChartStacking obtainStacking() const override;
    std::optional<KXAxisChartValueRange> obtainValueRange() const override;
    bool shouldIncludeZero() const override;
    double obtainExtraLength() const override;
    void paint(UXPainter& painter, const UXRect& dirtyRect) const override;
    double obtainValue(const KXAxisChartMark& mark) const override;
    void fillHintRow(UXHintRowInfo& row, const KXAxisChartMark& mark) override;
    void fillHintFooter(UXHintInfo& info, std::uint64_t category) override;
    std::string customSerializeTypeID() override;

protected:
    KXAxisChartStacks _makeStacks() const override;
    bool _canStandOutside(std::size_t bar) const override;
    std::vector<Total> _obtainTotals(const KXAxisChartStacks& source, std::uint64_t category) const override;

private:
    /** What the shown series of one side have in a row. */
    struct Side {
        double drawn = 0, sum = 0; // by magnitude, and as the values are
        std::size_t count = 0;
        std::uint64_t firstSeries = 0;
    };

    double _obtainDrawn(std::uint64_t series, std::uint64_t category) const;
    bool _isLeft(std::uint64_t series) const { return series < m_rows.leftCount; }
    Side _obtainSide(bool isLeft, std::uint64_t category) const;

    KXTornadoRows m_rows;
    KXTornadoForm m_form = KXTornadoForm::Mirrored;
    double m_center = 0;
    bool m_labelsInGap = false;
    std::vector<std::vector<KXAxisChartSpan>> m_spans; // by series and rows, where bars start from the center
};
