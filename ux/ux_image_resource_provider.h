#pragma once

#include "ux/ux_export.h"

#include <string>
#include <vector>

/** Hands out the image files that a host carries inside itself. */
class UX_EXPORT UXImageResourceProvider {
public:
    virtual ~UXImageResourceProvider();

    /** @return false, and bytes empty, where there is no resource of that name; otherwise bytes hold the file
     */
    virtual bool obtainImageResource(const std::string& name, std::vector<unsigned char>& bytes) = 0;
};
