#pragma once

#include "ux/ux_diagram.h"
#include "ux/ux_object_watcher.h"

/** A diagram that shows another one, its source, in its own way: moved and zoomed for a use case. */
class UX_EXPORT UXUseCaseDiagram : public UXDiagram {
public:
    explicit UXUseCaseDiagram(UXContext* context = nullptr);
    ~UXUseCaseDiagram() override;

    /** @return null for none, and once it is gone */
    UXDiagram* getSourceDiagram() const;
    /** @param diagram stays its owner's; one that shows this one, in however many steps, is refused */
    void setSourceDiagram(UXDiagram* diagram);
    /** @return whether the source's content rectangle is shown and not all of it; off unless set */
    bool getUseContentRect() const { return m_useContentRect; }
    void setUseContentRect(bool useContentRect);

    /** @return where the corner of what is shown of the source lies in this diagram's space */
    virtual UXPoint getUseCaseOrigin() const;
    void setUseCaseOrigin(UXPoint origin);
    virtual double getUseCaseZoomRatio() const;
    /** A ratio that is not above 0, or not finite, is refused. */
    void setUseCaseZoomRatio(double ratio);

    // From the source's space to this diagram's and back, rounded to the nearest
    UXPoint diagramSpaceToUseCaseDiagramSpace(UXPoint point) const;
    UXSize diagramSpaceToUseCaseDiagramSpace(UXSize size) const;
    UXPoint useCaseDiagramSpaceToDiagramSpace(UXPoint point) const;
    UXSize useCaseDiagramSpaceToDiagramSpace(UXSize size) const;

    /** @return what is shown of the source, in its space; empty without a source */
    UXRect obtainShownRect() const;

    // From UXObject
    std::string customSerializeTypeID() override;
    /** Lays out the source, then this diagram. */
    void layout() override;
    /** Paints the source, then what stands on this diagram itself. */
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    void _leaveSource();
    void _paintSource(UXDiagram& source, UXPaintConfig* config);

    UXObjectWatcher m_sourceDiagram;
    UXPoint m_useCaseOrigin;
    double m_useCaseZoomRatio = 1;
    bool m_useContentRect = false;
};
