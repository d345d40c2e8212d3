#pragma once

#include "ux/ux_export.h"

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <new>
#include <string>
#include <utility>
#include <vector>

class UXPainter;

/**
 * What a recording painter was told, one step for each operation, in order. A step holds its typed arguments
 * beside those of its neighbours, so that playing runs straight through memory and reads no text.
 */
class UX_EXPORT UXRecording {
public:
    /** @param deviceScale device pixels per logical unit that edges were moved to */
    explicit UXRecording(double deviceScale = 1);
    ~UXRecording();

    UXRecording(const UXRecording&) = delete;
    UXRecording& operator=(const UXRecording&) = delete;

    double getDeviceScale() const { return m_deviceScale; }
    std::size_t getStepCount() const { return m_steps.size(); }

    /** Does with painter what was recorded. Nothing of the recording is needed afterwards. */
    void replay(UXPainter& painter) const;

    /**
     * @return one readable line for each step, such as "addLinePath 10,20", numbers in the shortest form that
     * reads back the same; what a picture draws stands indented between "{" and "}". A device scale other
     * than 1 is the first line.
     */
    std::vector<std::string> getLines() const;

    /** @return the lines, each ended by a line feed */
    std::string getText() const;

    void clear();

    /** Appends a step; action is called with the painter, a UXPainter&, when the recording is played. */
    template <typename Action>
    void add(Action action)
    {
        void* room = m_memory->allocate(sizeof(TypedStep<Action>), alignof(TypedStep<Action>));
        m_steps.push_back(::new (room) TypedStep<Action>(std::move(action)));
    }

private:
    struct Step {
        virtual ~Step() = default;
        virtual void play(UXPainter& painter) const = 0;
    };

    template <typename Action>
    struct TypedStep final : Step {
        explicit TypedStep(Action&& made) : action(std::move(made)) {}
        void play(UXPainter& painter) const override { action(painter); }

        Action action;
    };

    double m_deviceScale;
    std::unique_ptr<std::pmr::monotonic_buffer_resource> m_memory;
    std::vector<Step*> m_steps;
};
