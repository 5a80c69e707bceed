#include "database/sql.h"
#include "database/sqlite_store.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// Texts of goods, and what another program or an import may have left in the place of one.
const std::vector<Value> kTexts = {
    {},
    QString(),
    QString("%"),
    QString("_"),
    QString("a"),
    QString("A"),
    QString("@"),
    QString("`"),
    QString("[z{Z"),
    QString("qxzw"),
    QString("0101QXZW"),
    QString("qxz qxzqxzW qx"),
    QString("12345678qxzw"),
    QString("1234567qxz8QXzW9"),
    QString("1234567890123456789012345678901234567890qxzw"),
    QString("商品"),
    QString("红色商品 Pin"),
    QString("商商品pIN商品PIN"),
    QString("晶品日 晶 品"),
    QString("É é ß ẞ K k"),
    QString("50%_纯棉"),
    QString("a") + QChar(0) + "qxzw",
    QString(300, 'q') + "xzw",
    qint64(12050),
    -3.5,
    1e20,
    QByteArray("qxzw"),
};

const std::vector<Value> kPatterns = {
    {},
    QString(),
    QString("%"),
    QString("%%"),
    QString("%%%"),
    QString("%_%"),
    QString("_"),
    QString("%a%"),
    QString("%A%"),
    QString("%@%"),
    QString("%`%"),
    QString("%z%"),
    QString("%[z%"),
    QString("%{Z%"),
    QString("%qxzw%"),
    QString("%QxZw%"),
    QString("%qxzw"),
    QString("qxzw%"),
    QString("%q_zw%"),
    QString("%q%w%"),
    QString("%商%"),
    QString("%商品%"),
    QString("%品pin%"),
    QString("%é%"),
    QString("%k%"),
    QString("%%纯%"),
    QString("%05%"),
    QString("%.%"),
    QString("%") + QString(40, 'Q') + "X%",
    QString("%a") + QChar(0) + "qxzw%",
    qint64(12050),
    QByteArray("%qxzw%"),
};

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
