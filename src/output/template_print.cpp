#include "output/template_print.h"

#include "base/number_text.h"
#include "base/program_folder.h"
#include "handover/open_query.h"
#include "output/spreadsheet_plugin.h"
#include "output/stored_files.h"
#include "output/working_copy.h"

#include <QDir>
#include <QFile>
#include <QTime>
#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr int kTokenRows = 40;
constexpr int kTokenColumns = 40;
constexpr int kPlaceholderRow = 17; // and the one below it
constexpr auto kCompany = "?本单位名称";
constexpr auto kUnforeseen = "操作发生不可预测性错误！请退出软件重启电脑后再操作！";
constexpr size_t kCodesAtOnce = 100;

/// What PrintBill_Excel and SetPrintTemplate say in their own words.
struct Refusals
{
    const char* noName;
    const char* noFile;
};
constexpr Refusals kPrinting{"未传递打印模版名，打印终止！", "打印模版文件不存在，打印终止！"};
constexpr Refusals kSettingUp{"未传递打印模版名，设置终止！", "打印模版文件不存在，设置终止！"};

template <typename Result = bool>
Result Refuse(Program& program, const QString& text)
{
    program.prompt.Inform(text);
    return Result();
}

void Say(Program& program, const SpreadsheetError& error)
{
    program.prompt.Inform(error.kind == SpreadsheetError::Kind::Stopped ? kUnforeseen : error.description);
}

/// A folder beside the program, made when it is missing. Unset when that failed, which has been said.
std::optional<QString> WorkingFolder(Program& program, const QString& name)
{
    const QString path = PathInFolder(program.folder, name);
    if (QDir().mkpath(path))
        return path;
    return Refuse<std::optional<QString>>(program, "不能建立文件夹" + path + "，请确定程序文件夹的写权限后重新操作！");
}

/// A name out of the account set must not lead out of the folder.
bool IsFileName(const QString& name)
{
    return name != u"." && name != u".." && !name.contains('/') && !name.contains('\\') && !name.contains(QChar(0));
}

/// The template written afresh out of the account set. Unset when that failed, which has been said.
std::optional<QString> FetchTemplate(Program& program, const QString& name, const Refusals& refusals)
{
    using Path = std::optional<QString>;
    if (!IsFileName(name))
        return Refuse<Path>(program, "报表模版名“" + name + "”不是文件名，操作终止！");
    const Path folder = WorkingFolder(program, "PrintTemp");
    if (!folder)
        return {};
    const QString path = PathInFolder(*folder, name);
    if (!SaveTableFileToDisk(program, path, name))
        return Refuse<Path>(program, "打开报表模版失败，请重新操作！");
    if (!QFile::exists(path))
        return Refuse<Path>(program, refusals.noFile);
    return path;
}

bool IsSaved(Program& program, const BillSheet& bill)
{
    if (bill.valBillCode.isEmpty())
        return true;
    const Recordset head =
        OpenQuery(program, Sql("select * from ") + Name(bill.headTable) + " where Code=" + bill.valBillCode);
    if (head && head.isEmpty())
        program.prompt.Inform("尚未保存数据，请先保存数据后重新执行打印！");
    return !head.isEmpty();
}

/// Where a copy of the template is worked on. Unset when there is no folder for it, which has been said.
std::optional<QString> CopyPath(Program& program, const QString& name)
{
    const std::optional<QString> folder = WorkingFolder(program, "TempFile");
    if (!folder)
        return {};
    RemoveLeftCopies(*folder);
    const Moment now = program.clock.Now();
    const QTime time = QTime::fromMSecsSinceStartOfDay(now.millisecondOfDay);
    return PathInFolder(*folder, now.day.toString("yyyyMMdd") + time.toString("HHmmss") + name);
}

/// @return the places of the cells that had a token
std::vector<std::pair<int, int>> ReplaceTokens(Sheet& page, const std::vector<BillToken>& tokens)
{
    std::vector<std::pair<int, int>> places;
    const std::vector<QStringList> texts = page.Read(1, 1, kTokenRows, kTokenColumns);
    for (int row = 0; row < kTokenRows; ++row) {
        for (int column = 0; column < kTokenColumns; ++column) {
            const QString& text = texts[row][column];
            const QString replaced = ReplaceBillTokens(tokens, text);
            // A cell without a token is left alone: it may be a formula.
            if (replaced == text)
                continue;
            page.Write(row + 1, column + 1, {{replaced}});
            places.emplace_back(row + 1, column + 1);
        }
    }
    return places;
}

/// How the goods' barcodes stand in the first column.
enum class Barcodes
{
    None,
    Digits,
    Bars,
};
struct StyleWord
{
    const char* word;
    Barcodes barcodes;
};
constexpr StyleWord kStyleWords[] = {{"首列打印条形码", Barcodes::Digits},
                                     {"首列打印数字条形码", Barcodes::Digits},
                                     {"首列打印图形条形码", Barcodes::Bars}};

Barcodes StyleOf(Workbook& book)
{
    const std::unique_ptr<Sheet> settings = book.SheetNamed("样式分类设置");
    const QString style = settings ? settings->Read(1, 2, 1, 1).front().front().trimmed() : QString();
    const auto known = std::ranges::find(kStyleWords, style, [](const StyleWord& each) { return QString(each.word); });
    return known == std::end(kStyleWords) ? Barcodes::None : known->barcodes;
}

/// A figure is a number in the sheet, so that a formula of the template can add it up.
SheetCell CellOf(const QString& text, bool isFigure)
{
    bool isNumber = false;
    const double number = isFigure ? CleanNumberText(text).trimmed().toDouble(&isNumber) : 0;
    if (isNumber && std::isfinite(number))
        return number;
    return text.trimmed();
}

/// @param barcodes  null for the plain style
SheetRows RowsOf(const BillSheet& bill, const GoodsBarcodes* barcodes)
{
    SheetRows rows;
    for (const QStringList& line : bill.lines) {
        std::vector<SheetCell>& cells = rows.emplace_back();
        if (barcodes)
            cells.emplace_back(barcodes->GetGoodsBarcode(line.front()));
        for (qsizetype column = 0; column < line.size(); ++column)
            cells.push_back(CellOf(line[column], bill.isFigure[column]));
    }
    return rows;
}

QStringList FirstTexts(const SheetRows& rows)
{
    QStringList texts;
    for (const std::vector<SheetCell>& cells : rows)
        texts << std::get<QString>(cells.front());
    return texts;
}

void WriteLines(Sheet& page, const SheetRows& rows)
{
    const int count = int(rows.size());
    if (count > 0) {
        page.InsertRows(kPlaceholderRow + 1, count);
        page.Write(kPlaceholderRow + 1, 1, rows);
    }
    page.DeleteRows(kPlaceholderRow, 1);
    page.DeleteRows(kPlaceholderRow + count, 1);
}

/// The decimals that the texts of a column share; unset where they differ or there are none.
std::optional<int> SharedPlaces(const QStringList& texts)
{
    std::optional<int> places;
    for (const QString& text : texts) {
        const int own = text.contains('.') ? int(text.size() - text.indexOf('.')) - 1 : 0;
        if (!text.isEmpty() && places.value_or(own) != own)
            return {};
        if (!text.isEmpty())
            places = own;
    }
    return places;
}

/// Figures stand on paper as they stand in the bill.
/// @param first  the column of the sheet that the first of the bill has gone into
void ShowFigures(Sheet& page, const BillSheet& bill, int first)
{
    for (size_t column = 0; column < bill.isFigure.size(); ++column) {
        QStringList texts;
        for (const QStringList& line : bill.lines)
            texts << line[qsizetype(column)].trimmed();
        const std::optional<int> places = bill.isFigure[column] ? SharedPlaces(texts) : std::nullopt;
        if (places)
            page.ShowPlaces(kPlaceholderRow, first + int(column), int(texts.size()), *places,
                            texts.join(' ').contains(','));
    }
}

void FillCopy(SpreadsheetApplication& application, const BillSheet& bill, const GoodsBarcodes& barcodes,
              const WorkingCopy& copy, SheetGoal goal)
{
    const std::unique_ptr<Workbook> book = application.Open(copy.path());
    const Barcodes style = StyleOf(*book);
    const std::unique_ptr<Sheet> page = book->SheetNamed("sheet1");
    if (!page)
        throw SpreadsheetError{SpreadsheetError::Kind::Stopped, kUnforeseen};
    page->FitCells(ReplaceTokens(*page, bill.tokens));
    const SheetRows rows = RowsOf(bill, style == Barcodes::None ? nullptr : &barcodes);
    WriteLines(*page, rows);
    ShowFigures(*page, bill, style == Barcodes::None ? 1 : 2);
    // A font of the first column's own makes the bars itself.
    if (style == Barcodes::Bars && !page->HasOwnFont(kPlaceholderRow, 1))
        page->DrawBarcodes(kPlaceholderRow, 1, FirstTexts(rows));
    else
        page->FitRows(kPlaceholderRow, int(rows.size()));
    if (goal == SheetGoal::IntoExcel)
        book->SaveAs(copy.path());
    else
        book->ExportPdf(*page, copy.pdf());
}

void PutOut(Program& program, const BillSheet& bill, WorkingCopy& copy, SheetGoal goal, const TakePages& takePages)
{
    const GoodsBarcodes barcodes(program, bill.lines);
    try {
        SpreadsheetHost& host = SpreadsheetOf(program);
        host.Run([&](SpreadsheetApplication& application) { FillCopy(application, bill, barcodes, copy, goal); });
        if (goal == SheetGoal::IntoExcel) {
            host.HandOver(copy.path(), "输出....", false);
            return copy.LeaveToUser();
        }
    } catch (const SpreadsheetError& error) {
        return Say(program, error);
    }
    takePages(copy.pdf());
}

} // namespace

QString ReplaceBillTokens(const std::vector<BillToken>& tokens, QString cellText)
{
    for (const BillToken& token : tokens)
        cellText.replace(token.word, token.value);
    return cellText;
}

QString GetCompanyToken(Program& program, const QString& token)
{
    return token == QString(kCompany) ? OpenQuery(program, Sql("select Name from TabCompanyInf  ")).Text("Name")
                                      : token;
}

GoodsBarcodes::GoodsBarcodes(Program& program, const std::vector<QStringList>& lines)
{
    QStringList codes;
    for (const QStringList& line : lines)
        codes << line.front().trimmed();
    codes.removeDuplicates();
    for (qsizetype first = 0; first < codes.size(); first += kCodesAtOnce) {
        Sql query = Sql("select Code,TiaoXingCode from TabWare where Code in (") + codes[first];
        // The last code fills up the last statement: all have one shape.
        for (size_t next = 1; next < kCodesAtOnce; ++next)
            query += Sql(",") + codes[std::min(first + qsizetype(next), codes.size() - 1)];
        const Recordset goods = OpenQuery(program, query + ") ");
        for (int row = 0; row < goods.size(); ++row)
            m_barcodes.insert(goods.Text("Code", row).trimmed().toCaseFolded(), goods.Text("TiaoXingCode", row));
    }
}

QString GoodsBarcodes::GetGoodsBarcode(const QString& goodsCode) const
{
    return m_barcodes.value(goodsCode.trimmed().toCaseFolded());
}

void PrintBill_Excel(Program& program, const BillSheet& bill, const QString& valPrintModleName, SheetGoal goal,
                     const TakePages& takePages)
{
    const QString name = valPrintModleName.trimmed();
    if (name.isEmpty() || name == u"暂无")
        return program.prompt.Inform(kPrinting.noName);
    if (!IsSaved(program, bill))
        return;
    const std::optional<QString> stored = FetchTemplate(program, name, kPrinting);
    const std::optional<QString> path = stored ? CopyPath(program, name) : std::nullopt;
    if (!path)
        return;
    WorkingCopy copy(*path);
    if (copy.Fill(*stored))
        PutOut(program, bill, copy, goal, takePages);
    else
        program.prompt.Inform("不能写入文件" + *path + "，请确定磁盘空间和写权限后重新操作！");
}

void SetPrintTemplate(Program& program, const QString& valPrintModleName)
{
    const QString name = valPrintModleName.trimmed();
    if (name.isEmpty())
        return program.prompt.Inform(kSettingUp.noName);
    const std::optional<QString> stored = FetchTemplate(program, name, kSettingUp);
    if (!stored)
        return;
    try {
        SpreadsheetOf(program).HandOver(*stored, name, false);
    } catch (const SpreadsheetError& error) {
        Say(program, error);
    }
}
