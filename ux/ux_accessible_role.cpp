#include "ux/ux_accessible_role.h"

const char* uxObtainRoleName(UXAccessibleRole role)
{
    switch (role) {
    case UXAccessibleRole::Group:
        return "group";
    case UXAccessibleRole::Figure:
        return "figure";
    case UXAccessibleRole::Heading:
        return "heading";
    case UXAccessibleRole::Text:
        return "paragraph";
    case UXAccessibleRole::List:
        return "list";
    case UXAccessibleRole::ListItem:
        return "listitem";
    case UXAccessibleRole::Mark:
        return "img";
    case UXAccessibleRole::Table:
        return "table";
    case UXAccessibleRole::Row:
        return "row";
    case UXAccessibleRole::RowHeader:
        return "rowheader";
    case UXAccessibleRole::ColumnHeader:
        return "columnheader";
    case UXAccessibleRole::Cell:
        return "cell";
    case UXAccessibleRole::Button:
        return "button";
    case UXAccessibleRole::CheckBox:
        return "checkbox";
    case UXAccessibleRole::Switch:
        return "switch";
    case UXAccessibleRole::Slider:
        return "slider";
    case UXAccessibleRole::TextLine:
        return "textbox";
    case UXAccessibleRole::ComboBox:
        return "combobox";
    }
    return "";
}
