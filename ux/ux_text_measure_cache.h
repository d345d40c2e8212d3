#pragma once

#include "ux/ux_double_size.h"
#include "ux/ux_export.h"
#include "ux/ux_font.h"
#include "ux/ux_text_option.h"

#include <cstddef>
#include <list>
#include <optional>
#include <string>
#include <unordered_set>

/** One question to a text measurer. It lends its text and its font, so that asking copies nothing. */
struct UXTextMeasureRequest {
    const std::string& text;
    const UXFont& font;
    UXTextOption option;
    int lineMode;
    double widthLimit; /**< not NaN */
};

/** Remembers what texts measured. When a bound is reached, the answer that was not asked for longest goes
 * first. */
class UX_EXPORT UXTextMeasureCache {
public:
    /** @param maximumBytes for texts, fonts and bookkeeping together; one answer takes a sixteenth of it at
     * most */
    UXTextMeasureCache(std::size_t maximumCount, std::size_t maximumBytes);
    ~UXTextMeasureCache();
    UXTextMeasureCache(const UXTextMeasureCache&) = delete;
    UXTextMeasureCache& operator=(const UXTextMeasureCache&) = delete;

    /** @return the remembered size, from now on the latest asked for; nothing where none is remembered */
    std::optional<UXDoubleSize> find(const UXTextMeasureRequest& request);
    /** Remembers size, in place of an older answer. Does nothing for a text too long to be worth its room. */
    void insert(const UXTextMeasureRequest& request, const UXDoubleSize& size);
    void clear();

    std::size_t getCount() const { return m_entries.size(); }
    std::size_t getBytes() const { return m_bytes; }

private:
    struct Entry {
        std::string text;
        UXFont font;
        UXTextOption option;
        int lineMode;
        double widthLimit;
        UXDoubleSize size;
        std::size_t hash;

        UXTextMeasureRequest request() const { return {text, font, option, lineMode, widthLimit}; }
    };
    using Entries = std::list<Entry>;

    static std::size_t _hash(const UXTextMeasureRequest& request);
    static bool _isSame(const UXTextMeasureRequest& a, const UXTextMeasureRequest& b);
    static std::size_t _bytesOf(const UXTextMeasureRequest& request);
    void _forgetLast();

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(Entries::iterator entry) const { return entry->hash; }
        std::size_t operator()(const UXTextMeasureRequest& request) const { return _hash(request); }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(Entries::iterator a, Entries::iterator b) const { return a == b; }
        bool operator()(const UXTextMeasureRequest& a, Entries::iterator b) const
        {
            return _isSame(a, b->request());
        }
        bool operator()(Entries::iterator a, const UXTextMeasureRequest& b) const
        {
            return _isSame(a->request(), b);
        }
    };

    std::size_t m_maximumCount;
    std::size_t m_maximumBytes;
    std::size_t m_bytes = 0;
    Entries m_entries; // the latest asked for first
    std::unordered_set<Entries::iterator, Hash, Equal> m_index;
};
