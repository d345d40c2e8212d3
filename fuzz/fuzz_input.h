#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/** Ends the program when a promise of the library is broken, so that the fuzzer keeps the case. */
inline void require(bool kept, const char* promise)
{
    if (kept)
        return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

/** The bytes of one case as a row of choices. Used up, it answers zeros, or begins again if it repeats. */
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* bytes, std::size_t size) : m_next(bytes), m_end(bytes + size) {}
    /** @return the same bytes again and again */
    static FuzzInput makeEndless(const std::uint8_t* bytes, std::size_t size);

    bool isEmpty() const { return m_next == m_end; }
    std::uint8_t takeByte();
    /** @return 0 to count - 1, count at most 256 */
    int takeBelow(int count) { return takeByte() % count; }
    bool takeBool() { return takeByte() % 2 != 0; }
    /** @return small numbers mostly, and now and then those at the limits */
    int takeInt();
    double takeNumber();
    std::uint64_t takeBits();
    /** @return up to 63 bytes that need not be UTF-8 */
    std::string takeText();

private:
    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
    const std::uint8_t* m_begin = nullptr; // of one that repeats
};
