// The pen-travel ordering of a drawing: n short strokes (up to 5 mm) spread at random over an A0
// page, four pens, in one run; and n lines meeting at one point. Time grows as n log n; the
// counters give the pen-up travel before and after, in metres.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <random>

#include "host/drawing/VRKDrawing.h"
#include "host/drawing/VRKDrawingOrder.h"
#include "host/drawing/VRKDrawingStats.h"

namespace {

VRKDrawing randomStrokes(std::int64_t count) {
    std::mt19937 random(20260101);
    std::uniform_real_distribution<float> x(0.0f, 841.0f);
    std::uniform_real_distribution<float> y(0.0f, 1189.0f);
    std::uniform_real_distribution<float> step(-2.5f, 2.5f);
    VRKDrawing drawing;
    drawing.width = 841.0f;
    drawing.height = 1189.0f;
    for (std::uint8_t k = 0; k < 4; ++k) {
        VRKDrawingPen pen;
        pen.color = {static_cast<std::uint8_t>(60 * k), 0, 0};
        drawing.PenIndex(pen);
    }
    drawing.items.reserve(static_cast<std::size_t>(count));
    drawing.strokes.reserve(static_cast<std::size_t>(count));
    drawing.points.reserve(3 * static_cast<std::size_t>(count));
    drawing.controls.reserve(3 * static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        VRKDrawingPoint xy[3];
        xy[0] = {x(random), y(random)};
        xy[1] = {xy[0].x + step(random), xy[0].y + step(random)};
        xy[2] = {xy[1].x + step(random), xy[1].y + step(random)};
        drawing.AddPath(static_cast<std::uint32_t>(i % 4), xy, nullptr, 3);
    }
    return drawing;
}

// n lines from the centre of the page outwards, in random directions: every stroke ends at one
// point, where each search finds all the others equally near.
VRKDrawing star(std::int64_t count) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> angle(0.0f, 6.2831853f);
    VRKDrawing drawing;
    drawing.PenIndex({});
    for (std::int64_t i = 0; i < count; ++i) {
        const float a = angle(random);
        const VRKDrawingPoint xy[2] = {
            {420.0f + 300.0f * std::cos(a), 600.0f + 300.0f * std::sin(a)}, {420.0f, 600.0f}};
        drawing.AddPath(0, xy, nullptr, 2);
    }
    return drawing;
}

void order(benchmark::State& state, const VRKDrawing& original, std::uint32_t window) {
    VRKDrawingOrder::Options options;
    options.window = window;
    double after = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        VRKDrawing drawing = original;
        state.ResumeTiming();
        VRKDrawingOrder::Apply(drawing, options);
        state.PauseTiming();
        after = VRKDrawingStats::Measure(drawing).penUp;
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["penUpBefore_m"] = VRKDrawingStats::Measure(original).penUp / 1000.0;
    state.counters["penUpAfter_m"] = after / 1000.0;
}

void BM_DrawingOrder(benchmark::State& state) {
    order(state, randomStrokes(state.range(0)), VRKDrawingOrder::Options{}.window);
}
void BM_DrawingOrderGreedyOnly(benchmark::State& state) {
    order(state, randomStrokes(state.range(0)), 0);
}
void BM_DrawingOrderStar(benchmark::State& state) {
    order(state, star(state.range(0)), VRKDrawingOrder::Options{}.window);
}
BENCHMARK(BM_DrawingOrder)
    ->RangeMultiplier(10)
    ->Range(10000, 1000000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);
BENCHMARK(BM_DrawingOrderGreedyOnly)
    ->RangeMultiplier(10)
    ->Range(10000, 1000000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);
BENCHMARK(BM_DrawingOrderStar)
    ->RangeMultiplier(10)
    ->Range(10000, 1000000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);

}  // namespace

BENCHMARK_MAIN();
