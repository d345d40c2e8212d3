#pragma once

#include "kx_date_time_fields.h"

#include <cstddef>
#include <span>
#include <string_view>

/** A word of a pattern that stands for a field, such as YYYY or MMM. */
struct KXDateTimeToken {
    static constexpr std::size_t longest = 16; // bytes that it can stand for, the second's decimals aside

    constexpr KXDateTimeToken(std::string_view tokenName, int KXDateTimeFields::*tokenField,
                              char* (*writeValue)(char* to, int value), std::string_view textInitials = {})
        : name(tokenName), field(tokenField), write(writeValue), initials(textInitials)
    {
        while (firstLetters < name.size() && name[firstLetters] == name[0])
            ++firstLetters;
    }

    std::string_view name;
    int KXDateTimeFields::*field;        // while it is absent, the token stays
    char* (*write)(char* to, int value); // answers where it ended
    std::string_view initials;           // the letters that its text can begin with, digits and signs aside
    std::size_t firstLetters = 0;        // how many of its first letter it begins with
};

/** @return every token, in the order in which they are replaced: longer ones before what they begin with */
[[nodiscard]] std::span<const KXDateTimeToken> kxObtainDateTimeTokens();

/** @return how many bytes kxWriteDateTimeToken may write */
[[nodiscard]] std::size_t kxObtainDateTimeTokenRoom(const KXDateTimeToken& token,
                                                    const KXDateTimeFields& fields);

/** Writes what stands for the token, whose field has to be present.
 *  @return where it ended */
char* kxWriteDateTimeToken(char* to, const KXDateTimeToken& token, const KXDateTimeFields& fields);
