#pragma once

#include <string>

struct DashboardDocument;

/** @return the document as DashboardReader reads it, its keys always in the same order; what is as it is
 *  without being said is left out */
[[nodiscard]] std::string writeDashboard(const DashboardDocument& document);
