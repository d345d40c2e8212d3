#include "ux/ux_paint_config.h"

#include "ux/ux_mirror_painter.h"
#include "ux/ux_object.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

UXPaintConfig::UXPaintConfig() : m_life(std::make_shared<const bool>(true)) {}

UXPaintConfig::~UXPaintConfig() = default;

bool UXPaintConfig::isPaintConfigValid() const { return true; }

void UXPaintConfig::pushClip(const UXDoubleRect& rect)
{
    m_clips.push_back(m_clips.empty() ? rect : uxIntersectionDoubleRect(m_clips.back(), rect));
}

void UXPaintConfig::popClip()
{
    if (!m_clips.empty())
        m_clips.pop_back();
}

UXPainter* UXPaintConfig::_startPainter(UXObject* object, const UXTransform& objectToRoot)
{
    UXPainter* painter = isPaintConfigValid() ? createPainter(object) : nullptr;
    if (!painter)
        return nullptr;
    if (const UXDoubleRect* clip = getClip())
        painter->m_rootClip = *clip;
    const bool isMirrored = objectToRoot.xx < 0;
    painter->m_objectToRoot = isMirrored ? objectToRoot.scaled(-1, 1) : objectToRoot;
    painter->preparePaintConfig();
    painter->initializeSpace();
    return isMirrored ? new UXMirrorPainter(std::unique_ptr<UXPainter>(painter)) : painter;
}

UXPainter* uxCreatePainter(UXPaintConfig* config)
{
    return config ? config->_startPainter(nullptr, {}) : nullptr;
}

UXPainter* uxCreatePainterWithObject(UXPaintConfig* config, UXObject* object)
{
    if (!config || !object)
        return uxCreatePainter(config);
    return config->_startPainter(object, object->obtainTransformToParent(nullptr));
}

void uxDestroyPainter(UXPainter* painter)
{
    if (!painter)
        return;
    painter->finalizeSpace();
    painter->finishPaintConfig();
    delete painter;
}
