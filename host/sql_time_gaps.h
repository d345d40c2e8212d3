#pragma once

#include <cstddef>
#include <vector>

#include "date_level.h"
#include "sql_member.h"

struct DataBinding;

/** @param members of the binding's dimension, dates or times of a level in display order, a null last
 *  @return the same with members for the steps that are missing between them. Throws HostError where these
 * are too many. */
std::vector<SqlMember> fillSqlTimeGaps(std::vector<SqlMember> members, const DataBinding& binding,
                                       std::size_t index, DateLevel level);
