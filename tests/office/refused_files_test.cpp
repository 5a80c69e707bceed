#include "office_fixture.h"

#include <QFileInfo>

namespace {

class RefusedFiles : public OfficeTest
{
protected:
    /// Opening it is refused, and the next job works.
    QString RefusalOf(const QString& path)
    {
        const auto error = ErrorOf([&](SpreadsheetApplication& application) { application.Open(path); });
        EXPECT_TRUE(error) << path.toStdString();
        if (!error)
            return {};
        EXPECT_EQ(error->kind, SpreadsheetError::Kind::CannotOpen);
        EXPECT_TRUE(error->description.contains("“" + QFileInfo(path).fileName() + "”"))
            << error->description.toStdString();
        EXPECT_FALSE(ErrorOf([](SpreadsheetApplication& application) { application.Create(); }));
        return error->description.section("：", 1);
    }
};

QByteArray CompoundFile(const char16_t* stream)
{
    const QString name = QString::fromUtf16(stream) + QChar(0);
    return QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1") + QByteArray(1000, 'x') +
           QByteArray(reinterpret_cast<const char*>(name.utf16()), name.size() * 2) + QByteArray(1000, 'y');
}

} // namespace

TEST_F(RefusedFiles, EachByItsName)
{
    WriteFile("empty.xls", "");
    WriteFile("text.xls", "商品编号,数量\n001,2\n");
    WriteFile("page.xls", "<html><table><tr><td>001</td></tr></table></html>");
    WriteFile("letter.xls", CompoundFile(u"WordDocument"));
    WriteFile("archive.xlsx", "PK\x03\x04" + QByteArray(100, 'x') + "word/document.xml");
    WriteFile("rubbish.xls", CompoundFile(u"Workbook"));
    WriteFile("rubbish.xlsx", "PK\x03\x04" + QByteArray(100, 'x') + "xl/workbook.xml");
    WriteFile("locked.xlsx", CompoundFile(u"EncryptedPackage"));
    const QString foreign = "文件不是Excel工作簿（.xls 或 .xlsx）！";
    const QString damaged = "文件已损坏，或者不是Excel工作簿！";
    const QString isProtected = "文件设有密码，请先取消密码后重新操作！";
    const struct
    {
        const char* name;
        QString reason;
    } cases[] = {{"missing.xls", "文件不存在！"}, {"empty.xls", foreign},    {"text.xls", foreign},
                 {"page.xls", foreign},           {"letter.xls", foreign},   {"archive.xlsx", foreign},
                 {"rubbish.xls", damaged},        {"rubbish.xlsx", damaged}, {"locked.xlsx", isProtected}};
    for (const auto& [name, reason] : cases)
        EXPECT_EQ(RefusalOf(PathOf(name)), reason) << name;
    EXPECT_EQ(RefusalOf(PathOf(".")), "文件不能读取，可能没有权限，或者正被其它程序占用！");
}

TEST_F(RefusedFiles, HalfAWorkbook)
{
    for (const char* name : {"half.xls", "half.xlsx"}) {
        const QString path = MakeSample(name);
        const QByteArray whole = ReadFile(path);
        WriteFile(name, whole.first(whole.size() / 2));
        RefusalOf(path);
    }
}

TEST_F(RefusedFiles, OneWithAPassword)
{
    EXPECT_EQ(RefusalOf(OFFICE_SOURCE_FOLDER "/protected.xls"), "文件设有密码，请先取消密码后重新操作！");
}
