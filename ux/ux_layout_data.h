#pragma once

/** The base of what a layout keeps with an object; a host derives its own record from it. */
struct UXLayoutData {
    UXLayoutData() = default;
    UXLayoutData(const UXLayoutData&) = default;
    UXLayoutData& operator=(const UXLayoutData&) = default;
    virtual ~UXLayoutData() = default;
};
