#pragma once

#include "fuzz_input.h"
#include "ux/ux_control_point.h"
#include "ux/ux_event.h"

#include <cstdint>

class UXControl;

/** Does with the mouse and the keyboard what a case says. Half of the points are aimed at what can be seen,
 * as users aim. */
class FuzzUser {
public:
    explicit FuzzUser(FuzzInput& input) : m_input(input) {}

    void act(UXControl& control);

private:
    UXControlPoint _takePoint(UXControl& control);
    UXEvent _takeEvent();
    void _useMouse(UXControl& control, int choice);
    void _type(UXControl& control);
    void _drag(UXControl& control);
    void _changeControl(UXControl& control, int choice);

    FuzzInput& m_input;
    std::int64_t m_now = 0;
};
