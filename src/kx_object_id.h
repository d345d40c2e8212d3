#pragma once

#include "kx_export.h"
#include "kx_object_id_path.h"
#include "kx_object_id_property.h"

#include <compare>
#include <cstdint>
#include <map>
#include <optional>

/**
 * Names a piece of a chart by value: an item index for each kind of item on the way to it, and at the end
 * perhaps a property. Built as
 * KXObjectID::instance().path(series).index(2).path(bar).index(5).property(color) and asked as
 * id.path(bar).index(), which is 5. Every step answers a new identifier and leaves the old one as it was.
 */
class KX_EXPORT KXObjectID {
public:
    KXObjectID();
    KXObjectID(const KXObjectID&);
    KXObjectID(KXObjectID&&) noexcept;
    KXObjectID& operator=(const KXObjectID&);
    KXObjectID& operator=(KXObjectID&&) noexcept;
    virtual ~KXObjectID();

    /** @return the empty identifier */
    static KXObjectID instance();

    // Building
    /** @return a copy that has selected the path, instead of what was selected before */
    KXObjectID path(const KXObjectIDPath& selected) const;
    /** @return a copy with index i for the selected path and nothing selected; without a selection an
     *          equal copy */
    KXObjectID index(std::uint64_t i) const;
    /** @return a copy with the property */
    KXObjectID property(const KXObjectIDProperty& chosen) const;

    // Queries
    /** @return the index of the selected path; all bits set when nothing is selected or the path has no
     *          index */
    std::uint64_t index() const;
    /** @return the property; the empty text's when there is none */
    KXObjectIDProperty property() const;
    bool hasPathTypes() const;
    bool hasPathType(const KXObjectIDPath& path) const;
    /** @return whether the selected path has exactly this index */
    bool hasIndex(std::uint64_t i) const;
    bool hasProperty() const;
    bool hasProperty(const KXObjectIDProperty& property) const;

    /** Without a property before with one, then by property, then by the number of indexes, then index by
     *  index. The selection takes no part. */
    friend KX_EXPORT std::strong_ordering operator<=>(const KXObjectID& a, const KXObjectID& b);
    friend bool operator==(const KXObjectID& a, const KXObjectID& b) { return (a <=> b) == 0; }

private:
    /** @return the index of the selected path, null when there is none */
    const std::uint64_t* _findIndex() const;

    std::optional<KXObjectIDPath> m_selectedPath;
    std::map<KXObjectIDPath, std::uint64_t> m_indexes;
    std::optional<KXObjectIDProperty> m_property;
};
