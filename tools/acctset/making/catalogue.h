#pragma once

// The catalogue as tables of data: classes, brands, and families of goods that differ only in their specification.

#include "making/cost_walk.h"

#include <vector>

/// How stock of a good is told apart.
enum class Trait
{
    Plain,
    Colour,
    Size,
    Batch,
    Service, // no stock at all
};

struct Brand
{
    const char* name;
    const char* mnemonic; // initials of the name
    const char* manufacturer;
};

/// Goods of one kind: one for each specification, each a step dearer than the one before.
struct Family
{
    const char* classCode;
    int brand; // in the brands
    const char* name;
    const char* mnemonic; // initials of the name
    const char* specs;    // between "|"
    const char* unit;
    const char* secondUnit;
    int relation; // second units in one unit
    double cost;
    CostMethod method = CostMethod::Moving;
    Trait trait = Trait::Plain;
};

struct TreeRow
{
    const char* code;
    const char* name;
};

const std::vector<Brand>& Brands();
const std::vector<Family>& Families();
/// The class tree, parents first; a code's parent is the code without its last two digits.
const std::vector<TreeRow>& GoodsClasses();
