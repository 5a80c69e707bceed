#include "books.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

/// A copy of the demonstration account set that bills are posted into.
struct PostTest : testing::Test
{
    Outcome Post(const QByteArray& bill)
    {
        QFile json(folder.filePath("bill.json"));
        EXPECT_TRUE(json.open(QIODevice::WriteOnly));
        json.write(bill);
        json.close();
        const Outcome outcome = RunAcctset({"post", file, json.fileName()});
        answer = QJsonDocument::fromJson(outcome.out.toUtf8()).object();
        return outcome;
    }

    /// The bill of the last answer as it is stored.
    QJsonDocument Shown(const QString& bill) const
    {
        return QJsonDocument::fromJson(RunAcctset({"show", file, bill, answer["code"].toString()}).out.toUtf8());
    }

    QStringList Boxes() const
    {
        QStringList texts;
        for (const QJsonValue box : answer["boxes"].toArray())
            texts << box["text"].toString();
        return texts;
    }

    QTemporaryDir folder;
    QString file = OwnDemo(folder);
    QJsonObject answer;
};

TEST_F(PostTest, ABillIsSavedShownAndRewritten)
{
    const QByteArray head = R"("bill":"盘点报溢单","date":"2023-12-31","fields":{"TxtWarehouseNameS":"主仓"})";
    Outcome outcome = Post("{" + head + R"(,"lines":[{"商品编号":"010101001","数量":"5","单位":"支"}]})");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error.toStdString();
    EXPECT_TRUE(answer["saved"].toBool());
    EXPECT_EQ(Boxes(), QStringList("保存成功！"));
    const QString code = answer["code"].toString();

    outcome = RunAcctset({"show", file, "盘点报溢单", code});
    EXPECT_TRUE(outcome.out.startsWith("{\"head\":{\"Code\":\"" + code + "\",\"Datee\":\"2023-12-31\",\"Operator\":"));
    const QJsonObject line = QJsonDocument::fromJson(outcome.out.toUtf8())["lines"][0].toObject();
    EXPECT_EQ(line["Amount"], 5);
    EXPECT_EQ(line["Unite"], "支");

    const QByteArray again = R"({"bill":"盘点报溢单","code":")" + code.toUtf8() + R"(","lines":[])";
    EXPECT_EQ(Post(again + "}").exitCode, 1);
    EXPECT_EQ(Boxes().value(1), "修改单据失败！");
    EXPECT_EQ(Post(again + R"(,"answers":["是"]})").exitCode, 0);
    outcome = RunAcctset({"show", file, "盘点报溢单", code});
    EXPECT_TRUE(outcome.out.trimmed().endsWith("\"lines\":[]}"));
    EXPECT_EQ(RunAcctset({"show", file, "盘点报溢单", "none"}).exitCode, 1);
}

TEST_F(PostTest, AssembliesTakeTheirProductAndShowTheirVoucher)
{
    const QByteArray head = R"("date":"2023-12-31","fields":{"TxtWarehouseNameF":"主仓","TxtWarehouseNameS":"主仓",
                               "TxtWareCode":"010501001","TxtAmount":"2","TxtFee":"10")";
    const QByteArray part = R"("商品编号":"010101001","数量":"4","成本价":"5")";
    Outcome outcome = Post(R"({"bill":"商品组装单",)" + head + R"(},"lines":[{)" + part + "}]}");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error.toStdString();
    EXPECT_EQ(Boxes(), QStringList("保存成功！"));
    const QJsonDocument shown = Shown("商品组装单");
    EXPECT_EQ(shown["head"]["SumMoney"], 30);
    EXPECT_EQ(shown["head"]["Cost"], 15);
    EXPECT_EQ(shown["lines"][0]["Moneyy"], 20);
    EXPECT_EQ(shown["voucher"]["head"]["SumDebtor"], 40);
    EXPECT_EQ(shown["voucher"]["rows"][0]["Debtor"], 30);
    EXPECT_EQ(shown["voucher"]["rows"][2]["AccountantCode"], "1001");

    // A recipe for one piece; books kept elsewhere.
    outcome = Post(R"({"bill":"商品拆卸单","jxc":true,)" + head + R"(,"TxtCost":"15","ChAutoChen":false},"lines":[{)" +
                   part + "}]}");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(Boxes(), QStringList("成本分配不正确，请重新分配！(即合计金额加拆卸费用不等于拆卸商品金额合计！)"));
    outcome = Post(R"({"bill":"商品拆卸单","jxc":true,)" + head +
                   R"(,"TxtCost":"15"},"lines":[{"商品编号":"010101001","数量":"4","成本价":"10"}]})");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(Shown("商品拆卸单")["voucher"].isNull());
    EXPECT_EQ(Post(R"({"bill":"商品组装单",)" + head + R"(,"ChAutoChen":true},"lines":[{)" + part + "}]}").exitCode, 0);
    EXPECT_EQ(Shown("商品组装单")["lines"][0]["Amount"], 8);
}

TEST_F(PostTest, RefusalsExitWithOneAndWrongUseWithTwo)
{
    const struct
    {
        const char* bill;
        int exitCode;
        const char* box;
    } cases[] = {
        {R"({"bill":"盘点报溢单","date":"2023-05-01"})", 1, "今天已结转，禁止当前操作！"},
        {R"({"bill":"盘点报溢单","date":"2023-12-31"})", 1, "报溢仓库不能为空！"},
        {R"({"bill":"盘点报溢单","code":"none"})", 1, "没有原单！"},
        {R"({"bill":"盘点报溢单","operator":"无名"})", 1, "没有操作权限！"},
        {R"({"bill":"盘点报溢单","fields":{"TxtNone":""}})", 2, ""},
        {R"({"bill":"盘点报溢单","fields":{"TxtBillCode":""}})", 2, ""},
        {R"({"bill":"盘点报溢单","lines":[{"单价":1}]})", 2, ""},
        {R"({"bill":"盘点报溢单","lines":{}})", 2, ""},
        {R"({"bill":"盘点报溢单","answers":["yes"]})", 2, ""},
        {R"({"bill":"盘点报溢单","date":"2023-02-30"})", 2, ""},
        {R"({"bill":"商品组装单"})", 1, "发出仓库不能为空！"},
        {R"({"bill":"商品组装单","fields":{"TxtTotalMoney":"1"}})", 2, ""},
        {R"({"bill":"盘点报溢单","fields":{"TxtAmount":"1"}})", 2, ""},
        {R"({"bill":)", 2, ""},
    };
    for (const auto& c : cases) {
        const Outcome outcome = Post(c.bill);
        EXPECT_EQ(outcome.exitCode, c.exitCode) << c.bill;
        EXPECT_EQ(Boxes().value(0), c.box) << c.bill;
        EXPECT_EQ(outcome.error.isEmpty(), c.exitCode == 1) << outcome.error.toStdString();
    }
}

TEST_F(PostTest, WhatABillCannotHoldEndsThePost)
{
    const std::pair<QByteArray, QString> cases[] = {
        {R"("fields":{"TxtSaleMan":")" + QByteArray(256, 'x') + "\"}", "业务员 超过 255 个字，请修改后再保存！"},
        {R"("lines":[{"商品编号":"010101001","数量":1e20}])", "第 1 行 数量 超出系统所能保存的范围，请修改后再保存！"},
        {R"("lines":[{"商品编号":"010101001","唯一码":")" + QByteArray(51, 'x') + "\"}]",
         "第 1 行 唯一码 超过 50 个字，请修改后再保存！"},
    };
    for (const auto& [part, box] : cases) {
        EXPECT_EQ(Post(R"({"bill":"盘点报溢单","date":"2023-12-31",)" + part + "}").exitCode, 1);
        EXPECT_EQ(Boxes(), QStringList(box));
    }
    Post(R"({"bill":"盘点报溢单","date":"2023-12-31","fields":{"TxtWarehouseNameS":"主仓","TxtMemo":"a\u0000b\ud800"},)"
         R"("lines":[{"商品编号":"010101001","备注":")" +
         QByteArray(5000, 'x') + R"("}]})");
    EXPECT_EQ(Boxes(), QStringList("保存成功！"));
    EXPECT_EQ(Shown("盘点报溢单")["head"]["Remark"].toString(), QString("a\ufffdb\ufffd"));
    EXPECT_EQ(Shown("盘点报溢单")["lines"][0]["Remark"].toString().size(), 5000);
}

} // namespace
