#pragma once

#include <string>

/** What a text is set in. The family "Default" stands for the one that the text measurer and the painter bring. */
struct UXFont {
    std::string familyName = "Default";
    int size = 12; /**< height of the em square in logical units */
    bool bold = false;
    bool italic = false;
    int attribute = 0; /**< kept for the host's own measurer and painter; the ones in this project ignore it */

    friend bool operator==(const UXFont&, const UXFont&) = default;
};
