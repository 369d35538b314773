#include "support/random_seed.h"

#include <zrdate>
#include <zrdatetime>
#include <zrtime>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <tuple>

namespace
{

// Sets the zone of the process, and the one before it at the end.
class Zone
{
public:
    explicit Zone(const char *name)
    {
        if (const char *before = std::getenv("TZ"))
            before_ = before;
        setenv("TZ", name, 1);
        tzset();
    }
    ~Zone()
    {
        before_.empty() ? unsetenv("TZ") : setenv("TZ", before_.c_str(), 1);
        tzset();
    }

private:
    std::string before_;
};

ZrDate gregorian(int year, int month, int day)
{
    return ZrDate(year, month, day, Zr::Gregorian);
}

ZrDate persian(int year, int month, int day)
{
    return ZrDate(year, month, day, Zr::Persian);
}

bool isGregorianLeap(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// The leap years from 1178 to 1634, by the moment of the equinox against noon of 52.5 degrees east.
const int persianLeapYears[] = {
    1181, 1185, 1189, 1193, 1197, 1201, 1205, 1210, 1214, 1218, 1222, 1226, 1230, 1234, 1238, 1243,
    1247, 1251, 1255, 1259, 1263, 1267, 1271, 1276, 1280, 1284, 1288, 1292, 1296, 1300, 1304, 1309,
    1313, 1317, 1321, 1325, 1329, 1333, 1337, 1342, 1346, 1350, 1354, 1358, 1362, 1366, 1370, 1375,
    1379, 1383, 1387, 1391, 1395, 1399, 1403, 1408, 1412, 1416, 1420, 1424, 1428, 1432, 1436, 1441,
    1445, 1449, 1453, 1457, 1461, 1465, 1469, 1474, 1478, 1482, 1486, 1490, 1494, 1498, 1502, 1507,
    1511, 1515, 1519, 1523, 1527, 1531, 1535, 1540, 1544, 1548, 1552, 1556, 1560, 1564, 1568, 1573,
    1577, 1581, 1585, 1589, 1593, 1597, 1601, 1606, 1610, 1614, 1618, 1622, 1626, 1630};

} // namespace

TEST(ZrDate, AgreesWithADayCounter)
{
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int number = 0;
    for (int year = 1; year <= 9999; year++) {
        for (int month = 1; month <= 12; month++) {
            const int length = lengths[month - 1] + (month == 2 && isGregorianLeap(year));
            ASSERT_EQ(ZrDate::daysInMonth(year, month, Zr::Gregorian), length);
            for (int day = 1; day <= length; day++) {
                const ZrDate date = ZrDate::fromDayNumber(++number);
                int y, m, d;
                date.getDate(&y, &m, &d, Zr::Gregorian);
                ASSERT_EQ(std::tie(y, m, d), std::tie(year, month, day));
                ASSERT_EQ(gregorian(year, month, day), date);
                ASSERT_EQ(date.dayOfWeek(), (number + 6) % 7 + 1);
            }
        }
    }
    EXPECT_EQ(gregorian(2000, 1, 1).dayOfWeek(), 6); // a Saturday
    EXPECT_FALSE(ZrDate::fromDayNumber(number + 1).isValid());
    EXPECT_FALSE(gregorian(9999, 12, 31).addDays(1).isValid());
    EXPECT_FALSE(gregorian(1, 1, 1).addDays(-1).isValid());
}

TEST(ZrDate, CountsPersianDays)
{
    EXPECT_EQ(gregorian(622, 3, 22).year(Zr::Persian), 1);
    ZrDate date = persian(1178, 1, 1);
    const int *leap = std::begin(persianLeapYears);
    for (int year = 1178; year <= 1634; year++) {
        const bool isLeap = leap != std::end(persianLeapYears) && *leap == year;
        leap += isLeap;
        ASSERT_EQ(ZrDate::isLeapYear(year, Zr::Persian), isLeap) << year;
        for (int month = 1; month <= 12; month++) {
            const int length = month <= 6 ? 31 : month <= 11 || isLeap ? 30 : 29;
            for (int day = 1; day <= length; day++, date = date.addDays(1)) {
                ASSERT_EQ(persian(year, month, day), date);
                ASSERT_EQ(date.month(Zr::Persian) * 100 + date.day(Zr::Persian), month * 100 + day);
            }
        }
    }
    EXPECT_EQ(leap, std::end(persianLeapYears));
    EXPECT_EQ(persian(1400, 1, 1), gregorian(2021, 3, 21));
    EXPECT_EQ(persian(1357, 11, 22), gregorian(1979, 2, 11));
    // Outside the table every day still is some date, and only one.
    std::mt19937 random = seededRandom();
    for (int round = 0; round < 20000; round++) {
        const ZrDate any = ZrDate::fromDayNumber(pick(random, 1, 3652059));
        int y, m, d;
        any.getDate(&y, &m, &d, Zr::Persian);
        ASSERT_EQ(persian(y, m, d), any) << any.dayNumber();
    }
}

TEST(ZrDate, RefusesWhatIsNoDate)
{
    EXPECT_FALSE(gregorian(2021, 2, 29).isValid());
    EXPECT_FALSE(gregorian(1900, 2, 29).isValid());
    EXPECT_FALSE(gregorian(0, 1, 1).isValid());
    EXPECT_FALSE(gregorian(10000, 1, 1).isValid());
    EXPECT_FALSE(gregorian(2021, 13, 1).isValid());
    EXPECT_FALSE(gregorian(2021, 1, 0).isValid());
    EXPECT_FALSE(persian(1402, 12, 30).isValid());
    const ZrDate none;
    EXPECT_EQ(none.year() + none.month() + none.day() + none.dayOfWeek() + none.daysInMonth(), 0);
    EXPECT_FALSE(none.addDays(1).isValid() || none.addMonths(1).isValid());
    EXPECT_TRUE(none.toString("yyyy").isEmpty());
}

TEST(ZrDate, AddsMonthsToTheirEnds)
{
    struct Case {
        ZrDate from;
        int months;
        Zr::DateMode mode;
        ZrDate to;
    };
    const Case cases[] = {
        {gregorian(2021, 1, 31), 1, Zr::Gregorian, gregorian(2021, 2, 28)},
        {gregorian(2020, 1, 31), 1, Zr::Gregorian, gregorian(2020, 2, 29)},
        {gregorian(2021, 1, 31), -2, Zr::Gregorian, gregorian(2020, 11, 30)},
        {gregorian(2021, 12, 15), 1, Zr::Gregorian, gregorian(2022, 1, 15)},
        {gregorian(2021, 1, 15), -13, Zr::Gregorian, gregorian(2019, 12, 15)},
        {gregorian(2020, 2, 29), 12, Zr::Gregorian, gregorian(2021, 2, 28)},
        {gregorian(1, 1, 1), -1, Zr::Gregorian, ZrDate()},
        {gregorian(9999, 12, 1), 1, Zr::Gregorian, ZrDate()},
        {persian(1402, 6, 31), 1, Zr::Persian, persian(1402, 7, 30)},
        {persian(1403, 12, 30), 12, Zr::Persian, persian(1404, 12, 29)},
        {persian(1400, 1, 5), -1, Zr::Persian, persian(1399, 12, 5)},
    };
    for (const Case &c : cases)
        EXPECT_EQ(c.from.addMonths(c.months, c.mode), c.to) << c.months;
    EXPECT_EQ(gregorian(2020, 2, 29).addYears(-1, Zr::Gregorian), gregorian(2019, 2, 28));
    EXPECT_EQ(gregorian(2020, 2, 29).daysTo(gregorian(2021, 3, 1)), 366);
    EXPECT_FALSE(gregorian(2020, 1, 1).addYears(2000000000, Zr::Gregorian).isValid());
}

TEST(ZrDate, ShowsTheCalendarInEffect)
{
    const ZrDate date = gregorian(2021, 3, 21);
    ZrDate::setDateMode(Zr::Persian);
    EXPECT_EQ(date.toString("yyyy-MM-dd"), ZrString("1400-01-01"));
    EXPECT_EQ(date.year(), 1400);
    EXPECT_EQ(date.daysInMonth(), 31);
    EXPECT_EQ(date.year(Zr::Gregorian), 2021);
    EXPECT_EQ(ZrDate::fromString("01/01/1400", "dd/MM/yyyy"), date);
    ZrDate::setDateMode(Zr::Gregorian);
    EXPECT_EQ(date.toString("yyyy-MM-dd"), ZrString("2021-03-21"));
    EXPECT_EQ(date.dayOfYear(), 80);
}

TEST(ZrTime, WrapsAroundMidnight)
{
    EXPECT_EQ(ZrTime(23, 59, 59).addSecs(1), ZrTime(0, 0, 0));
    EXPECT_EQ(ZrTime(0, 0, 0).addSecs(-1), ZrTime(23, 59, 59));
    EXPECT_EQ(ZrTime(1, 0, 0, 5).addSecs(86400LL * 1000000 + 1), ZrTime(1, 0, 1, 5));
    EXPECT_EQ(ZrTime(1, 0).secsTo(ZrTime(0, 30)), -1800);
    EXPECT_FALSE(ZrTime(24, 0).isValid() || ZrTime(0, 60).isValid() || ZrTime(0, 0, 60).isValid());
    EXPECT_FALSE(ZrTime().isValid());
    EXPECT_EQ(ZrTime().hour(), 0);
    ZrTime watch;
    EXPECT_EQ(watch.elapsed(), 0);
    watch.restart();
    EXPECT_GE(watch.elapsed(), 0);
    EXPECT_TRUE(watch.isValid());
}

TEST(ZrDateTime, WritesAndReadsEveryPattern)
{
    const ZrDateTime moment(gregorian(2021, 7, 4), ZrTime(15, 5, 9, 42));
    struct Case {
        const char *format, *text;
        bool date, time; // what the pattern holds of it
    };
    const Case cases[] = {
        {"MM/dd/yyyy", "07/04/2021", true, false},
        {"yyyy-MM-dd", "2021-07-04", true, false},
        {"dd/MM/yyyy", "04/07/2021", true, false},
        {"hh:mm:ss", "15:05:09", false, true},
        {"hh:mm:ss AP", "03:05:09 PM", false, true},
        {"h:m:s ap", "3:5:9 pm", false, true},
        {"yyyyMMdd_hhmmss", "20210704_150509", true, true},
        {"yyyy_MM_dd-hh_mm_ss", "2021_07_04-15_05_09", true, true},
        {"yyyy.MM.dd hh:mm:ss", "2021.07.04 15:05:09", true, true},
        {"yyyy-MM-dd hh:mm:ss.zzz", "2021-07-04 15:05:09.042", true, true},
        {"d.M.yyyy xx", "4.7.2021 xx", true, false},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(moment.toString(c.format), ZrString(c.text));
        const ZrDateTime read = ZrDateTime::fromString(c.text, c.format);
        ASSERT_TRUE(read.isValid()) << c.text;
        EXPECT_EQ(read.date() == moment.date(), c.date) << c.text;
        EXPECT_EQ(read.time().addSecs(0).second() == 9, c.time) << c.text;
        EXPECT_EQ(read.time().hour() == 15, c.time) << c.text;
    }
    EXPECT_EQ(ZrTime(0, 30).toString("hh:mm AP"), ZrString("12:30 AM"));
    EXPECT_EQ(ZrTime::fromString("12:30 AM", "hh:mm AP"), ZrTime(0, 30));
    EXPECT_EQ(ZrTime::fromString("12:30 pm", "hh:mm AP"), ZrTime(12, 30));
}

TEST(ZrDateTime, GivesAnInvalidValueForBadText)
{
    const char *const bad[][2] = {
        {"2021-13-01", "yyyy-MM-dd"},  {"2021-02-30", "yyyy-MM-dd"}, {"2021-1-01", "yyyy-MM-dd"},
        {"2021-01-01 ", "yyyy-MM-dd"}, {"2021-01", "yyyy-MM-dd"},    {"", "yyyy"},
        {"24:00:00", "hh:mm:ss"},      {"13:00 PM", "hh:mm AP"},     {"00:00 AM", "hh:mm AP"},
        {"10:00 XM", "hh:mm AP"},      {"2021/01/01", "yyyy-MM-dd"}, {"99999-01-01", "yyyy-MM-dd"},
        {"-021-01-01", "yyyy-MM-dd"},
    };
    for (const auto &[text, format] : bad)
        EXPECT_FALSE(ZrDateTime::fromString(text, format).isValid()) << text;
}

TEST(ZrDateTime, GoesToTimeTAndBackInEveryZone)
{
    // Half-hour shifts, southern summers, a zone that moved its standard time, one that skipped
    // a whole day, none at all.
    const char *const zones[] = {"UTC",          "Europe/Berlin",       "America/New_York",
                                 "Asia/Tehran",  "Australia/Lord_Howe", "Europe/Moscow",
                                 "Pacific/Apia", "America/Sao_Paulo",   "Asia/Kolkata"};
    for (const char *name : zones) {
        const Zone zone(name);
        for (std::time_t t = 1293840000; t < 1293840000 + 86400 * 365 * 8; t += 1800) {
            const ZrDateTime local = ZrDateTime::fromTime_t(t);
            std::tm expected;
            localtime_r(&t, &expected);
            ASSERT_EQ(local.date().day(), expected.tm_mday) << name << " " << t;
            ASSERT_EQ(local.time(), ZrTime(expected.tm_hour, expected.tm_min)) << name << " " << t;
            ASSERT_EQ(local.toTime_t(), t) << name;
            // Without the memory of its offset, it is the same wall clock, at most a shift away.
            const ZrDateTime plain(local.date(), local.time());
            ASSERT_EQ(ZrDateTime::fromTime_t(plain.toTime_t()), plain) << name << " " << t;
            ASSERT_EQ(local.toTimeSpec(Zr::UTC).toTime_t(), t);
            ASSERT_EQ(local.toTimeSpec(Zr::UTC), local);
        }
    }
}

TEST(ZrDateTime, ReadsTimesThatClocksSkipOrRepeat)
{
    const Zone zone("Europe/Berlin");
    // At 02:00 on 28 March 2021 the clocks went to 03:00, at 03:00 on 31 October back to 02:00.
    const ZrDateTime skipped(gregorian(2021, 3, 28), ZrTime(2, 30));
    EXPECT_EQ(ZrDateTime::fromTime_t(skipped.toTime_t()).time(), ZrTime(3, 30));
    const ZrDateTime repeated(gregorian(2021, 10, 31), ZrTime(2, 30));
    EXPECT_EQ(repeated.toTime_t(), 1635640200);
    EXPECT_EQ(ZrDateTime::fromTime_t(1635640200 + 3600).toTime_t(), 1635640200 + 3600);
    EXPECT_EQ(ZrDateTime::fromTime_t(1635640200 + 3600), repeated);
}

TEST(ZrDateTime, CountsOnTheWallClock)
{
    const ZrDateTime noon(gregorian(2021, 3, 27), ZrTime(12, 0), Zr::UTC);
    EXPECT_EQ(noon.addSecs(86400).date(), gregorian(2021, 3, 28));
    EXPECT_EQ(noon.addSecs(-43201).time(), ZrTime(23, 59, 59));
    EXPECT_EQ(noon.secsTo(noon.addDays(400).addSecs(5)), 400LL * 86400 + 5);
    EXPECT_EQ(noon.addMonths(11, Zr::Gregorian).date(), gregorian(2022, 2, 27));
    EXPECT_EQ(noon.daysTo(noon.addSecs(43200)), 1);
    EXPECT_TRUE(ZrDateTime().isNull());
    EXPECT_FALSE(ZrDateTime(gregorian(2021, 1, 1)).isNull());
    EXPECT_FALSE(ZrDateTime(gregorian(2021, 1, 1), ZrTime()).isValid());
    EXPECT_EQ(ZrDateTime().toTime_t(), -1);
    EXPECT_EQ(ZrDateTime(gregorian(1, 1, 1), ZrTime(0, 0), Zr::UTC).toTime_t(), -62135596800);
    EXPECT_EQ(ZrDateTime::fromTime_t(253402300799, Zr::UTC).date(), gregorian(9999, 12, 31));
    EXPECT_FALSE(ZrDateTime::fromTime_t(253402300800, Zr::UTC).isValid());
    EXPECT_TRUE(noon < noon.addSecs(1) && noon.addSecs(-1) < noon);
    EXPECT_FALSE(noon.addSecs(1LL << 60).isValid());
}
