#pragma once

#include <stdexcept>
#include <string>

/** Why an input of the host could not be used, as one line: the file, the place in it and the cause. Host
 * code throws it; a program's main catches it, prints it and ends with code 2. */
class HostError : public std::runtime_error {
public:
    /** @param file a file, a connection or an option; place a line, a key or a column; either may be empty.
     *  Line breaks and control characters in the three become blanks. */
    HostError(const std::string& file, const std::string& place, const std::string& cause);
};
