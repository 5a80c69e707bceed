#include "data/numbering.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

TEST(Numbering, NextBillCodeCountsTheDayOfTheClock)
{
    TestProgram test;
    const auto next = [&] { return NextBillCode(test.program, "TDD", "TabSamePriceMove"); };
    EXPECT_EQ(next(), "TDD202302080001");
    test.Insert("TabSamePriceMove", {{"Code", "TDD202302070042"}});
    EXPECT_EQ(next(), "TDD202302080001");
    test.Insert("TabSamePriceMove", {{"Code", "TDD202302080041"}});
    EXPECT_EQ(next(), "TDD202302080042");
    test.Insert("TabSamePriceMove", {{"Code", "TDD202302089999"}});
    EXPECT_EQ(next(), "TDD2023020810000");
    // The greatest text stays the one that ends in 9999.
    test.Insert("TabSamePriceMove", {{"Code", "TDD2023020810000"}});
    EXPECT_EQ(next(), "TDD2023020810000");
    test.clock.now.day = QDate(2023, 12, 1);
    EXPECT_EQ(next(), "TDD202312010001");
}

TEST(Numbering, NextVoucherNumberLooksAtOneBookAndPeriod)
{
    TestProgram test;
    const auto voucher = [&](const char* code, QDate day, int number, int inBook) {
        test.Insert("TabWarrant", {{"Code", code}, {"Datee", day}, {"WarrantNum2", number}, {"AccountBook2", inBook}});
    };
    const auto next = [&](int book) {
        return NextVoucherNumber(test.program, QDate(2023, 2, 1), QDate(2023, 2, 28), book);
    };
    voucher("1", QDate(2023, 1, 31), 50, 1);
    EXPECT_EQ(next(2), 1);
    voucher("2", QDate(2023, 2, 1), 3, 1);
    voucher("3", QDate(2023, 2, 28), 7, 1);
    voucher("4", QDate(2023, 2, 10), 60, 0);
    EXPECT_EQ(next(2), 8);
    EXPECT_EQ(next(1), 1);
}
