#pragma once

// The options of a question about the stock or cost of one good, and the question that they make.

#include "commands.h"
#include "stock/balance.h"

#include <functional>

using Options = std::vector<CommandLine::Option>;

/// What every question can be narrowed by.
const Options& DimensionOptions();
Options With(Options options, const Options& more);
Dimensions DimensionsOf(const CommandLine& line);
/// The moment asked for; otherwise the working date's last one.
Moment AsOf(const CommandLine& line, const char* option, const OpenedAccountSet& set);
/// Throws Refusal for an unknown good.
void CheckGood(Program& program, const QString& wareCode);

using StockAnswer =
    std::function<void(OpenedAccountSet& set, const StockQuestion& question, const TogatherData& stock)>;

/// A command that asks for the stock of a good, narrowed by warehouse, day and dimensions: reads the question, puts it
/// to the engine and hands both on. Throws WrongUse or Refusal.
int AskForStock(const QString& command, const QString& help, const QStringList& arguments, const StockAnswer& answer);
