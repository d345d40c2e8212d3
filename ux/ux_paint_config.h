#pragma once

#include "ux/ux_double_rect.h"
#include "ux/ux_export.h"
#include "ux/ux_transform.h"

#include <memory>
#include <vector>

class UXObject;
class UXPainter;

/**
 * What is painted on: an image, a page, a window, a recording. A back end derives its own. Every object of a
 * tree makes a painter of its own from it, one after the other or inside one another, and all draw on the
 * same ground. What is painted may destroy it while no painter of it is open; the pass then ends.
 */
class UX_EXPORT UXPaintConfig {
public:
    UXPaintConfig();
    virtual ~UXPaintConfig();

    UXPaintConfig(const UXPaintConfig&) = delete;
    UXPaintConfig& operator=(const UXPaintConfig&) = delete;

    /**
     * Called by uxCreatePainter and uxCreatePainterWithObject, which move the painter to its object
     * afterwards.
     * @param object the one to be painted, null when it is none in particular
     * @return a new painter with the initial state, in the space of the root of the painted tree; null where
     * it fails
     */
    virtual UXPainter* createPainter(UXObject* object) = 0;

    /** Whether there is something to paint on. */
    virtual bool isPaintConfigValid() const;

    /**
     * Painters made from now on draw inside rect only, and inside the rectangles pushed before: the dirty
     * area of a paint pass, the visible area of a scroll view.
     * @param rect in the space of the root of the painted tree
     */
    void pushClip(const UXDoubleRect& rect);
    void popClip();

    /** @return the part common to all pushed rectangles, null where none is pushed; the configuration's */
    const UXDoubleRect* getClip() const { return m_clips.empty() ? nullptr : &m_clips.back(); }

    /** @return what expires with the configuration, for whoever keeps its address */
    std::weak_ptr<const bool> getLife() const { return m_life; }

private:
    friend UX_EXPORT UXPainter* uxCreatePainter(UXPaintConfig* config);
    friend UX_EXPORT UXPainter* uxCreatePainterWithObject(UXPaintConfig* config, UXObject* object);

    UXPainter* _startPainter(UXObject* object, const UXTransform& objectToRoot);

    std::shared_ptr<const bool> m_life;
    std::vector<UXDoubleRect> m_clips;
};

/**
 * @return a painter in the space of the root of the painted tree, to be released with uxDestroyPainter; null
 * where config is null or cannot be painted on
 */
[[nodiscard]] UX_EXPORT UXPainter* uxCreatePainter(UXPaintConfig* config);

/** @return the same in the own space of object, clipped to nothing but what the configuration clips to */
[[nodiscard]] UX_EXPORT UXPainter* uxCreatePainterWithObject(UXPaintConfig* config, UXObject* object);

/** Ends the painter's work and deletes it. Null does nothing. */
UX_EXPORT void uxDestroyPainter(UXPainter* painter);
