#include "office_fixture.h"

#include <QFileInfo>

namespace {

using Rows = std::vector<QStringList>;

class Workbooks : public OfficeTest, public testing::WithParamInterface<const char*>
{};

class Saving : public OfficeTest
{};

std::string FormatName(const testing::TestParamInfo<const char*>& format)
{
    return format.param;
}

QString PdfText(const QString& path)
{
    return OutputOf("pdftotext", {"-layout", path, "-"});
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Formats, Workbooks, testing::Values("xls", "xlsx"), FormatName);

TEST_P(Workbooks, TextsOfEveryKindOfCell)
{
    const QString sample = MakeSample(QString("样本.") + GetParam());
    const Rows expected = {{"商品调拨单", "", "001", "", "", ""},
                           {"12.5", "6901234567892", "2023-02-08", "2023-02-08 09:05:12", "2023-02-09", "商品调拨单号"},
                           {"", "", "", "", "", ""},
                           {"1234.5", "甲", "", "", "", ""},
                           {"0.000012", "乙", "", "", "", ""},
                           {"1234.500012", "", "", "", "", ""}};
    EXPECT_EQ(ReadBlock(sample, 1, 1, 6, 6), expected);
    EXPECT_EQ(ReadBlock(sample, 2, 3, 1, 2), (Rows{{"2023-02-08", "2023-02-08 09:05:12"}}));
}

TEST_P(Workbooks, SheetsByPlaceAndByName)
{
    const QString sample = MakeSample(QString("sample.") + GetParam());
    const auto error = ErrorOf([&](SpreadsheetApplication& application) {
        const auto workbook = application.Open(sample);
        EXPECT_EQ(workbook->sheetNames(), QStringList({"Sheet1", "样式分类设置"}));
        EXPECT_TRUE(workbook->SheetNamed("sheet1"));
        EXPECT_FALSE(workbook->SheetNamed("sheet2"));
        EXPECT_EQ(workbook->SheetNamed("样式分类设置")->Read(1, 2, 1, 1), Rows{{"首列打印条形码"}});
        EXPECT_EQ(workbook->SheetAt(0)->usedRows(), 6) << "cells with nothing but a format hold nothing";
        EXPECT_EQ(application.Create()->SheetAt(0)->usedRows(), 0);
    });
    EXPECT_FALSE(error);
}

TEST_P(Workbooks, WrittenCellsComeBackAsTheyWere)
{
    const QString path = PathOf(QString("导出 100%.") + GetParam());
    SheetRows cells(3, std::vector<SheetCell>(40, QString("=1+1")));
    cells[1] = {QString("001"), QString("2023-02-08"), QString("'1"), 0.1 + 0.2, -1e-7, 123456789012345.0, 1e20};
    cells[2] = {QString(), QString("多行\n文字 <&>"), QString(" 前后 ")};
    const auto error = ErrorOf([&](SpreadsheetApplication& application) {
        const auto workbook = application.Create();
        workbook->SheetAt(0)->Write(1, 1, cells);
        workbook->SaveAs(path);
    });
    ASSERT_FALSE(error) << error->description.toStdString();

    const Rows block = ReadBlock(path, 1, 1, 4, 41);
    EXPECT_EQ(block[0], QStringList(40, "=1+1") + QStringList(""));
    EXPECT_EQ(block[1].first(7), QStringList({"001", "2023-02-08", "'1", "0.3", "-0.0000001", "123456789012345",
                                              "100000000000000000000"}));
    EXPECT_EQ(block[2].first(3), QStringList({"", "多行\n文字 <&>", " 前后 "}));
    EXPECT_EQ(block[3], QStringList(41, ""));
}

TEST_P(Workbooks, WritingTouchesOnlyItsCells)
{
    const QString sample = MakeSample(QString("sample.") + GetParam());
    const QString path = PathOf(QString("filled.") + GetParam());
    const auto error = ErrorOf([&](SpreadsheetApplication& application) {
        const auto workbook = application.Open(sample);
        const auto sheet = workbook->SheetAt(0);
        sheet->Write(2, 1, {{7.0}, {QString("新"), QString("行")}, {QString()}});
        sheet->Write(2, 3, {{45000.0}}); // a day's cell stays one
        workbook->SaveAs(path);
    });
    ASSERT_FALSE(error) << error->description.toStdString();
    EXPECT_EQ(ReadBlock(path, 2, 1, 5, 3), (Rows{{"7", "6901234567892", "2023-03-15"},
                                                 {"新", "行", ""},
                                                 {"", "甲", ""},
                                                 {"0.000012", "乙", ""},
                                                 {"0.000012", "", ""}}));
    EXPECT_EQ(ReadBlock(sample, 2, 1, 1, 1), Rows{{"12.5"}}) << "the opened file itself is left alone";
}

TEST_P(Workbooks, InsertedRowsAreLikeTheRowAboveAndSumsGrow)
{
    const QString path = PathOf(QString("grown.") + GetParam());
    const QString sample = MakeSample(QString("sample.") + GetParam());
    const auto error = ErrorOf([&](SpreadsheetApplication& application) {
        const auto workbook = application.Open(sample);
        const auto sheet = workbook->SheetAt(0);
        sheet->InsertRows(5, 200);
        sheet->Write(5, 1, SheetRows(200, {2.0, QString("丙")}));
        sheet->DeleteRows(205, 1);
        workbook->SaveAs(path);
        workbook->ExportPdf(*sheet, PathOf("grown.pdf"));
    });
    ASSERT_FALSE(error) << error->description.toStdString();
    EXPECT_EQ(ReadBlock(path, 204, 1, 2, 2), (Rows{{"2", "丙"}, {"1634.5", ""}}));
    EXPECT_EQ(PdfText(PathOf("grown.pdf")).count("2.00"), 200) << "the number format of the row above";
    // 201 rows of 2 cm: at most 13 of them stand on a page.
    EXPECT_GE(OutputOf("pdfinfo", {PathOf("grown.pdf")}).section("Pages:", 1).section('\n', 0, 0).toInt(), 15);
}

TEST_F(Saving, AColumnKeepsTextsForWhoTypesInIt)
{
    const auto error = ErrorOf([&](SpreadsheetApplication& application) {
        const auto workbook = application.Create();
        workbook->SheetAt(0)->KeepAsTexts(2, 1);
        workbook->SaveAs(PathOf("blank.xlsx"));
    });
    ASSERT_FALSE(error) << error->description.toStdString();
    Convert(PathOf("blank.xlsx"), "fods", PathOf("."));
    EXPECT_TRUE(ReadFile(PathOf("blank.fods")).contains("<number:text-content/>"));
}

TEST_F(Saving, AnExportedPageHoldsOneSheet)
{
    const QString sample = MakeSample("sample.xls");
    const auto error = ErrorOf([&](SpreadsheetApplication& application) {
        const auto workbook = application.Open(sample);
        workbook->ExportPdf(*workbook->SheetAt(0), PathOf("first.pdf"));
        workbook->ExportPdf(*workbook->SheetAt(1), PathOf("second.pdf"));
    });
    ASSERT_FALSE(error) << error->description.toStdString();
    EXPECT_TRUE(PdfText(PathOf("first.pdf")).contains("商品调拨单"));
    EXPECT_FALSE(PdfText(PathOf("first.pdf")).contains("首列打印条形码"));
    EXPECT_TRUE(PdfText(PathOf("second.pdf")).contains("首列打印条形码"));
}

TEST_F(Saving, WhatCannotBeSavedIsRefused)
{
    WriteFile("old.xls", "as it was");
    const auto save = [&](const QString& path, int row, int column) {
        return ErrorOf([&](SpreadsheetApplication& application) {
            const auto workbook = application.Create();
            workbook->SheetAt(0)->Write(row, column, {{QString("x")}});
            workbook->SaveAs(path);
        });
    };
    const struct
    {
        QString name;
        int row;
        int column;
    } cases[] = {{"old.xls", 65537, 1}, {"old.xls", 1, 257}, {"missing/new.xls", 1, 1}, {"new.ods", 1, 1}};
    for (const auto& [name, row, column] : cases) {
        const auto error = save(PathOf(name), row, column);
        ASSERT_TRUE(error) << name.toStdString();
        EXPECT_EQ(error->kind, SpreadsheetError::Kind::CannotSave) << name.toStdString();
        EXPECT_TRUE(error->description.contains(QFileInfo(name).fileName())) << error->description.toStdString();
    }
    EXPECT_EQ(ReadFile(PathOf("old.xls")), "as it was");
    EXPECT_FALSE(save(PathOf("old.xls"), 65536, 256));
}
