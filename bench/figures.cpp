#include "figures.h"

#include "commands.h"

#include <cstdio>
#include <iostream>
#include <map>
#include <string>

namespace {

constexpr int kRepetitions = 7;
constexpr const char* kFloor = " (floor)";

/// Keeps the medians, in milliseconds, and shows the library's own report on standard error.
class MedianReporter : public benchmark::ConsoleReporter
{
public:
    MedianReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.error_occurred)
                failed = true;
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name] = run.GetAdjustedRealTime() / 1e6;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> medians;
    bool failed = false;
};

std::string TimeText(double milliseconds)
{
    const bool micro = milliseconds < 1;
    char text[32];
    const double shown = micro ? milliseconds * 1000 : milliseconds;
    std::snprintf(text, sizeof text, shown < 100 ? "%.1f %s" : "%.0f %s", shown, micro ? "µs" : "ms");
    return text;
}

std::string TargetText(const Figure& figure)
{
    if (!figure.inFloors)
        return "at most " + TimeText(figure.target);
    return "at most " + QString::number(figure.target).toStdString() + " floors";
}

/// False where the target is missed.
bool PrintRow(const Figure& figure, double work, double floor)
{
    const bool met = (figure.inFloors ? work / floor : work) <= figure.target;
    std::printf("| %s | %.1f | %s | %s | %s | %s |\n", figure.name, work / floor, TimeText(work).c_str(),
                TimeText(floor).c_str(), TargetText(figure).c_str(), met ? "met" : "**missed**");
    return met;
}

/// The same of a figure without a floor.
bool PrintRow(const Figure& figure, double work)
{
    const bool met = work <= figure.target;
    std::printf("| %s | – | %s | – | %s | %s |\n", figure.name, TimeText(work).c_str(), TargetText(figure).c_str(),
                met ? "met" : "**missed**");
    return met;
}

void Register(const std::string& name, const std::function<void(benchmark::State&)>& work)
{
    benchmark::RegisterBenchmark(name.c_str(), work)->UseRealTime()->Repetitions(kRepetitions)->ReportAggregatesOnly();
}

int Measure(const std::vector<Figure>& figures, int argc, char** argv)
{
    // By turns: what else the machine does meanwhile falls on a figure and on its floor alike.
    std::string turns = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> options(argv, argv + argc);
    options.insert(options.begin() + 1, turns.data());
    int count = int(options.size());
    benchmark::Initialize(&count, options.data());
    if (benchmark::ReportUnrecognizedArguments(count, options.data()))
        return 2;

    for (const Figure& figure : figures) {
        Register(figure.name, figure.work);
        if (figure.floor)
            Register(std::string(figure.name) + kFloor, figure.floor);
    }
    MedianReporter reporter;
    reporter.SetOutputStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::printf("| Figure | Ratio | Measured | Floor | Target | |\n|---|---:|---:|---:|---|---|\n");
    bool allMet = !reporter.failed;
    for (const Figure& figure : figures) {
        const auto work = reporter.medians.find(figure.name);
        const auto floor = reporter.medians.find(std::string(figure.name) + kFloor);
        if (work != reporter.medians.end())
            allMet &= figure.floor ? PrintRow(figure, work->second, floor->second) : PrintRow(figure, work->second);
    }
    return allMet ? 0 : 1;
}

} // namespace

int MeasureFigures(std::vector<Figure> (*makeFigures)(), int argc, char** argv)
{
    try {
        return Measure(makeFigures(), argc, argv);
    } catch (const StoreError& error) {
        PrintErrorLine(error.description);
    } catch (const Refusal& refusal) {
        PrintErrorLine(refusal.text);
    }
    return 1;
}
