// A document for every class that the library makes by name: read, saved, read again, laid out and painted.

#include "fuzz_input.h"
#include "kx_chart_property_base.h"
#include "kx_json_object_factory.h"
#include "ux/ux_object.h"
#include "ux/ux_recording_paint_config.h"

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
        UXRecordingPaintConfig config;
        object.paint(&config, object.getBoundingRect());
    }
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
    if (auto* property = dynamic_cast<KXChartPropertyBase*>(object.get()))
        requireAlike(saved, std::unique_ptr<KXChartPropertyBase>(property->copy({}, true))->serialize(),
                     "a copy of all keys is saved alike");
    if (auto* view = dynamic_cast<UXObject*>(object.get())) {
        draw(*view);
        const std::string drawn = object->serialize();
        requireAlike(drawn, read(type, drawn)->serialize(), "so is what was drawn");
    }
    return 0;
}
