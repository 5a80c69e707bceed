#pragma once

// The account set that the figures are taken on: a million bill lines of three years, two of them closed, over twenty
// thousand goods. It is made once and never written to; what writes works on a copy.

#include "commands.h"

#include <vector>

/// The last day of trade in the set, and the day that the programs on it take for today.
inline const QDate kToday(2025, 12, 31);

/// File of the set: where WAREHOUSE_BENCH_SET says, otherwise in the build folder. Made where it is missing.
QString BenchSet();
/// A fresh copy of the set beside it; a copy of that name is replaced.
QString CopyOfBenchSet(const QString& name);

struct BenchGood
{
    QString code;
    QString warehouse; // where most of its sales leave from
};

/// Goods with stock accounting that were sold since the last close, the best sold first.
const std::vector<BenchGood>& GoodsByTrade();
/// Some goods around the middle of that list.
std::vector<BenchGood> MedianGoods();

/// The time of day is the machine's, the day the set's last.
class LastDayClock : public Clock
{
public:
    Moment Now() override;
};

/// A program on an account set, signed in as the operator who may do everything.
struct BenchProgram
{
    explicit BenchProgram(const QString& path);

    RecordingPrompt prompt;
    LastDayClock clock;
    Program program;
};

/// Takes a saved bill back: the next one saved finds no more rows of its goods than it did.
void RemoveBill(Program& program, const QString& headTable, const QString& code);
