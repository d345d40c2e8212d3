#pragma once

#include "ux/ux_json_path_resolver.h"

/** Names the objects inside another one by their places among the children, such as "0/2". */
class UXObjectPathResolver final : public UXJsonPathResolver {
public:
    std::string obtainPath(UXJsonObject* object, UXJsonObject* target) const override;
    UXJsonObject* obtainObject(UXJsonObject* object, const std::string& path) const override;
};

/** @return the one resolver of all objects */
const UXObjectPathResolver& uxObtainObjectPathResolver();
