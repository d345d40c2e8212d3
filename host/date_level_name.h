#pragma once

#include <string>

#include "date_level.h"

class JsonCursor;

/** @return the level that a document names; throws HostError for another text */
[[nodiscard]] DateLevel readDateLevel(const JsonCursor& place);

/** @return how documents name a level */
[[nodiscard]] const std::string& obtainDateLevelName(DateLevel level);
