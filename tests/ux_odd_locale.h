#pragma once

#include <locale>
#include <string>

/** While it stands, a stream that is told nothing else writes "1.234,5" with a point behind every digit or
 * so: whatever consults the locale shows. */
class UXOddLocale {
public:
    UXOddLocale() : m_before(std::locale::global(make())) {}
    UXOddLocale(const UXOddLocale&) = delete;
    UXOddLocale& operator=(const UXOddLocale&) = delete;
    ~UXOddLocale() { std::locale::global(m_before); }

    static std::locale make() { return {std::locale::classic(), new Punctuation}; }

private:
    class Punctuation : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\1"; }
    };

    std::locale m_before;
};
