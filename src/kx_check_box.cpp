#include "kx_check_box.h"

#include "kx_check_mark.h"

namespace {

constexpr double markExtent = 16; // logical units

} // namespace

KXCheckBox::KXCheckBox() : KXChartDataAction(this) {}
KXCheckBox::~KXCheckBox() { setParent(nullptr); }

void KXCheckBox::setRound(bool round)
{
    if (m_round == round)
        return;
    m_round = round;
    invalidate();
}

void KXCheckBox::customSerialize()
{
    KXSwitchPart::customSerialize();
    serializeBool("m_round", m_round);
}

std::string KXCheckBox::customSerializeTypeID() { return "KXCheckBox"; }

bool KXCheckBox::customDeserialize()
{
    const bool complete = KXSwitchPart::customDeserialize();
    return deserializeBool("m_round", m_round) && complete;
}

KXChartDataPath* KXCheckBox::createDataPath() { return nullptr; }
double KXCheckBox::_obtainMarkWidth() const { return markExtent; }

KXToggleSwitchState KXCheckBox::_obtainNextState() const
{
    return m_round ? KXToggleSwitchState::On : KXSwitchPart::_obtainNextState();
}

void KXCheckBox::_paintMark(UXPainter& painter, const UXDoubleRect& rect) const
{
    const double inset = (rect.height - markExtent) / 2;
    const UXDoubleRect mark{rect.x, rect.y + (inset > 0 ? inset : 0), rect.width,
                            inset > 0 ? markExtent : rect.height};
    kxDrawCheckMark(painter, mark,
                    {getState(), m_round, isEnabled(), _isHovered(), _isPressed(), getAccentColor()});
}
