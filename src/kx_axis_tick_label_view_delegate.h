#pragma once

#include "kx_export.h"

#include <string>

class KXAxisTickLabelView;
struct UXColor;

/** What an axis chart tells the labels along one of its axes. Ticks are numbered from 0 and their values grow
 *  with their index. An operation may destroy the view. */
class KX_EXPORT KXAxisTickLabelViewDelegate {
public:
    virtual ~KXAxisTickLabelViewDelegate();

    /** @return the number of ticks from end to end of the axis */
    virtual int axisTickLabelViewObtainTickLabelCount(KXAxisTickLabelView* view) = 0;
    /** @return the value of a tick; asked for what is visible and its neighbours, not for all */
    virtual double axisTickLabelViewObtainTick(KXAxisTickLabelView* view, int index) = 0;
    virtual void axisTickLabelViewObtainTickLabel(KXAxisTickLabelView* view, double value,
                                                  std::string& text) = 0;
    /** @param color the label's, to be changed for a label that differs from the others
     *  @param marked set to print the label bold
     *  @return whether either was set */
    virtual bool axisTickLabelViewObtainTickLabelVisuals(KXAxisTickLabelView* view, double value,
                                                         UXColor& color, bool& marked);
    /** @param consider whether the axis leaves room for the last label at its end; it does unless set
     *  @return whether it was set */
    virtual bool axisTickLabelViewShouldConsiderStartEndLabelLength(KXAxisTickLabelView* view,
                                                                    bool& consider);
    /** The axis has to have this much extra length under the view's key.
     *  @param length in logical units, not below 0 */
    virtual void axisTickLabelViewRequestExtraLengthAtTheEnd(KXAxisTickLabelView* view, double length) = 0;
    /** @return whether what was told last as the label of that value stands for a text that is still to come;
     * none is unless overridden */
    virtual bool axisTickLabelViewIsTickLabelToCome(KXAxisTickLabelView* view, double value);
};
