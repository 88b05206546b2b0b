// Amounts, dates and shares as the user's regional settings write them.
#include <gtest/gtest.h>

#include "addin/server/desktop/windows_desktop.h"
#include "tests/windows/support/regional_settings.h"

namespace windows::testing {
namespace {

using automation::Text;
using automation::TextView;
using automation::Value;

class Formats : public ::testing::Test {
  protected:
    Formats() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Formats() override { CoUninitialize(); }

    /// A value as a list shows it: turned into text, and that text into a format.
    std::string shown(const Value& value, TextView format) {
        const Text text = desktop.text_of(value);
        try {
            return automation::to_utf8(desktop.format(text, format));
        } catch (const automation::Failure&) {
            return automation::to_utf8(text);
        }
    }

    Module module;
    WindowsDesktop desktop{Apartment::create(module, u"Test")};
};

constexpr double amount = 1234.5, share = 0.25;
const automation::Date new_years_eve = automation::to_date({2009, 12, 31, 22, 30, 0});

TEST_F(Formats, FollowTheRegionalSettings) {
    for (const RegionalCase& one : regional_cases) {
        SCOPED_TRACE(one.name);
        const RegionalSettings settings(one.locale);
        EXPECT_EQ(shown(amount, u"Currency"), automation::to_utf8(one.amount));
        EXPECT_EQ(shown(-amount, u"Currency"), automation::to_utf8(one.debt));
        EXPECT_EQ(shown(new_years_eve, u"Short Date"), automation::to_utf8(one.date));
        EXPECT_EQ(shown(share, u"Percent"), automation::to_utf8(one.share));
        EXPECT_EQ(shown(Value(Text(one.date)), u"Short Date"), automation::to_utf8(one.date))
            << "what the user writes is read as he writes it";
        EXPECT_EQ(shown(Value(u"2009-12-31 22:30:00"), u"Short Date"), automation::to_utf8(one.date));
        for (const TextView format : {u"Currency", u"Short Date", u"Percent"}) {
            EXPECT_EQ(shown(Value(u"soon"), format), "soon") << "what can't be read stays as it is";
        }
    }
}

TEST_F(Formats, ReadATextAsTheUserWritesIt) {
    const struct {
        LCID locale;
        TextView text;
        const char* amount;
    } cases[] = {{0x0409, u"1234.5", "$1,234.50"},
                 {0x0409, u"1,234.5", "$1,234.50"},
                 {0x0407, u"1234,5",
                  "\xE2\x82\xAC"
                  "1.234,50"},
                 {0x0407, u"1.234,5",
                  "\xE2\x82\xAC"
                  "1.234,50"}};
    for (const auto& one : cases) {
        const RegionalSettings settings(one.locale);
        EXPECT_EQ(shown(Value(one.text), u"Currency"), one.amount) << automation::to_utf8(one.text);
    }
}

TEST_F(Formats, ReadADateBackAsItWasWritten) {
    const automation::ClockTime times[] = {{2026, 4, 3, 14, 5, 6},    {2026, 3, 4, 2, 5, 6},
                                           {2009, 12, 31, 22, 30, 0}, {2030, 1, 2, 0, 0, 0},
                                           {2026, 12, 1, 0, 0, 1},    {2026, 1, 12, 12, 0, 0}};
    for (const RegionalCase& one : regional_cases) {
        SCOPED_TRACE(one.name);
        const RegionalSettings settings(one.locale);
        for (const automation::ClockTime& time : times) {
            const Text written = desktop.text_of(automation::to_date(time));
            EXPECT_EQ(automation::to_text(desktop.date_of(written)),
                      automation::to_text(automation::to_date(time)))
                << automation::to_utf8(written);
        }
        for (const TextView wrong : {u"", u"soon"}) {
            EXPECT_THROW(desktop.date_of(wrong), automation::Failure) << automation::to_utf8(wrong);
        }
    }
}

TEST_F(Formats, WriteNumbersAndDatesByTheSettingsAndTheRestAsItIs) {
    const RegionalSettings german(0x0407);
    EXPECT_EQ(desktop.text_of(amount), u"1234,5");
    EXPECT_EQ(desktop.text_of(new_years_eve), u"31.12.2009 22:30:00");
    EXPECT_EQ(desktop.text_of(7), u"7");
    EXPECT_EQ(desktop.text_of(true), u"True");
    EXPECT_EQ(desktop.text_of(Value(u"1234.5")), u"1234.5");
    EXPECT_EQ(desktop.text_of(Value()), u"");
}

}  // namespace
}  // namespace windows::testing
