#include "kx_folded_text.h"

#include "ux/ux_utf8.h"

#include <cstddef>

namespace {

// The plain letters of U+00C0 to U+017F, a dot for what stays as it is and a digit for two letters.
constexpr std::string_view latin = "aaaaaa1ceeeeiiiidnooooo.ouuuuy24aaaaaa1ceeeeiiiidnooooo.ouuuuy2y"
                                   "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiii33jjkkk"
                                   "llllllllllnnnnnnnnnoooooo55rrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
constexpr std::string_view pairs[] = {"ae", "th", "ij", "ss", "oe"};
constexpr char32_t latinBegin = 0xC0;
static_assert(latin.size() == 0x180 - latinBegin);

bool isIn(char32_t character, char32_t first, char32_t last)
{
    return character >= first && character <= last;
}

char lowerAscii(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

/** @return the small letter of a Greek or Cyrillic one */
char32_t lower(char32_t character)
{
    if (isIn(character, 0x391, 0x3A9) || isIn(character, 0x410, 0x42F))
        return character + 0x20;
    return isIn(character, 0x400, 0x40F) ? character + 0x50 : character;
}

void append(std::string& text, char32_t character)
{
    // Two bytes: what comes here is Greek or Cyrillic.
    text += static_cast<char>(0xC0U | (character >> 6U));
    text += static_cast<char>(0x80U | (character & 0x3FU));
}

} // namespace

std::string kxFoldText(std::string_view text)
{
    std::string folded;
    folded.reserve(text.size());
    kxAppendFoldedText(folded, text);
    return folded;
}

void kxAppendFoldedText(std::string& folded, std::string_view text)
{
    for (std::size_t next = 0; next < text.size();) {
        // 1. What is ASCII is copied as far as it goes.
        const std::size_t begin = next;
        while (next < text.size() && static_cast<unsigned char>(text[next]) < 0x80)
            ++next;
        if (next > begin) {
            const std::size_t first = folded.size();
            folded.append(text, begin, next - begin);
            for (std::size_t i = first; i < folded.size(); ++i)
                folded[i] = lowerAscii(folded[i]);
            continue;
        }

        // 2. Other letters one by one.
        const char32_t character = uxDecodeUtf8(text, next);
        const char plain = isIn(character, latinBegin, 0x17F) ? latin[character - latinBegin] : '.';
        if (plain >= '1' && plain <= '5')
            folded += pairs[plain - '1'];
        else if (plain != '.')
            folded += plain;
        else if (lower(character) != character)
            append(folded, lower(character));
        else if (!isIn(character, 0x300, 0x36F)) // accents that stand behind their letter
            folded += text.substr(begin, next - begin);
    }
}
