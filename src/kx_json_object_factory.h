#pragma once

#include "kx_export.h"
#include "ux/ux_json_object_factory.h"

/** Makes the objects of the charts that a document names by type. Property classes whose keys stand in
 *  their chart's own object have no name here. */
class KX_EXPORT KXJsonObjectFactory : public UXJsonObjectFactory {
public:
    KXJsonObjectFactory();
    ~KXJsonObjectFactory() override;

    /** @return a new object with its defaults, the caller's; null for a name that no class here has, case
     *          included */
    UXJsonObject* customCreate(const std::string& typeName) override;
};
