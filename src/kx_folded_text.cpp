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
    const bool isCapital = static_cast<unsigned char>(byte - 'A') < 26;
    return static_cast<char>(byte + (isCapital ? 'a' - 'A' : 0));
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
    // 1. Most texts are ASCII.
    const std::size_t first = folded.size();
    folded.append(text);
    unsigned all = 0;
    for (char *at = folded.data() + first, *end = folded.data() + folded.size(); at < end; ++at) {
        all |= static_cast<unsigned char>(*at);
        *at = lowerAscii(*at);
    }
    if (all < 0x80)
        return;

    // 2. Others are folded letter by letter.
    folded.resize(first);
    for (std::size_t next = 0; next < text.size();) {
        const std::size_t begin = next;
        if (static_cast<unsigned char>(text[begin]) < 0x80) {
            folded += lowerAscii(text[begin]);
            ++next;
            continue;
        }
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
