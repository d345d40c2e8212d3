#pragma once

#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/ux_image.h"
#include "ux/ux_painter.h"
#include "ux/ux_point.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_size.h"

#include <functional>
#include <memory>
#include <optional>

/** One picture of the comparison of chart libraries, in memory. */
class Frame {
public:
    virtual ~Frame() = default;

    virtual void resize(const UXSize& size) = 0;
    virtual void paint() = 0;
    /** Replaces all data by other ones and paints. */
    virtual void update() = 0;
    /** @return a function that draws once more what paint() drew, with nothing between recording and back
     * end: the limit of what paint() can take */
    virtual std::function<void()> makeReplay() = 0;
    virtual UXImage obtainImage() const = 0;

    /** @return whether the next two do anything */
    virtual bool hasPointer() const { return false; }
    /** @return whether there is a mark at that point */
    virtual bool hit(const UXPoint&) { return false; }
    /** Moves the pointer and paints what that changes.
     *  @return how many pixels were painted */
    virtual double hover(const UXPoint&) { return 0; }

    /** @return whether the next one does anything */
    virtual bool canScroll() const { return false; }
    /** Scrolls to another place and paints. */
    virtual void scroll(int) {}
};

/** A board with the image that it is painted on. */
template <class Board>
class BoardFrame : public Frame {
public:
    /** @param arguments what the board is made of */
    template <class... Arguments>
    explicit BoardFrame(const Arguments&... arguments) : m_board(arguments...)
    {
    }

    // From Frame
    void resize(const UXSize& size) override
    {
        m_image.emplace(UXDoubleSize(size));
        m_board.layout(size.width, size.height);
        paint();
    }
    void paint() override { m_board.paint(*m_image); }
    void update() override
    {
        m_board.update();
        paint();
    }
    std::function<void()> makeReplay() override
    {
        const auto recorder = std::make_shared<UXRecordingPaintConfig>();
        m_board.paint(*recorder);
        return [this, recorder] {
            UXPainter* painter = uxCreatePainter(&*m_image);
            recorder->getRecording().replay(*painter);
            uxDestroyPainter(painter);
        };
    }
    UXImage obtainImage() const override { return m_image->obtainImage(); }
    bool hasPointer() const override { return hasMarks; }
    bool hit(const UXPoint& point) override
    {
        if constexpr (hasMarks)
            return m_board.hit(point);
        else
            return false;
    }
    double hover(const UXPoint& point) override
    {
        if constexpr (hasMarks)
            return m_board.hover(point, *m_image);
        else
            return 0;
    }
    bool canScroll() const override { return scrolls; }
    void scroll(int step) override
    {
        if constexpr (scrolls) {
            m_board.scroll(step);
            paint();
        }
    }

private:
    static constexpr bool scrolls = requires(Board & board) { board.scroll(1); };
    static constexpr bool hasMarks = requires(Board & board) { board.hit(UXPoint()); };

    Board m_board;
    std::optional<UXCairoImagePaintConfig> m_image;
};
