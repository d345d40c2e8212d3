#pragma once

#include <string>

/** @param connection what stands behind "postgresql://": the rest of a URI, "user@host:5432/db", or pairs,
 *  "host=localhost dbname='my sales'"
 *  @return the same as a URI of pairs without blanks, the one form that the database layer hands on as it is;
 *  throws HostError for what PostgreSQL does not understand, without what is in it: that may be a password */
std::string obtainPostgresqlConnection(const std::string& connection);
