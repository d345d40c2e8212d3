#pragma once

#include "kx_collision_grid.h"
#include "kx_gauge_dial.h"
#include "ux/ux_rect.h"
#include "ux/ux_text_property.h"

#include <functional>
#include <string>
#include <vector>

class KXLabelPlacer;
class UXLayoutHelper;

/** One text of a gauge while its place is sought. */
struct KXGaugeText {
    std::string text;        // an empty one is never shown
    UXTextProperty property; // the size to start from; afterwards the one that fits
    double degrees = 0;      // of the dial, for a text that stands outside of it
    bool shown = false;
    UXDoubleRect rect;
};

/**
 * Finds room for a gauge's dial and its texts. Below the dial stand the minimum, the maximum and, with a
 * pointer, the main text: between them, or deeper where it is too wide and there is the height. Without a
 * pointer it stands in the dial's hole, if there is any to speak of. The target and the boundaries stand
 * outside of the pipe at their angles.
 *
 * No text touches another or the dial. Where room is short the texts shrink first, then the dial, and only
 * then texts go: the boundaries that collide, all boundaries, the target, or minimum and maximum where it is
 * these that take the room, then both, last of all the main text. The dial stays.
 */
class KXGaugeLayout {
public:
    /** What the dial's radius depends on. */
    struct Room {
        UXRect rect;            // for the dial and what stands below it
        bool showsEnds = false; // minimum and maximum
        int endHeight = 0;      // of minimum and maximum, 0 without them
        int mainHeight = 0;     // of a main text that stands below, 0 without one
        UXSize targetSize;
        UXTextProperty endProperty;
    };
    using ObtainRadius = std::function<int(const Room&)>;

    KXGaugeText main, minimum, maximum, target;
    std::vector<KXGaugeText> boundaries; // from the dial's left end to its right one
    double pipeShare = 0;
    bool showsPointer = false;
    bool showsTick = false;
    KXGaugeDial dial;

    /** Sets the dial, and of each text its size, its place and whether it is shown.
     *  @param obtainRadius called several times, with ever less room */
    void place(const UXRect& area, UXLayoutHelper& helper, const ObtainRadius& obtainRadius);

private:
    enum class Stage { All, FewerBoundaries, NoBoundaries, NoTarget, NoEnds, OnlyMain, Nothing };

    bool _enter(Stage stage);
    int _obtainLeastSize(const KXGaugeText& text) const;
    double _obtainLeastScale() const;
    bool _placeScaled(double scale, double mainScale, double leastRadius);
    void _growMain(double scale);
    void _placeAll(const UXRect& room);
    void _placeEnds(double gap);
    void _placeMain(double gap);
    void _dropMain();
    void _placeBoundaries();
    void _placeTarget();
    void _keepBoundariesWithRoom();
    /** Lets a placer keep off the texts that are shown, but one. */
    void _addShown(KXLabelPlacer& placer, const KXGaugeText* except) const;
    bool _mainStandsInside() const;
    bool _mainFits() const;
    bool _shrinkMain();
    void _measure(KXGaugeText& text, int size);
    double _obtainFreeWidth() const;
    Room _obtainRoom(const UXRect& rect) const;
    UXDoubleRect _obtainBounds() const;
    void _moveIntoArea();
    /** @return the places of the texts that are shown, but one's */
    KXCollisionGrid _obtainTaken(const KXGaugeText* except) const;
    bool _collides(const KXGaugeText& text) const;
    bool _anyCollide() const;
    template <class Self, class Action>
    static void _forEachText(Self& self, Action action);

    UXRect m_area;
    UXLayoutHelper* m_helper = nullptr; // the caller's, during place()
    const ObtainRadius* m_obtainRadius = nullptr;
    Stage m_stage = Stage::All;
    std::vector<int> m_wantedSizes; // in the order of _forEachText
};
