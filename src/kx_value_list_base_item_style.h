#pragma once

/** The look of one item of a value list. */
enum class KXValueListBaseItemStyle : int {};
