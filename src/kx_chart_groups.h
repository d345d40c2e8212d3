#pragma once

#include "kx_export.h"
#include "ux/ux_color.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

/**
 * What the legend of a chart lists: series, slices. It knows which of the groups are shown, and in which
 * colour. A group has an identity, by which one that the user has switched off stays so among new data.
 */
class KX_EXPORT KXChartGroups {
public:
    // Which are shown
    std::uint64_t getCount() const { return m_count; }
    /** @return ascending */
    const std::vector<std::uint64_t>& getShown() const { return m_shown; }
    bool isShown(std::uint64_t group) const;
    /** @return whether that changed anything */
    bool setShown(std::uint64_t group, const std::string& identity, bool shown);
    /** @return whether new data have to tell the identities of their groups */
    bool needsIdentities() const { return !m_hidden.empty(); }
    /** Takes up the groups of new data.
     *  @param identities one a group, where they are needed */
    void reload(std::uint64_t count, const std::vector<std::string>& identities);
    /** One that is there for others is never shown and takes no colour in turn. To be said in ascending order
     * after each reload. */
    void leaveOut(std::uint64_t group);
    /** There are no data; what is switched off stays so. */
    void clear();

    // Colours: the host's, else one of the usual ones in turn
    /** @param colors by group, none where the host gives none */
    void setHostColors(std::vector<std::optional<UXColor>> colors);
    void setUsualColors(std::vector<UXColor> colors);
    UXColor obtainColor(std::uint64_t group) const;
    /** @return the colour of the group's symbol in the legend: a quiet one while it is switched off */
    UXColor obtainSymbolColor(std::uint64_t group) const;

private:
    std::uint64_t m_count = 0;
    std::vector<std::uint64_t> m_shown;
    std::vector<std::uint64_t> m_leftOut; // ascending
    std::set<std::string> m_hidden;       // identities
    std::vector<std::optional<UXColor>> m_hostColors;
    std::vector<UXColor> m_usualColors;
};
