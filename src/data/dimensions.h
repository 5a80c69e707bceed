#pragma once

// The accounting dimensions that stock of one good can be told apart by, and their one condition in a statement.

#include "database/sql.h"

/// An empty value (blanks only) limits nothing.
struct Dimensions
{
    QString AttributeCode = {};
    QString WareSpec = {};
    QString Manufacturer = {};
    QString Brand = {};
    QString PCode = {};

    bool any() const;
};

/// The pseudo-currency that stands for all currencies at their rates.
inline const QString kAllCurrencies = QStringLiteral("综合本位币");

/// Condition on the dimensions, the audit mark and the currency; empty, or begun with "  and  ".
/// @param table  that holds the columns; empty ("") in a statement over one table
/// @param attributeByPrefix  child attributes count as well
/// @param moneyName  empty and kAllCurrencies limit nothing
Sql BuildDimensionFilter(const char* table, const Dimensions& dimensions, bool attributeByPrefix, bool auditedOnly,
                         const QString& moneyName);
