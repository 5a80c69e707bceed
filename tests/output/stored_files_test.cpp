#include "output/stored_files.h"

#include "support/test_program.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

TEST(StoredFiles, AreWrittenAsTheyAre)
{
    TestProgram test;
    const QString path = test.folder.filePath("out.xls");
    for (const int size : {1, 32767, 32768, 65536, 100'001, 7}) {
        QByteArray content(size, '\0');
        for (int at = 0; at < size; ++at)
            content[at] = char(at * 31 + at / 256);
        const QByteArray name = QByteArray::number(size) + ".xls";
        test.Insert("TabExcelTable", {{"TabName", name.constData()}, {"TabInf", content}});
        EXPECT_TRUE(SaveTableFileToDisk(test.program, path, name));
        EXPECT_EQ(ReadAll(path), content) << size;
    }
    test.Insert("TabExcelTable", {{"TabName", "empty.xls"}, {"TabInf", QByteArray("")}});
    EXPECT_TRUE(SaveTableFileToDisk(test.program, path, "empty.xls"));
    EXPECT_FALSE(QFile::exists(path)) << "the older file goes, none comes";
    EXPECT_TRUE(test.prompt.boxes.empty());
}

TEST(StoredFiles, WhatFails)
{
    TestProgram test;
    const QString path = test.folder.filePath("kept.xls");
    QFile kept(path);
    ASSERT_TRUE(kept.open(QIODevice::WriteOnly));
    kept.write("kept");
    kept.close();
    EXPECT_FALSE(SaveTableFileToDisk(test.program, path, "none.xls"));
    EXPECT_EQ(test.prompt.boxes.back().kind, "fault") << "its title is 错误";
    EXPECT_EQ(test.Boxes(), path + "  不存在！.");
    EXPECT_EQ(ReadAll(path), "kept");

    test.Insert("TabExcelTable", {{"TabName", "a.xls"}, {"TabInf", QByteArray("a")}});
    EXPECT_FALSE(SaveTableFileToDisk(test.program, test.folder.filePath("missing/a.xls"), "a.xls"));
    EXPECT_TRUE(test.prompt.boxes.empty());
}

} // namespace
