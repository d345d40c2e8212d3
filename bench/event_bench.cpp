#include "turns.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

// What the dispatch of a pointer's move costs beside the bare hit test, and how the hit test grows.

namespace {

constexpr int columns = 25, cell = 20; // logical units

/** A control with a diagram of objects side by side. */
class Board {
public:
    Board(UXContext& context, int objects) : m_diagram(&context)
    {
        context.addDiagram(&m_diagram);
        context.setActiveDiagram(&m_control, &m_diagram);
        m_control.setControlRect({0, 0, columns * cell, objects / columns * cell});
        m_diagram.setRect({0, 0, columns * cell, objects / columns * cell});
        for (int i = 0; i < objects; ++i) {
            m_objects.push_back(std::make_unique<UXObject>());
            m_diagram.addChild(m_objects.back().get());
            m_objects.back()->setRect({i % columns * cell, i / columns * cell, cell, cell});
        }
        m_diagram.layout();
        m_diagram.clearDirtyRect();
    }

    UXControl& getControl() { return m_control; }
    UXDiagram& getDiagram() { return m_diagram; }

private:
    UXDiagram m_diagram;
    UXControl m_control;
    std::vector<std::unique_ptr<UXObject>> m_objects;
};

void movePointer(benchmark::State& state)
{
    UXContext context;
    std::vector<std::unique_ptr<Board>> boards;
    for (int i = 0; i < 20; ++i)
        boards.push_back(std::make_unique<Board>(context, 500));
    Board& board = *boards.back();
    const UXEvent event;
    board.getControl().mouseMove({250, 200}, event);

    Turns turns(200);
    for (auto _ : state) {
        turns.take(
            [&] {
                board.getControl().mouseMove({252, 201}, event);
            },
            [&] {
                benchmark::DoNotOptimize(board.getDiagram().obtainObjectsUnder({252, 201}));
            });
    }
    state.counters["move_us"] = turns.getFirst();
    state.counters["move/hit"] = turns.getFirst() / turns.getSecond();
    state.counters["dirty"] = board.getDiagram().getDirtyRegion().isEmpty() ? 0 : 1;
}
BENCHMARK(movePointer)->Iterations(200);

/** Siblings ten times as many, hit at the back, where all are asked. */
void hitSiblings(benchmark::State& state)
{
    UXContext context;
    Board few(context, 500), many(context, 5000);
    Turns turns(100);
    for (auto _ : state) {
        turns.take(
            [&] {
                benchmark::DoNotOptimize(many.getDiagram().obtainObjectsUnder({5, 5}));
            },
            [&] {
                benchmark::DoNotOptimize(few.getDiagram().obtainObjectsUnder({5, 5}));
            });
    }
    state.counters["10x siblings"] = turns.getFirst() / turns.getSecond();
}
BENCHMARK(hitSiblings)->Iterations(50);

/** One object in another, ten times as deep. */
void hitDepth(benchmark::State& state)
{
    const auto build = [](UXDiagram& diagram, int depth) {
        UXObject* parent = &diagram;
        std::unique_ptr<UXObject> outermost;
        for (int i = 0; i < depth; ++i) {
            auto* object = new UXObject;
            object->setRect({0, 0, 1000, 1000});
            parent->addChild(object);
            if (i == 0)
                outermost.reset(object);
            parent = object;
        }
        return outermost;
    };
    UXDiagram shallow, deep;
    shallow.setRect({0, 0, 1000, 1000});
    deep.setRect({0, 0, 1000, 1000});
    const auto few = build(shallow, 20), many = build(deep, 200);
    Turns turns(100);
    for (auto _ : state) {
        turns.take(
            [&] {
                benchmark::DoNotOptimize(deep.obtainObjectsUnder({5, 5}));
            },
            [&] {
                benchmark::DoNotOptimize(shallow.obtainObjectsUnder({5, 5}));
            });
    }
    state.counters["10x depth"] = turns.getFirst() / turns.getSecond();
}
BENCHMARK(hitDepth)->Iterations(100);

} // namespace
