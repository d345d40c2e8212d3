// Changes documents as documents: bytes changed at random are hardly ever JSON.

#include "fuzz_input.h"

#include <nlohmann/json.hpp>

#include "kx_json_object_factory.h"

#include <cstring>
#include <memory>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t size, std::size_t greatestSize);

namespace {

using Json = nlohmann::ordered_json;

class Mutation {
public:
    explicit Mutation(unsigned seed) : m_random(seed) {}

    void apply(Json& document)
    {
        // The saved form of the type holds every key, so it is the ground that most changes need.
        if (below(8) == 0)
            complete(document);
        for (int count = 1 + below(4); count > 0; --count)
            change(pick(document));
    }

private:
    int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    static void complete(Json& document)
    {
        if (!document.is_object() || !document.contains("type") || !document["type"].is_string())
            return;
        const std::unique_ptr<UXJsonObject> object(
            KXJsonObjectFactory().create(document["type"].get<std::string>()));
        Json saved = object ? Json::parse(object->serialize()) : Json::object();
        saved.update(document);
        document = std::move(saved);
    }

    Json& pick(Json& node)
    {
        if (!node.is_structured() || node.empty() || below(12) == 0)
            return node;
        auto child = node.begin();
        std::advance(child, below(static_cast<int>(node.size())));
        return pick(*child);
    }

    void change(Json& node)
    {
        static const Json odd[] = {
            nullptr,        true, 0,  -1,       1e300,     -1e-300,       std::uint64_t(-1),
            2147483648,     0.5,  "", "\u65e5", 3,         Json::array(), Json::object(),
            "KXGaugeChart", 255,  8,  "Right",  "Percent", 1000};
        if (node.is_number() && below(2) == 0)
            node = node.get<double>() * (below(9) - 4) + below(3);
        else if (node.is_array() && !node.empty() && below(4) == 0)
            node.erase(node.begin());
        else if (node.is_array() && !node.empty() && below(3) != 0)
            node.push_back(Json(node.back()));
        else if (node.is_object() && !node.empty() && below(4) != 0)
            node.erase(std::next(node.begin(), below(static_cast<int>(node.size()))));
        else
            node = odd[below(static_cast<int>(std::size(odd)))];
    }

    std::minstd_rand m_random;
};

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t size,
                                               std::size_t greatestSize, unsigned seed)
{
    Json document = Json::parse(bytes, bytes + size, nullptr, false);
    if (document.is_discarded() || seed % 16 == 0)
        return LLVMFuzzerMutate(bytes, size, greatestSize);
    Mutation(seed).apply(document);
    const std::string text = document.dump(-1, ' ', false, Json::error_handler_t::replace);
    if (text.size() > greatestSize)
        return LLVMFuzzerMutate(bytes, size, greatestSize);
    std::memcpy(bytes, text.data(), text.size());
    return text.size();
}
