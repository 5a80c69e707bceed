#pragma once

// The table of figures: what was measured, its floor, and the target that it is held to.

#include <benchmark/benchmark.h>
#include <functional>
#include <optional>

struct Figure
{
    const char* name;
    double target;                                     // times the floor, or milliseconds
    bool inFloors;                                     // what the target counts in
    std::function<void(benchmark::State&)> work;       // measured
    std::function<void(benchmark::State&)> floor = {}; // none for what is held to a time alone
};

/// Measures all of them, work and floor by turns, and prints a Markdown table. Takes the options of the benchmark
/// library. 1 where a target is missed or the account set cannot be used, which has been said; 2 for wrong use.
int MeasureFigures(std::vector<Figure> (*makeFigures)(), int argc, char** argv);
