#pragma once

// How a command ends.

#include <QString>

constexpr int kDone = 0;
constexpr int kRefused = 1;
constexpr int kWrongUse = 2;

/// Thrown by a command that cannot do what it was asked; ends the program with its text and kRefused.
struct Refusal
{
    QString text;
};

/// Thrown where the words of the command line make no sense; ends the program with its text and kWrongUse.
struct WrongUse
{
    QString text;
};
