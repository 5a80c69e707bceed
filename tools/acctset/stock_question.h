#pragma once

// The options of a question about the stock or cost of one good, and the question that they make.

#include "commands.h"
#include "stock/balance.h"

using Options = std::vector<CommandLine::Option>;

/// What every question can be narrowed by.
const Options& DimensionOptions();
Options With(Options options, const Options& more);
Dimensions DimensionsOf(const CommandLine& line);
/// The moment asked for; otherwise the working date's last one.
Moment AsOf(const CommandLine& line, const char* option, const OpenedAccountSet& set);
/// Throws Refusal for an unknown good.
void CheckGood(Program& program, const QString& wareCode);

/// Good, warehouse, day and dimensions.
Options StockOptions();
/// What the words alone tell. Throws WrongUse.
StockQuestion StockQuestionOf(const CommandLine& line);
/// What the account set tells: its working date, whether it has the good, which bills count. Throws Refusal.
void FinishQuestion(StockQuestion& question, const CommandLine& line, OpenedAccountSet& set);
