#pragma once

// Large account sets for benchmarks: three years of trade with a close at the end of the first two, skewed as real
// trade is, a few goods making most of the lines.

#include <QString>

struct GenerateQuestion
{
    qint64 lines = 0;
    int goods = 0;
    quint64 seed = 1;
};

/// Makes a new account set. Throws Refusal where the file exists.
void GenerateAccountSet(const QString& path, const GenerateQuestion& question);
