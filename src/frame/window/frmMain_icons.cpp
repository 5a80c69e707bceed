#include "frame/window/frmMain_icons.h"

#include "shell/window/line_drawing.h"

#include <QPainter>
#include <algorithm>
#include <array>

namespace {

constexpr QRgb kBlue = 0xff2f6fc4;
constexpr QRgb kCyan = 0xff1584a8;
constexpr QRgb kTeal = 0xff13867b;
constexpr QRgb kGreen = 0xff2f8f4e;
constexpr QRgb kAmber = 0xffc77a10;
constexpr QRgb kRose = 0xffbf4560;
constexpr QRgb kPurple = 0xff6d55b5;
constexpr QRgb kSlate = 0xff556476;

/// Pixels per point of the densest screens.
constexpr int kDensest = 3;

constexpr const char* kPerson = "O12 8 3.7 M5 20 C5 15.6 8 13.9 12 13.9 C16 13.9 19 15.6 19 20";
constexpr const char* kPeople = "O9 8.5 3.1 M3 19.5 C3 15.6 5.6 14 9 14 C12.4 14 15 15.6 15 19.5 M15.4 5.6 C18.9 5.6 "
                                "18.9 11.3 15.4 11.3 M17.2 14.3 C19.6 14.8 21 16.4 21 19.5";
constexpr const char* kBox = "M12 3 L20 7.2 L20 16.8 L12 21 L4 16.8 L4 7.2 Z M4.2 7.3 L12 11.5 L19.8 7.3 M12 11.5 L12 "
                             "20.8";
constexpr const char* kHall = "M3 20.5 L3 9 L12 4 L21 9 L21 20.5 M7 20.5 L7 12.5 L17 12.5 L17 20.5 M7 16.5 L17 16.5";
constexpr const char* kTree = "R3 3.5 7 5 1 R14 9.8 7 5 1 R14 16 7 5 1 M6.5 8.7 L6.5 18.5 L13.8 18.5 M6.5 12.3 L13.8 "
                              "12.3";
constexpr const char* kIn = "M4 13 L4 20 L20 20 L20 13 M12 3.5 L12 15 M7.5 10.8 L12 15.2 L16.5 10.8";
constexpr const char* kOut = "M4 13 L4 20 L20 20 L20 13 M12 15 L12 4 M7.5 8.2 L12 3.8 L16.5 8.2";
constexpr const char* kLens = "O10.5 10.5 6.3 M15.2 15.2 L20.5 20.5";
constexpr const char* kSwap = "M4 8 L19.5 8 M16 4.5 L19.5 8 L16 11.5 M20 16 L4.5 16 M8 12.5 L4.5 16 L8 19.5";
constexpr const char* kTag = "M3.5 12.5 L3.5 4 L12 4 L20.5 12.5 L12.3 20.7 Z O8 8.5 1.4";
constexpr const char* kLess = "R5 5 14 16 1.5 M9 3.2 L15 3.2 L15 6.6 L9 6.6 Z M9 13.8 L15 13.8";
constexpr const char* kMore = "R5 5 14 16 1.5 M9 3.2 L15 3.2 L15 6.6 L9 6.6 Z M9 13.8 L15 13.8 M12 10.8 L12 16.8";
constexpr const char* kPieces = "R3.5 4 7 7 1 R3.5 13.5 7 7 1 R13.5 13.5 7 7 1 M17.2 2.6 L21.6 7 L17.2 11.4 L12.8 7 Z";
constexpr const char* kGear = "O12 12 3 O12 12 6.2 M12 2.8 L12 5.8 M12 18.2 L12 21.2 M2.8 12 L5.8 12 M18.2 12 L21.2 12 "
                              "M5.5 5.5 L7.6 7.6 M16.4 16.4 L18.5 18.5 M5.5 18.5 L7.6 16.4 M16.4 7.6 L18.5 5.5";
constexpr const char* kShield = "M12 3 L20 6 L20 12 C20 17 16 20 12 21.2 C8 20 4 17 4 12 L4 6 Z M8.4 12 L11.1 14.7 "
                                "L15.8 9.6";
constexpr const char* kStore = "E12 6 7.5 3 M4.5 6 L4.5 18 C4.5 19.7 7.9 21 12 21 C16.1 21 19.5 19.7 19.5 18 L19.5 6 "
                               "M4.5 12 C4.5 13.7 7.9 15 12 15 C16.1 15 19.5 13.7 19.5 12";
constexpr const char* kBack =
    "M4 4.5 L4 10 L9.5 10 M4.4 10 C6 6.4 9 4.3 12.6 4.3 C17 4.3 20.4 7.8 20.4 12.1 C20.4 16.4 "
    "17 19.9 12.6 19.9 C9 19.9 6.2 18 4.9 15";
constexpr const char* kCycle = "M4 11 C4.5 7.2 8 4.5 12 4.5 C15 4.5 17.5 6 19 8.6 M19.5 4 L19.5 9 L14.5 9 M20 13 C19.5 "
                               "16.8 16 19.5 12 19.5 C9 19.5 6.5 18 5 15.4 M4.5 20 L4.5 15 L9.5 15";
constexpr const char* kChart = "M4 4 L4 20 L20.5 20 M8.3 16.5 L8.3 11.5 M12.4 16.5 L12.4 6.5 M16.5 16.5 L16.5 9.5";
constexpr const char* kList = "R4 4 16 16 1.5 M8 8.7 L16 8.7 M8 12.2 L16 12.2 M8 15.7 L13 15.7";
constexpr const char* kDay = "R4 5.5 16 15 1.5 M4 10.3 L20 10.3 M8.5 3 L8.5 7 M15.5 3 L15.5 7 M8.8 15.2 L11.2 17.5 "
                             "L15.4 13";
constexpr const char* kFolder = "M3.5 18.8 L3.5 5.8 L9.5 5.8 L11.5 8.4 L20.5 8.4 L20.5 18.8 Z";
constexpr const char* kScreen = "R3.5 4.5 17 12 1.5 M8.5 20.3 L15.5 20.3 M12 16.5 L12 20.2";
constexpr const char* kPlaces = "E6.5 12 2.9 5 E17.5 12 2.9 5 M12 16.7 L12 17";
constexpr const char* kChartOfUnits =
    "R8.8 3 6.4 5 1 R3 16 6.4 5 1 R14.6 16 6.4 5 1 M12 8 L12 12 M6.2 16 L6.2 12 L17.8 "
    "12 L17.8 16";
constexpr const char* kLayers = "M12 3.5 L21 8 L12 12.5 L3 8 Z M3 12.2 L12 16.7 L21 12.2 M3 16.4 L12 20.9 L21 16.4";
constexpr const char* kFalling = "M3.5 6 L9.8 12.6 L13.4 9.4 L20 17 M20 11.8 L20 17 L14.8 17";
constexpr const char* kRising = "M3.5 17.5 L9.8 11 L13.4 14.4 L20 6.8 M14.8 6.8 L20 6.8 L20 12";
constexpr const char* kPaper =
    "M6 3 L14.5 3 L19 7.5 L19 21 L6 21 Z M14.5 3 L14.5 7.5 L19 7.5 M9.3 12.4 L15.7 12.4 M9.3 "
    "16.4 L15.7 16.4";
constexpr const char* kPower = "M12 3 L12 11.5 M7.4 6 C3.6 8.8 3.6 14.6 6.6 17.6 C9.6 20.6 14.4 20.6 17.4 17.6 C20.4 "
                               "14.6 20.4 8.8 16.6 6";
constexpr const char* kSums =
    "R5 3 14 18 1.5 M8.5 7.6 L15.5 7.6 M8.5 12 L8.7 12 M12 12 L12.2 12 M15.4 12 L15.6 12 M8.5 "
    "16.5 L8.7 16.5 M12 16.5 L12.2 16.5 M15.4 16.5 L15.6 16.5";

struct Picture
{
    const char16_t* about; // part of the word
    const char* drawing;
    QRgb colour;
};

/// The first row whose part is in the word decides; the last one fits every word.
constexpr std::array kPictures{
    Picture{u"基础管理", kLayers, kBlue},  Picture{u"数据查询", kLens, kCyan},
    Picture{u"分类设置", kTree, kTeal},    Picture{u"类别设置", kTree, kTeal},
    Picture{u"属性设置", kTag, kTeal},     Picture{u"部门设置", kChartOfUnits, kPurple},
    Picture{u"期初库存", kLayers, kAmber}, Picture{u"低于", kFalling, kRose},
    Picture{u"高于", kRising, kGreen},     Picture{u"库存商品查询", kLens, kCyan},
    Picture{u"单据查询", kPaper, kBlue},   Picture{u"结转查询", kDay, kCyan},
    Picture{u"明细表", kList, kCyan},      Picture{u"汇总", kChart, kPurple},
    Picture{u"分布表", kChart, kPurple},   Picture{u"往来单位", kPeople, kBlue},
    Picture{u"员工", kPerson, kPurple},    Picture{u"商品信息", kBox, kAmber},
    Picture{u"入库", kIn, kGreen},         Picture{u"出库", kOut, kAmber},
    Picture{u"调拨", kSwap, kBlue},        Picture{u"调价", kTag, kAmber},
    Picture{u"报损", kLess, kRose},        Picture{u"报溢", kMore, kGreen},
    Picture{u"组装", kPieces, kPurple},    Picture{u"反", kBack, kSlate},
    Picture{u"日结", kDay, kTeal},         Picture{u"结转", kDay, kTeal},
    Picture{u"仓库", kHall, kTeal},        Picture{u"小数位", kPlaces, kSlate},
    Picture{u"权限", kShield, kRose},      Picture{u"授权", kShield, kRose},
    Picture{u"用户", kPerson, kBlue},      Picture{u"备份路径", kFolder, kSlate},
    Picture{u"备份", kStore, kTeal},       Picture{u"恢复", kBack, kAmber},
    Picture{u"更换", kCycle, kPurple},     Picture{u"导入", kIn, kGreen},
    Picture{u"导出", kOut, kAmber},        Picture{u"MAC", kScreen, kSlate},
    Picture{u"计算器", kSums, kSlate},     Picture{u"退出", kPower, kRose},
    Picture{u"", kGear, kSlate},
};

const Picture& PictureOf(const QString& word)
{
    return *std::find_if(kPictures.begin(), kPictures.end(),
                         [&](const Picture& each) { return word.contains(QStringView(each.about)); });
}

template <typename Paint>
QPixmap Painted(int size, int density, const Paint& paint)
{
    QPixmap pixmap(size * density, size * density);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(painter, pixmap.rect());
    painter.end();
    pixmap.setDevicePixelRatio(density);
    return pixmap;
}

} // namespace

void PaintFunctionIcon(QPainter& painter, const QString& word, const QRectF& square)
{
    const Picture& picture = PictureOf(word);
    const QColor colour = QColor::fromRgb(picture.colour);
    const double side = square.width();
    QLinearGradient light(square.topLeft(), square.bottomLeft());
    light.setColorAt(0, colour.lighter(116));
    light.setColorAt(1, colour);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawRoundedRect(square, side * 0.22, side * 0.22);
    painter.restore();
    const double margin = side * 0.2;
    StrokeOutline(painter, Outline(picture.drawing), square.adjusted(margin, margin, -margin, -margin), Qt::white, 1.8);
}

QPixmap FunctionBadge(const QString& word, int size)
{
    return Painted(size, kDensest,
                   [&](QPainter& painter, const QRectF& square) { PaintFunctionIcon(painter, word, square); });
}

QIcon FunctionGlyph(const QString& word, const QColor& colour, int size)
{
    QIcon icon;
    const QPainterPath outline = Outline(PictureOf(word).drawing);
    for (int density = 1; density <= kDensest; ++density)
        icon.addPixmap(Painted(size, density, [&](QPainter& painter, const QRectF& square) {
            StrokeOutline(painter, outline, square, colour, 1.8);
        }));
    return icon;
}
