#pragma once

/** What can be done with a node of the accessible tree. */
enum class UXAccessibleAction {
    Focus,    /**< keys go there, and it comes into sight */
    Press,    /**< what a click or Enter does */
    Increase, /**< what the arrow upwards does */
    Decrease
};
