#pragma once

#include "data_binding.h"

class SqlSession;

/** @return the binding with widths for bins of which it says how many there are to be, from what the numbers
 * reach from and to. Throws HostError when the database refuses. */
DataBinding resolveNumberBins(SqlSession& session, DataBinding binding);
