#include "database/sql.h"
#include "database/sqlite_store.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

std::vector<Value> Values(const QString& texts, std::vector<Value> others)
{
    for (const QString& text : texts.split('|'))
        others.emplace_back(text);
    return others;
}

/// Texts of goods, and what another program or an import may have left in the place of one.
const std::vector<Value> kTexts = Values(
    "|%|_|a|A|@|`|[z{Z|qxzw|0101QXZW|qxz qxzqxzW qx|12345678qxzw|1234567qxz8QXzW9|"
    "1234567890123456789012345678901234567890qxzw|商品|红色商品 Pin|商商品pIN商品PIN|晶品日 晶 品|É é ß ẞ K k|50%_纯棉",
    {{}, QString("a") + QChar(0) + "qxzw", QString(300, 'q') + "xzw", qint64(12050), -3.5, 1e20, QByteArray("qxzw")});

const std::vector<Value> kPatterns = Values(
    "|%|%%|%%%|%_%|_|%a%|%A%|%@%|%`%|%z%|%[z%|%{Z%|%qxzw%|%QxZw%|%qxzw|qxzw%|%q_zw%|%q%w%|%商%|%商品%|%品pin%|%é%|%k%|"
    "%%纯%|%05%|%.%",
    {{}, "%" + QString(40, 'Q') + "X%", QString("%a") + QChar(0) + "qxzw%", qint64(12050), QByteArray("%qxzw%")});

class SqliteLike : public testing::Test
{
protected:
    std::string Ask(const Sql& sql)
    {
        const Value value = m_store->Run(sql).at(0, 0);
        return IsNull(value) ? "null" : TextOf(value).toStdString();
    }

    QTemporaryDir m_folder;
    std::unique_ptr<Store> m_store = CreateSqliteFile(m_folder.filePath("like.db"));
};

} // namespace

TEST_F(SqliteLike, AgreesWithSqlitesOwn)
{
    for (const Value& pattern : kPatterns) {
        for (const Value& text : kTexts)
            EXPECT_EQ(Ask(Sql("select any_like(") + text + "," + pattern + ")"),
                      Ask(Sql("select ") + text + " like " + pattern))
                << TextOf(text).toStdString() << " like " << TextOf(pattern).toStdString();
    }
}

TEST_F(SqliteLike, AnyMatchesIsTrueAndNullLeavesItOpen)
{
    const Value values[] = {{}, QString("qxzw"), QString("other")};
    const QString pattern = "%qxzw%";
    for (const Value& left : values) {
        for (const Value& right : values)
            EXPECT_EQ(Ask(Sql("select any_like(") + left + "," + pattern + "," + right + "," + pattern + ")"),
                      Ask(Sql("select (") + left + " like " + pattern + ") or (" + right + " like " + pattern + ")"));
    }
}

TEST_F(SqliteLike, PatternsAreThoseOfTheRun)
{
    m_store->Run(Sql("create table T(a text, b text)"));
    m_store->Run(Sql("insert into T values('Apple','1'),('Pear','2'),('Plum','apple')"));
    const auto count = [this](const QString& first, const QString& second) {
        return m_store->Run(Sql("select a from T where a like ") + first + " or b like " + second).size();
    };
    EXPECT_EQ(count("%appl%", "%appl%"), 2);
    EXPECT_EQ(count("%appl%", "%2%"), 2);
    EXPECT_EQ(count("p%", "%2%"), 2);
    EXPECT_EQ(count("%qxzw%", "%qxzw%"), 0);
    EXPECT_EQ(count("%e%", "%e%"), 3);
}
