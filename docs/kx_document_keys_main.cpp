#include "key_reference.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace {

std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

/** Compares a page with what its template, PAGE.in, and the key tables make of it; with --accept, writes it.
 */
int main(int argumentCount, char** arguments)
{
    const bool isAccepted = argumentCount == 3 && std::string(arguments[2]) == "--accept";
    if (argumentCount != 2 && !isAccepted) {
        std::fprintf(stderr, "usage: kx_document_keys PAGE [--accept]\n");
        return 2;
    }
    const std::string path = arguments[1];
    std::string page = readFile(path + ".in");
    const std::string mark = "@KINDS@\n";
    const std::size_t place = page.find(mark);
    if (place == std::string::npos) {
        std::fprintf(stderr, "%s.in: holds no %s", path.c_str(), mark.c_str());
        return 2;
    }
    page.replace(place, mark.size(), KeyReference().getText() + "\n");
    if (isAccepted)
        std::ofstream(path, std::ios::binary) << page;
    if (readFile(path) == page)
        return 0;
    std::fprintf(stderr, "%s: is not what the key tables say; write it anew with --accept\n", path.c_str());
    return 1;
}
