#pragma once

#include "kx_export.h"
#include "ux/ux_double_rect.h"

#include <cstdint>
#include <string>
#include <vector>

class UXObject;
struct KXChartDiagnostic;

/** The texts that a layout had no room for, or only in part. It knows the first ones, and how many more there
 * are, so that it costs little where there are many. */
class KX_EXPORT KXTextLosses {
public:
    /** @param rect where the text would stand */
    void leaveOut(const std::string& text, const UXDoubleRect& rect) { _add({text, rect, false}); }
    /** @param text the whole one @param rect where the rest of it stands */
    void shorten(const std::string& text, const UXDoubleRect& rect) { _add({text, rect, true}); }
    /** The same of so many that are known by their number alone. */
    void leaveOutMore(std::uint64_t count) { m_moreCount += count; }
    void clear();
    bool isEmpty() const { return m_losses.empty() && m_moreCount == 0; }

    /** Adds what they are to a reader of the chart.
     *  @param space the object in whose space the places are, the chart or inside it */
    void tell(std::vector<KXChartDiagnostic>& diagnostics, const UXObject& space,
              const UXObject& chart) const;

private:
    struct Loss {
        std::string text;
        UXDoubleRect rect;
        bool isShortened = false;
    };

    void _add(Loss&& loss);

    std::vector<Loss> m_losses;
    std::uint64_t m_moreCount = 0;
};
