// A document for every class that the library makes by name: read, saved, read again, laid out, painted, and
// changed by key.

#include "fuzz_input.h"
#include "fuzz_picture.h"
#include "fuzz_settings.h"
#include "kx_chart_property_base.h"
#include "kx_json_object_factory.h"
#include "ux/ux_object.h"

#include <memory>

namespace {

/** @return the text after the first "type" key, up to its closing quote */
std::string findType(const std::string& document)
{
    const std::size_t key = document.find("\"type\"");
    const std::size_t begin = key == std::string::npos ? key : document.find('"', key + 6);
    const std::size_t end = begin == std::string::npos ? begin : document.find('"', begin + 1);
    return end == std::string::npos ? std::string() : document.substr(begin + 1, end - begin - 1);
}

std::unique_ptr<UXJsonObject> read(const std::string& type, const std::string& document)
{
    KXJsonObjectFactory factory;
    std::unique_ptr<UXJsonObject> object(factory.create(type));
    if (object)
        object->deserialize(document, &factory);
    return object;
}

void requireAlike(const std::string& saved, const std::string& again, const char* promise)
{
    if (saved != again)
        std::fprintf(stderr, "%s\n%s\n", saved.c_str(), again.c_str());
    require(saved == again, promise);
}

void draw(UXObject& object)
{
    for (const UXRect& rect : {UXRect(0, 0, 320, 200), UXRect(0, 0, 17, 9), UXRect()}) {
        object.setRect(rect);
        object.layout();
        drawEverywhere(object, 1.25);
    }
}

/** What users do to settings that were read; the document's own bytes say what. */
void change(UXJsonObject& object, const std::string& type, FuzzInput input)
{
    FuzzSettings settings(input);
    const std::unique_ptr<UXJsonObject> other(KXJsonObjectFactory().create(type));
    auto* to = dynamic_cast<KXChartPropertyBase*>(&object);
    auto* from = dynamic_cast<KXChartPropertyBase*>(other.get());
    for (int count = 0; count < 6; ++count) {
        if (to && count % 2 != 0)
            settings.exchange(*from, *to, [] {});
        else
            settings.update(object);
    }
    // A number that is not finite is not saved, so that only what was read once has to stay.
    const std::string saved = read(type, object.serialize())->serialize();
    requireAlike(saved, read(type, saved)->serialize(), "what was changed is saved alike once it was read");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string document(bytes, bytes + size);
    const std::string type = findType(document);
    const std::unique_ptr<UXJsonObject> object = read(type, document);
    if (!object)
        return 0;
    const std::string saved = object->serialize();
    requireAlike(saved, read(type, saved)->serialize(), "what was saved is saved alike once it was read");
    KXJsonObjectFactory factory;
    require(object->deserialize(saved, &factory), "what was saved is understood");
    requireAlike(saved, object->serialize(), "reading what is there already changes nothing");
    if (auto* property = dynamic_cast<KXChartPropertyBase*>(object.get()))
        requireAlike(saved, std::unique_ptr<KXChartPropertyBase>(property->copy({}, true))->serialize(),
                     "a copy of all keys is saved alike");
    if (auto* view = dynamic_cast<UXObject*>(object.get())) {
        draw(*view);
        const std::string drawn = object->serialize();
        requireAlike(drawn, read(type, drawn)->serialize(), "so is what was drawn");
    }
    change(*object, type, FuzzInput(bytes, size));
    if (auto* view = dynamic_cast<UXObject*>(object.get()))
        draw(*view);
    return 0;
}
