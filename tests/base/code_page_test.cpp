#include "base/code_page.h"
#include "printing.h"

#include <gtest/gtest.h>

TEST(CodePage, ChineseTextRoundTrips)
{
    EXPECT_EQ(ToCodePage("啊A"), QByteArray("\xB0\xA1"
                                            "A"));
    const QString text = "同价调拨单 系统管理员 ￥1,234。50 镕 — ·";
    EXPECT_EQ(FromCodePage(ToCodePage(text)), text);
    EXPECT_EQ(ToCodePage(QString()), QByteArray());
    EXPECT_EQ(FromCodePage(QByteArray()), QString());
}

TEST(CodePage, WhatTheCodePageLacksBecomesAQuestionMark)
{
    EXPECT_EQ(ToCodePage("a😀b"), QByteArray("a?b"));
    EXPECT_EQ(ToCodePage(QString("é") + QChar(0xD83D)), QByteArray("\xA8\xA6?"));
    EXPECT_EQ(ToCodePage(QString(QChar(0xDE00)) + "ñ1"), QByteArray("??1"));
}

TEST(CodePage, BrokenBytesBecomeTheReplacementCharacter)
{
    EXPECT_EQ(FromCodePage("a\xB0"), QString("a\uFFFD"));
    EXPECT_EQ(FromCodePage("\xB0=1"), QString("\uFFFD=1"));
    EXPECT_EQ(FromCodePage("\xFFx"), QString("\uFFFDx"));
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second) {
            const char pair[] = {static_cast<char>(first), static_cast<char>(second), '\n'};
            EXPECT_TRUE(FromCodePage(QByteArray(pair, 3)).endsWith(u'\n')) << first << ' ' << second;
        }
}
