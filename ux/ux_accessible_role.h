#pragma once

#include "ux/ux_export.h"

/** What a node of the accessible tree is to those who do not see it. */
enum class UXAccessibleRole {
    Group,
    Figure, /**< a picture that says something, such as a chart */
    Heading,
    Text,
    List,
    ListItem,
    Mark, /**< a part of a figure that stands for something */
    Table,
    Row,
    RowHeader,
    ColumnHeader,
    Cell,
    Button,
    CheckBox,
    Switch,
    Slider,
    TextLine,
    ComboBox
};

/** @return what ARIA calls the role, such as "checkbox" */
[[nodiscard]] UX_EXPORT const char* uxObtainRoleName(UXAccessibleRole role);
