#include "dialogs/frmBillPos.h"

#include "support/test_program.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class ScanWindow : public testing::Test
{
protected:
    ScanWindow()
    {
        test.Insert("TabWare", {{"Code", "G1"}, {"Name", "螺丝"}, {"TiaoXingCode", "690001"}});
        const ScannedBill bill{[](const QString&) { return QString("2.5"); },
                               [this](const QString& code, double amount, double price) {
                                   lines += QString("%1 %2 %3").arg(code).arg(amount).arg(price);
                               }};
        window.emplace(test.program, bill, nullptr);
        window->show();
        QApplication::setActiveWindow(&*window);
    }
    QLineEdit& Box(const char* name) { return *window->findChild<QLineEdit*>(name); }
    QString Focus() { return QApplication::focusWidget()->objectName(); }
    /// Text and Enter where the focus is, as a scanner and a hurried user send them.
    void Enter(const char* text)
    {
        QTest::keyClicks(QApplication::focusWidget(), text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }

    TestProgram test;
    QStringList lines;
    std::optional<frmBillPos> window;
};

} // namespace

TEST_F(ScanWindow, EnterLeadsThroughALineAndBackToTheNextScan)
{
    EXPECT_EQ(Focus(), "TxtTiaoXingCode");
    Enter("690001");
    EXPECT_EQ(Focus(), "TxtAmount");
    EXPECT_EQ(Box("TxtWareName").text(), "螺丝");
    Enter("1-2x"); // replaces the 1
    EXPECT_EQ(Focus(), "TxtPrice");
    Enter(""); // leads to the button
    Enter("");
    EXPECT_EQ(lines, QStringList("G1 12 2.5"));
    EXPECT_EQ(Focus(), "TxtTiaoXingCode");
    EXPECT_EQ(Box("TxtAmount").text(), "1");
}

TEST_F(ScanWindow, ScansFollowEachOtherUnaided)
{
    window->findChild<QCheckBox*>("ChAutoIn")->setChecked(true);
    Enter("690001");
    Enter("1234567"); // unknown
    Enter("690001");  // replaces it
    EXPECT_EQ(lines, QStringList({"G1 1 2.5", "G1 1 2.5"}));
    EXPECT_EQ(Box("TxtTiaoXingCode").text(), "");
    EXPECT_TRUE(test.prompt.boxes.empty());
}
