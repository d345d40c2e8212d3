#pragma once

/**
 * Declares an enumeration whose values have names: UX_NAMED_ENUM(UXArrangement, Row, Column) numbers the
 * names from 0 and keeps the same list as text, so that a value and its name cannot drift apart. The text is
 * found by uxObtainEnumNames(Enum{}).
 */
#define UX_NAMED_ENUM(Enum, ...)           \
    enum class Enum : int { __VA_ARGS__ }; \
    constexpr const char* uxObtainEnumNames(Enum) { return #__VA_ARGS__; }
