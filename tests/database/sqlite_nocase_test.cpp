#include "database/sqlite_nocase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace {

struct Database
{
    Database() { sqlite3_open(":memory:", &handle); }
    ~Database() { sqlite3_close(handle); }
    int Compare(const std::string& left, const std::string& right) const
    {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(handle, "select (?1 > ?2 collate nocase)-(?1 < ?2 collate nocase)", -1, &statement, nullptr);
        sqlite3_bind_text(statement, 1, left.c_str(), -1, SQLITE_STATIC);
        sqlite3_bind_text(statement, 2, right.c_str(), -1, SQLITE_STATIC);
        sqlite3_step(statement);
        const int order = sqlite3_column_int(statement, 0);
        sqlite3_finalize(statement);
        return order;
    }

    sqlite3* handle = nullptr;
};

} // namespace

// Files that another program has indexed by SQLite's own collation must be read in the same order.
TEST(SqliteNoCase, OrdersAsSqliteDoes)
{
    const Database own;
    const Database ours;
    RegisterNoCase(ours.handle);
    std::vector<std::string> texts = {"", "a", "A", "_", "[", "Z", "z", "商品", "商Pin", "商pin"};
    for (const char* const start : {"", "TDD2023", "tdd20230", "TDD20230208", "tDd2023020800012023"}) {
        for (const char* const end : {"0001", "0002", "00010", "0001A", "0001a", "0001B", "0001_", "0001b商"})
            texts.push_back(std::string(start) + end);
    }
    for (const std::string& left : texts) {
        for (const std::string& right : texts)
            EXPECT_EQ(ours.Compare(left, right), own.Compare(left, right)) << left << " " << right;
    }
}
