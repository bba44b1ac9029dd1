// Micro-benchmarks of the generator's and the job player's hot paths. Run
// build/bin/vrk_micro_bench; the whole-program comparison is bench/run-benchmarks.py.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "bench/BenchGenerator.h"
#include "bench/RasterPattern.h"
#include "generator/DeltaRowCompression.h"
#include "generator/HPGL2Encoding.h"
#include "host/core/VRKPixelImage.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/job/VRKJobLexer.h"
#include "host/job/VRKJobNumber.h"
#include "host/job/VRKJobPlayer.h"

namespace {

// Coordinates of a random walk on the A0 form, millimetres, as the lines workload draws them.
std::vector<float> randomWalk(std::size_t points) {
    std::mt19937 random(20250101);
    std::uniform_real_distribution<float> step(-5.0f, 5.0f);
    std::vector<float> xy;
    xy.reserve(2 * points);
    float x = 400.0f, y = 600.0f;
    for (std::size_t i = 0; i < points; ++i) {
        x = std::fabs(x + step(random));
        y = std::fabs(y + step(random));
        xy.push_back(x);
        xy.push_back(y);
    }
    return xy;
}

// A convex 12-gon of radius 10 mm around (100, 100).
std::vector<float> twelveGon() {
    std::vector<float> xy;
    for (int i = 0; i < 12; ++i) {
        const double a = 2.0 * std::numbers::pi * i / 12.0 + 0.1;
        xy.push_back(static_cast<float>(100.0 + 10.0 * std::cos(a)));
        xy.push_back(static_cast<float>(100.0 + 10.0 * std::sin(a)));
    }
    return xy;
}

void BM_EncodeNumber(benchmark::State& state) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> delta(-400, 400);
    std::vector<int> values(4096);
    for (int& v : values) {
        v = delta(random);
    }
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(encodeNumber(values[i++ & 4095]));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_EncodeNumber);

// One public LineTo call in the middle of an open Polyline Encoded run: the host's noexcept
// call, the hook, the conversion to plotter units, two encoded numbers into the stream.
void BM_LineToInEncodedRun(benchmark::State& state) {
    BenchGenerator g;
    g.Begin(A0Parameters());
    g.MoveTo(400.0f, 600.0f);
    const std::vector<float> xy = randomWalk(4096);
    std::size_t i = 0;
    for (auto _ : state) {
        const std::size_t k = 2 * (i++ & 4095);
        g.LineTo(xy[k], xy[k + 1]);
    }
    benchmark::DoNotOptimize(g.stream.BytesWritten());
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_LineToInEncodedRun);

// A coordinate in the fixed notation with two decimals, as the plotter gets arcs and circles.
void BM_WriteFloatFixed2(benchmark::State& state) {
    CountingStream s;
    s.SetFixed(2);
    const std::vector<float> xy = randomWalk(4096);
    std::size_t i = 0;
    for (auto _ : state) {
        s.WriteFloat(xy[i++ & 8191] * 40.0);
    }
    benchmark::DoNotOptimize(s.BytesWritten());
}
BENCHMARK(BM_WriteFloatFixed2);

// A full circle, which the plotter draws itself (AA around its centre).
void BM_DrawArcCircleFull(benchmark::State& state) {
    BenchGenerator g;
    g.Begin(A0Parameters());
    g.SetDrawWidth(0.35f);
    const std::vector<float> xy = randomWalk(4096);
    std::size_t i = 0;
    for (auto _ : state) {
        const std::size_t k = 2 * (i++ & 4095);
        g.DrawArcCircle(xy[k], xy[k + 1], 5.0f, 0.0f, 6.2831855f, 0);
    }
    benchmark::DoNotOptimize(g.stream.BytesWritten());
}
BENCHMARK(BM_DrawArcCircleFull);

// The start of a job: reset, set-up instructions and page size.
void BM_Begin(benchmark::State& state) {
    BenchGenerator g;
    const VRKPrintParameters params = A0Parameters();
    for (auto _ : state) {
        g.Begin(params);
    }
    benchmark::DoNotOptimize(g.stream.BytesWritten());
}
BENCHMARK(BM_Begin);

// Fills the 12-gon again and again on a generator set up by the caller.
void fillTwelveGon(benchmark::State& state, BenchGenerator& g) {
    const std::vector<float> xy = twelveGon();
    const int count = 12;
    for (auto _ : state) {
        g.FillArea(1, &count, xy.data());
    }
    benchmark::DoNotOptimize(g.stream.BytesWritten());
}

// A polygon-mode fill of a 12-gon in another pen than the drawing pen.
void BM_FillArea12GonPolygonMode(benchmark::State& state) {
    BenchGenerator g;
    g.Begin(A0Parameters());
    g.DefineColor(1, 0, 0, 0);
    g.DefineColor(2, 1, 0, 0);
    g.SelectDrawColor(1);
    g.SelectFillColor(2);
    fillTwelveGon(state, g);
}
BENCHMARK(BM_FillArea12GonPolygonMode);

// The HP-GL dialect's scan-line hatch of the same 12-gon with a 0.35 mm pen.
void BM_FillArea12GonHatch(benchmark::State& state) {
    BenchGenerator g;
    g.UseHPGL();
    g.Begin(A0Parameters());
    g.DefineColor(2, 1, 0, 0);
    g.SetDrawWidth(0.35f);
    g.SelectDrawColor(2);
    fillTwelveGon(state, g);
}
BENCHMARK(BM_FillArea12GonHatch);

// The HP-GL pen choice when a colour table file maps colours to pens: eight colours, four of
// them in the table.
void BM_SelectPenForColorWithTable(benchmark::State& state) {
    char pattern[] = "/tmp/vrk-bench-XXXXXX";
    const std::string folder = ::mkdtemp(pattern);
    std::ofstream(folder + "/ColorTable") << "255 0 0 3\n0 255 0 5\n0 0 255 6\n255 255 0 4\n"
                                             "128 128 128 7\n0 0 0 1\n";
    ::setenv("TMPDIR", folder.c_str(), 1);
    ::setenv("HPGL2_COLOR_TABLE", "1", 1);
    {
        BenchGenerator g;
        g.UseHPGL();
        g.Begin(A0Parameters());
        const float colours[8][3] = {{1, 0, 0},       {0, 1, 0},         {0, 0, 1},
                                     {1, 1, 0},       {0, 0, 0},         {0.5f, 0, 0.5f},
                                     {0, 0.6f, 0.6f}, {0.3f, 0.3f, 0.3f}};
        for (int i = 0; i < 8; ++i) {
            g.DefineColor(i + 1, colours[i][0], colours[i][1], colours[i][2]);
        }
        int strokes = 0;
        float spacing = 0.0f;
        int i = 0;
        for (auto _ : state) {
            benchmark::DoNotOptimize(
                g.hpgl.SelectPenForColor(i++ % 8 + 1, 0.35f, strokes, spacing));
        }
        g.End();
    }
    ::unsetenv("HPGL2_COLOR_TABLE");
    ::unsetenv("TMPDIR");
    std::filesystem::remove_all(folder);
}
BENCHMARK(BM_SelectPenForColorWithTable);

// The delta-row compressor on a row of 10,000 RGB pixels against its seed row: a row that
// differs from the seed in one byte of a hundred, and a row unlike its seed.
void deltaRow(benchmark::State& state, bool similar) {
    const std::size_t bytes = 3 * 10000;
    std::mt19937 random(11);
    std::vector<unsigned char> seed(bytes), row(bytes), out(2 * bytes + 128);
    for (unsigned char& b : seed) {
        b = static_cast<unsigned char>(random());
    }
    row = seed;
    for (std::size_t i = 0; i < bytes; ++i) {
        if (!similar || random() % 100 == 0) {
            row[i] = static_cast<unsigned char>(row[i] ^ (1 + random() % 255));
        }
    }
    for (auto _ : state) {
        std::size_t length = bytes;
        benchmark::DoNotOptimize(compressDeltaRow(row.data(), out.data(), seed.data(), length, 3));
        benchmark::DoNotOptimize(length);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}
void BM_DeltaRowSimilar(benchmark::State& state) {
    deltaRow(state, true);
}
void BM_DeltaRowDissimilar(benchmark::State& state) {
    deltaRow(state, false);
}
BENCHMARK(BM_DeltaRowSimilar);
BENCHMARK(BM_DeltaRowDissimilar);

// RGB pixels through the HP-GL/2 raster writer: an image of 10,000 by 700 pixels of the raster
// workload's pattern, mirrored, delta-row compressed where that pays, written to the stream.
// Bytes per second are bytes of RGB input.
void BM_RasterRgb(benchmark::State& state) {
    const int width = 10000, height = 700;
    VRKPixelImage* image = VRKPixelImage::Create(width, height, VRKPixelImage::kRGB8, 0.08f, 0.08f);
    for (int y = 0; y < height; ++y) {
        rasterPatternRow(y, width, image->GetRow(y));
    }
    BenchGenerator g;
    g.Begin(A0Parameters());
    for (auto _ : state) {
        g.DrawBitmap(10.0f, 10.0f, 0, image);
    }
    image->Release();
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * width * height * 3);
}
BENCHMARK(BM_RasterRgb)->Unit(benchmark::kMillisecond);

// ---- Job files ------------------------------------------------------------------------------

void BM_JobLexerSplit(benchmark::State& state) {
    VRKJobLexer lexer;
    std::string error;
    const std::string line = "LineTo 412.345 617.891";
    for (auto _ : state) {
        benchmark::DoNotOptimize(lexer.Split(line, error));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * line.size()));
}
BENCHMARK(BM_JobLexerSplit);

void BM_JobNumberParseFloat(benchmark::State& state) {
    const char* const texts[4] = {"412.345", "-0.0249", "617.891", "6.283185307179586"};
    float value = 0.0f;
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(VRKJobNumber::ParseFloat(texts[i++ & 3], value));
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(BM_JobNumberParseFloat);

// A job of polylines as the lines workload writes them.
std::string polylineJob(std::size_t points) {
    const std::vector<float> xy = randomWalk(points);
    std::string job = "Begin width=841 height=1189 orientation=1\nDefineColor 1 0 0 0\n";
    char line[64];
    for (std::size_t i = 0; i < points; ++i) {
        if (i % 100 == 0) {
            job += "SelectDrawColor 1\n";
        }
        std::snprintf(line, sizeof line, "%s %.3f %.3f\n", i % 100 == 0 ? "MoveTo" : "LineTo",
                      xy[2 * i], xy[2 * i + 1]);
        job += line;
    }
    job += "End\n";
    return job;
}

// The job played from memory into a generator whose output is counted and dropped: the job
// reader, the lexer, the numbers and the calls.
void BM_JobPlayerLines(benchmark::State& state) {
    const std::size_t points = 100000;
    const std::string job = polylineJob(points);
    for (auto _ : state) {
        BenchGenerator g;
        VRKJobPlayer player(g);
        std::istringstream in(job);
        if (!player.Play(in, "bench", "")) {
            state.SkipWithError(player.GetError().ToString().c_str());
            break;
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * job.size()));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * points));
}
BENCHMARK(BM_JobPlayerLines)->Unit(benchmark::kMillisecond);

// The same job into the host's base generator, whose hooks do nothing: the job reader alone.
void BM_JobPlayerLinesReaderOnly(benchmark::State& state) {
    const std::size_t points = 100000;
    const std::string job = polylineJob(points);
    for (auto _ : state) {
        VRKPrintGenerator g("None");
        VRKJobPlayer player(g);
        std::istringstream in(job);
        if (!player.Play(in, "bench", "")) {
            state.SkipWithError(player.GetError().ToString().c_str());
            break;
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * job.size()));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * points));
}
BENCHMARK(BM_JobPlayerLinesReaderOnly)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
