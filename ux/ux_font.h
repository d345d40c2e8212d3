#pragma once

#include <string>

/** What a text is set in. The family "Default" is the one that the measurer and the painter bring. */
struct UXFont {
    std::string familyName = "Default";
    int size = 12; /**< height of the em square in logical units */
    bool bold = false;
    bool italic = false;
    int attribute = 0; /**< for the host's own measurer and painter; those of this project ignore it */

    friend bool operator==(const UXFont&, const UXFont&) = default;
};
