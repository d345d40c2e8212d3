#pragma once

#include "kx_export.h"
#include "ux/ux_json_object_factory.h"

#include <string>
#include <vector>

/** Makes the objects of the charts that a document names by type. Property classes whose keys stand in
 *  their chart's own object have no name here. */
class KX_EXPORT KXJsonObjectFactory : public UXJsonObjectFactory {
public:
    KXJsonObjectFactory();
    ~KXJsonObjectFactory() override;

    /** @return the names of all types that are made here, in the order of the table */
    static std::vector<std::string> obtainTypeNames();
    /** @return those of them that are charts */
    static std::vector<std::string> obtainChartTypeNames();

    /** @return a new object with its defaults, the caller's; null for a name that no class here has, case
     *          included */
    UXJsonObject* customCreate(const std::string& typeName) override;
};
