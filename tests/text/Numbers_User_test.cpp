// Numbers in the language that the program was started in: LC_ALL names it (CMakeLists.txt).

#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

using vantor::ustring;

namespace
{
struct CLanguage
{
    const char* name;
    LCID id;
    const wchar_t* decimalPoint;
    const wchar_t* thousandsSep;
    const wchar_t* million;   // 1234567
    const wchar_t* minusMillion;
    const wchar_t* fixed;   // -1234567.891 to two places
    const wchar_t* half;    // 0.5 to three places
    double commaNumber;     // "12,5" by strtod
    double pointNumber;     // "12.5" by strtod
};

const CLanguage Languages[] = {
    {"en_US.UTF-8", 1033, L".", L",", L"1,234,567", L"-1,234,567", L"-1,234,567.89", L"0.500", 125, 12.5},
    {"de_DE.UTF-8", 1031, L",", L".", L"1.234.567", L"-1.234.567", L"-1.234.567,89", L"0,500", 12, 125},
    {"fr_FR.UTF-8", 1036, L",", L"\u00A0", L"1\u00A0234\u00A0567", L"-1\u00A0234\u00A0567", L"-1\u00A0234\u00A0567,89",
     L"0,500", 12, 12.5},
    {"ja_JP.UTF-8", 1041, L".", L",", L"1,234,567", L"-1,234,567", L"-1,234,567.89", L"0.500", 125, 12.5},
    // The user's groups are 3;2, of which only the first counts.
    {"hi_IN.UTF-8", 1081, L".", L",", L"1,234,567", L"-1,234,567", L"-1,234,567.89", L"0.500", 125, 12.5},
};

class NumbersOfTheUser : public testing::Test
{
protected:
    const CLanguage* m_language = nullptr;

    void SetUp() override
    {
        const char* const name = std::getenv("LC_ALL");
        for (const CLanguage& language : Languages)
        {
            if (name && std::string(name) == language.name)
                m_language = &language;
        }
        ASSERT_TRUE(m_language) << "LC_ALL names none of the tested languages";
        ASSERT_EQ(::GetUserDefaultLCID(), m_language->id) << "the system did not take the language";
    }
};
}   // namespace

TEST_F(NumbersOfTheUser, Separators_AreTheLanguages)
{
    EXPECT_EQ(ustring(ustring::m_Locale.DecimalPoint()), m_language->decimalPoint);
    EXPECT_EQ(ustring(ustring::m_Locale.ThousandsSep()), m_language->thousandsSep);
}

TEST_F(NumbersOfTheUser, Grouping_IsByThree)
{
    EXPECT_EQ(ustring::m_Locale.Grouping(), 3);
}

TEST_F(NumbersOfTheUser, Unsigned_IsFormatted)
{
    EXPECT_EQ(ustring::ui64toa(1234567), m_language->million);
}

TEST_F(NumbersOfTheUser, Negative_IsFormatted)
{
    EXPECT_EQ(ustring::i64toa(-1234567), m_language->minusMillion);
}

TEST_F(NumbersOfTheUser, FixedPoint_IsFormatted)
{
    EXPECT_EQ(ustring::fcvt(-1234567.891, 2), m_language->fixed);
}

TEST_F(NumbersOfTheUser, FixedPointBelowOne_IsFormatted)
{
    EXPECT_EQ(ustring::fcvt(0.5, 3), m_language->half);
}

TEST_F(NumbersOfTheUser, FormattedInteger_IsReadBack)
{
    EXPECT_EQ(ustring::atoi64(m_language->minusMillion), -1234567);
}

TEST_F(NumbersOfTheUser, FormattedInteger_IsANumber)
{
    EXPECT_TRUE(ustring(m_language->million).isnumber());
}

TEST_F(NumbersOfTheUser, DecimalSeparator_IsNotPartOfANumber)
{
    EXPECT_FALSE((L"1" + ustring(m_language->decimalPoint) + L"5").isnumber());
}

TEST_F(NumbersOfTheUser, TextWithComma_IsReadInTheProgramsNotation)
{
    EXPECT_EQ(ustring::strtod(L"12,5"), m_language->commaNumber);
}

TEST_F(NumbersOfTheUser, TextWithPoint_IsReadInTheProgramsNotation)
{
    EXPECT_EQ(ustring::strtod(L"12.5"), m_language->pointNumber);
}

TEST_F(NumbersOfTheUser, TextWithPoint_IsReadWithoutLocaleByWtof)
{
    EXPECT_EQ(vantor::wtof(L"12.5"), 12.5);
}

TEST_F(NumbersOfTheUser, AllFormattedIntegers_AreReadBack)
{
    std::mt19937_64 engine(20080229);
    for (int round = 0; round < 5000; ++round)
    {
        const auto value = static_cast<long long>(engine()) >> (engine() % 64);
        ASSERT_EQ(ustring::atoi64(ustring::i64toa(value).c_str()), value) << value;
    }
}
