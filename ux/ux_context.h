#pragma once

#include "ux/ux_coordinate_map.h"
#include "ux/ux_dirty_region.h"
#include "ux/ux_export.h"
#include "ux/ux_json_object.h"
#include "ux/ux_paint_config_watcher.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

class UXControl;
class UXDiagram;
class UXEvent;
class UXObject;
enum class UXNotification;
struct UXMessageRightClickParam;

/**
 * Brings the diagrams and the controls of one host view together. It owns neither: what is destroyed leaves
 * by itself, and a context that goes lets go of all. Each control shows one diagram, its active one; a
 * diagram can be shown by several controls.
 */
class UX_EXPORT UXContext : public UXJsonObject {
public:
    /** What load and save answer. */
    enum Result : int { Done = 0, FileFailed = 1, DocumentFailed = 2 };

    UXContext();
    ~UXContext() override;

    UXContext(const UXContext&) = delete;
    UXContext& operator=(const UXContext&) = delete;

    // From UXJsonObject: the diagrams as a list under "m_diagrams", read into those that are there
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

    // Diagrams
    void addDiagram(UXDiagram* diagram);
    /** @param position the index that diagram gets, moved into what is possible; one that is here already
     * moves */
    void addDiagram(UXDiagram* diagram, int position);
    void removeDiagram(UXDiagram* diagram);
    const std::vector<UXDiagram*>& getDiagrams() const { return m_diagrams; }

    // Controls
    void addControl(UXControl* control);
    void removeControl(UXControl* control);
    const std::vector<UXControl*>& getControls() const { return m_controls; }
    /** Adds what is not here yet. Null shows nothing. */
    void setActiveDiagram(UXControl* control, UXDiagram* diagram);
    /** @return null when the control shows none or is not here */
    UXDiagram* getActiveDiagram(UXControl* control) const;

    // Queries, in the order in which the controls were added
    /** @return the controls that show diagram */
    std::vector<UXControl*> getControlsWithDiagram(UXDiagram* diagram) const;
    /** @return those that also have the use case */
    std::vector<UXControl*> getControlsWithDiagram(UXDiagram* diagram, int useCase) const;
    /** @return the controls that show diagram, or a use-case diagram made of it */
    std::vector<UXControl*> getControlsWithDiagramAnyRelated(UXDiagram* diagram) const;
    /** @return the controls that show diagram and have one of the use cases or more */
    std::vector<UXControl*> getControlsWithDiagramWithAnyUseCases(UXDiagram* diagram,
                                                                  const std::vector<int>& useCases) const;
    /** @return the controls that show diagram and have a use case, but none beside the given ones */
    std::vector<UXControl*> getControlsWithDiagramWithOnlyUseCases(UXDiagram* diagram,
                                                                   const std::vector<int>& useCases) const;

    /** @return how diagram lies in control, which shows it or a use-case diagram made of it; the map that
     * changes nothing where it does not */
    UXCoordinateMap getCoordinateMap(UXControl* control, UXDiagram* diagram) const;

    // Dirty areas and painting
    /** Replaces the dirty areas of diagram by one; an empty one leaves none. */
    void setDirtyRect(UXDiagram* diagram, UXRect rect);
    /** @return the smallest rectangle around the dirty areas of diagram, in its space */
    UXRect getDirtyRect(UXDiagram* diagram) const;
    void clearDirtyRect(UXDiagram* diagram);
    /** Lays out and paints every diagram as a whole. */
    void repaint();
    void repaint(UXDiagram* diagram);
    /** Lays out diagram, paints its dirty areas, and those of what lies over it, on each control that shows
     * it, and clears them. A control that paints when its system asks it to is notified instead, and the
     * areas wait for it. */
    void repaintDirtyRect(UXDiagram* diagram);

    // News for the host: forwarded to all controls, to one, or to those that show a diagram, when the
    // outermost call of the framework ends (UXNotificationScope); what carries an event is forwarded at once
    void notifyDirtyRect();
    void notifyDirtyRect(UXControl* control);
    void notifyDirtyRect(UXDiagram* diagram);
    void notifyFullScreenDirtyRect();
    void notifyFullScreenDirtyRect(UXControl* control);
    void notifyFullScreenDirtyRect(UXDiagram* diagram);
    /** @param cursor the host's number of a cursor */
    void notifyCursorChange(int cursor);
    void notifyCursorChange(UXControl* control, int cursor);
    void notifyCursorChange(UXDiagram* diagram, int cursor);
    void notifyDiagramAlignChanged(UXDiagram* diagram);
    void notifyDiagramSizeChanged(UXDiagram* diagram);
    /** Asks control to move what it shows of diagram by distance, in the diagram's space. */
    void notifyDiagramMove(UXDiagram* diagram, UXControl* control, UXPoint distance);
    void notifyEvent(UXControl* control, const UXEvent& event);
    void notifyEvent(UXControl* control, const UXEvent& event, UXObject* object, UXPoint point);
    /** Asks one control, or every one, for the context menu at a point in the diagram's space. */
    void notifyRightClickMenu(UXControl* control, UXMessageRightClickParam* param, UXPoint point);
    void notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint point);

    // Deferring
    /** Hands action to control, which runs it after the present event; a control that is not here runs
     * nothing. */
    void postAction(UXControl* control, const std::function<void()>& action);
    /** The same with the first control that shows diagram, or a use-case diagram made of it. Without one the
     * dispatch that runs takes the action, and outside of any it is dropped. */
    void postAction(UXDiagram* diagram, const std::function<void()>& action);

    // Documents
    /** Reads the document in a file, whose name is UTF-8, into the diagrams that are here.
     *  @return a Result */
    int load(const std::string& fileName);
    /** @return a Result; a file that cannot be written may be left in part */
    int save(const std::string& fileName);

private:
    friend class UXControl;
    friend class UXDiagram;

    class RepaintScope;
    /** What is to be painted on one control. */
    struct Painting {
        UXControl* control;
        UXPaintConfig* config;
        UXPaintConfigWatcher watcher;
        UXDirtyRegion region; // in the diagram's space
    };

    bool _repaintDirtyRectOnce(UXDiagram* diagram);
    bool _prepare(UXDiagram* diagram, UXControl* control, std::vector<Painting>& paintings);
    bool _paint(const std::vector<Painting>& paintings, UXDiagram* diagram);
    void _paint(const Painting& painting, UXDiagram* diagram, const UXRect& rect);
    void _paintOver(const Painting& painting, UXDiagram* diagram, const UXRect& rect);
    void _endPointer(bool wasThere, UXDiagram* left);
    bool _hasControl(const UXControl* control) const;
    bool _hasDiagram(const UXDiagram* diagram) const;
    void _forgetDiagram(UXDiagram* diagram);
    /** Has the controls that show diagram told. */
    void _post(UXNotification notification, UXDiagram* diagram);
    /** Calls notify on each of the controls that is still here when its turn comes. */
    template <class Notify>
    void _notify(const std::vector<UXControl*>& controls, const Notify& notify);

    std::vector<UXDiagram*> m_diagrams;
    std::vector<UXControl*> m_controls;
};
