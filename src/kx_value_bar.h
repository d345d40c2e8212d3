#pragma once

#include "kx_export.h"
#include "kx_rectangle.h"

/** One value as a bar from zero on, along an object that is as long as a range of values. */
class KX_EXPORT KXValueBar : public KXRectangle {
public:
    double getValue() const { return m_value; }
    /** @param value no bar for what is not finite */
    void setValue(double value);
    double getMinValue() const { return m_minValue; }
    double getMaxValue() const { return m_maxValue; }
    /** Sets the values at the object's ends. A range without length has no bar; a bar ends with the range. */
    void setRange(double min, double max);

    // From UXJsonObject
    void customSerialize() override;
    bool customDeserialize() override;

protected:
    /** @return whether values grow upwards, otherwise to the right */
    virtual bool isVertical() const = 0;
    UXDoubleRect obtainFilledRect() const override;

private:
    double m_value = 0;
    double m_minValue = 0;
    double m_maxValue = 1;
};
