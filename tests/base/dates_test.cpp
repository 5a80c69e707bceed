#include "base/dates.h"
#include "printing.h"

#include <QStringList>
#include <gtest/gtest.h>

TEST(Dates, ReadsDaysInTheFormsInUse)
{
    const QString forms = "2023-2-8|2023-02-08|2023/2/08|2023.2.8|2023年2月8日|2023年02月8| 2023-2-8 |2023-2-8 9:05|"
                          "2023-02-08T23:59:59.999|2023年2月8日 0:00";
    for (const QString& text : forms.split('|'))
        EXPECT_EQ(ParseDay(text), QDate(2023, 2, 8)) << text.toStdString();
    EXPECT_EQ(ParseDay(u"2024-2-29"), QDate(2024, 2, 29));

    const QString wrong = "|x|2023|2023-2|2023-2-|2023-02-30|2023-13-01|2023-0-1|23-2-8|2023-2/8|2023-2-8x|2023-2-8-|"
                          "2023-02-081|2023-2-8 x|2023-2-8 24:00|2023-2-8 9|2023-2-8 9:60|2023-2-8 9:05:|"
                          "2023-2-8 9:05:12.|2023-2-8 9:05x|8-2-2023|2023年2-8|２０２３-2-8|-2023-2-8";
    for (const QString& text : wrong.split('|'))
        EXPECT_FALSE(ParseDay(text)) << text.toStdString();
}

TEST(Dates, ReadsWhatIsTypedRelativeToTheShownDay)
{
    const QDate shown(2023, 2, 8);
    const QStringList readings =
        QString("20231115=2023-11-15|231115=2023-11-15|1115=2023-11-15|15=2023-02-15|"
                "5=2023-02-05|+1=2023-02-09|-8=2023-01-31|11-15=2023-11-15|2/3=2023-02-03|"
                "3月1日=2023-03-01|2023-11-15=2023-11-15| １１15 =2023-11-15|19000101=1900-01-01|"
                "240229=2024-02-29|0229=|30=|0=|115=|2023=|20231301=|18991231=|+=|-=|+1x=|1 5=|"
                "11-=|11-15-=|15x=|昨天=|=")
            .split('|');
    for (const QString& reading : readings)
        EXPECT_EQ(DayText(ReadTypedDay(reading.section('=', 0, 0), shown).value_or(QDate())), reading.section('=', 1))
            << reading.toStdString();
    EXPECT_EQ(StepDay(QDate(2024, 2, 29), DayPart::Year, -1), QDate(2023, 2, 28));
    EXPECT_EQ(StepDay(QDate(2023, 1, 31), DayPart::Month, 1), QDate(2023, 2, 28));
    EXPECT_EQ(StepDay(QDate(2023, 1, 31), DayPart::Day, 1), QDate(2023, 2, 1));
}

TEST(Dates, MomentsKeepTheirMilliseconds)
{
    const QDate day(2023, 2, 8);
    const int time = ((9 * 60 + 5) * 60 + 12) * 1000;
    const struct
    {
        QString text;
        int millisecondOfDay;
        QString canonical;
    } cases[] = {
        {"2023-2-8", 0, "2023-02-08"},
        {"2023-2-8 0:00:00", 0, "2023-02-08"},
        {"2023-2-8 9:05", time - 12000, "2023-02-08 09:05:00"},
        {"2023-2-8 9:5:12", time, "2023-02-08 09:05:12"},
        {"2023-02-08 09:05:12.004", time + 4, "2023-02-08 09:05:12.004"},
        {"2023-02-08 09:05:12.5", time + 500, "2023-02-08 09:05:12.500"},
        {"2023-02-08 09:05:12.0049999", time + 4, "2023-02-08 09:05:12.004"},
        {"2023-02-08 23:59:59.999", kMillisecondsPerDay - 1, "2023-02-08 23:59:59.999"},
    };
    for (const auto& c : cases) {
        const auto moment = ParseMoment(c.text);
        ASSERT_TRUE(moment) << c.text.toStdString();
        EXPECT_EQ(*moment, (Moment{day, c.millisecondOfDay})) << c.text.toStdString();
        EXPECT_EQ(MomentText(*moment), c.canonical);
    }
}

TEST(Dates, AnInvalidDayHasNoText)
{
    EXPECT_EQ(DayText(QDate()), QString());
    EXPECT_EQ(DayText(QDate(12023, 1, 1)), QString());
    EXPECT_EQ(MomentText({QDate(), 5}), QString());
    EXPECT_EQ(DayText(kNoDate), QString("1900-01-01"));
}
