#pragma once

#include "kx_number_punctuation.h"

#include <string>

/** Appends the value in fixed notation, as a stream would that has the punctuation: rounded from the exact
 * binary value, ties to the even digit, 6 decimals when decimals is negative. More than 10,000 decimals are
 * not written. Infinities and NaN are "inf" and "nan", with a minus when their sign is set. */
void kxAppendNumberText(std::string& text, double value, int decimals,
                        const KXNumberPunctuation& punctuation);
