#pragma once

#include "ux/ux_color.h"
#include "ux/ux_font.h"
#include "ux/ux_image.h"
#include "ux/ux_paint_styles.h"
#include "ux/ux_transform.h"
#include "web_command.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

/** Colours that pass into one another along a line, in the space that its map leads to the canvas. */
struct WebGradient {
    struct Stop {
        UXColor color;
        double offset;
    };

    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    UXSourceOperator beyond = UXSourceOperator::Pad;
    std::vector<Stop> stops;
};

/** What is drawn with. */
struct WebSource {
    UXColor color;
    std::shared_ptr<const WebGradient> gradient; // in place of the colour, where there is one
    UXTransform gradientToCanvas;

    friend bool operator==(const WebSource&, const WebSource&) = default;
};

/** What lines are drawn with. */
struct WebPen {
    double width = 1;
    UXLineCapStyle cap = UXLineCapStyle::Butt;
    UXLineJoinStyle join = UXLineJoinStyle::Miter;
    std::vector<double> dashes;
    double dashOffset = 0;

    friend bool operator==(const WebPen&, const WebPen&) = default;
};

/**
 * One frame's commands as words, for a page to replay on its canvas. A state is written when something is
 * drawn with it, and only where it differs from what the canvas has.
 */
class WebDrawing {
public:
    // Words
    void add(WebCommand command) { m_words.push_back(static_cast<std::uint32_t>(command)); }
    void addCount(std::size_t count);
    void addNumber(double number);
    void addNumbers(std::initializer_list<double> numbers);
    void addText(std::string_view text);
    void addTransform(const UXTransform& transform);
    template <typename Enum>
    void addEnum(Enum value)
    {
        m_words.push_back(static_cast<std::uint32_t>(value));
    }
    const std::vector<std::uint32_t>& getWords() const { return m_words; }

    // The state of the canvas
    void save();
    void restore();
    void use(const WebSource& source);
    /** @param toCanvas the space that the pen is round in */
    void use(const WebPen& pen, const UXTransform& toCanvas);
    void use(UXCompositionMode mode);
    void use(const UXFont& font);

    void addImage(const UXImage& image, double opacity, const UXTransform& toCanvas);
    /** A layer begins with the canvas's initial state, and what was there before comes back at its end. */
    void beginLayer();
    void endLayer(UXCompositionMode mode, double opacity);

    /** Begins the next frame. The images of the last one stay until the next call, so that a page can tell by
     * their addresses what it has already. */
    void clear();

private:
    struct Pen {
        WebPen pen;
        UXTransform toCanvas;
    };
    struct State {
        std::optional<WebSource> source;
        std::optional<Pen> pen;
        UXCompositionMode mode = UXCompositionMode::Over;
        std::optional<UXFont> font;
    };

    std::vector<std::uint32_t> m_words;
    State m_state;
    std::vector<State> m_saved, m_beneath; // of the layers around
    std::vector<UXImage> m_images, m_lastImages;
};
