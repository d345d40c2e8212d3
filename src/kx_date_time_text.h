#pragma once

#include "kx_date_time_fields.h"

#include <string>

/** @param pattern text with tokens such as YYYY or MMM, replaced one kind after the other; what was put in
 * for a token is not searched for others
 *  @return the pattern with every token replaced whose field is present. A token that would make the text
 * longer than 16 MiB stays. */
[[nodiscard]] std::string kxObtainDateTimeText(std::string pattern, const KXDateTimeFields& fields);
