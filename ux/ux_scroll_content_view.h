#pragma once

#include "ux/ux_object.h"

/** Carries what a scroll view scrolls. The scroll view gives it its place and its size. */
class UX_EXPORT UXScrollContentView : public UXObject {
public:
    UXScrollContentView();
    ~UXScrollContentView() override;

    // From UXObject
    std::string customSerializeTypeID() override;
};
