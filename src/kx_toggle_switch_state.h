#pragma once

/** The state of a toggle switch. */
enum class KXToggleSwitchState : int {};
