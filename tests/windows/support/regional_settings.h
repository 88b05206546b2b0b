// The user's regional settings, and what amounts, dates and shares look like by them.
#pragma once

#include <string>
#include <vector>

#include "automation/com/platform.h"
#include "automation/text.h"

namespace windows::testing {

/// Makes the user's settings those of a locale, as the user does who chooses it, until this ends. Programs
/// that are started meanwhile have them, too.
class RegionalSettings {
  public:
    explicit RegionalSettings(LCID locale) {
        for (const LCTYPE type : types) {
            before_.push_back(setting(LOCALE_USER_DEFAULT, type));
            SetLocaleInfoW(LOCALE_USER_DEFAULT, type, setting(locale, type).c_str());
        }
    }
    ~RegionalSettings() {
        for (std::size_t i = 0; i < before_.size(); ++i) {
            SetLocaleInfoW(LOCALE_USER_DEFAULT, types[i], before_[i].c_str());
        }
    }
    RegionalSettings(const RegionalSettings&) = delete;
    RegionalSettings& operator=(const RegionalSettings&) = delete;

  private:
    static constexpr LCTYPE types[] = {LOCALE_SDECIMAL,       LOCALE_STHOUSAND,       LOCALE_SGROUPING,
                                       LOCALE_IDIGITS,        LOCALE_INEGNUMBER,      LOCALE_SCURRENCY,
                                       LOCALE_SMONDECIMALSEP, LOCALE_SMONTHOUSANDSEP, LOCALE_SMONGROUPING,
                                       LOCALE_ICURRDIGITS,    LOCALE_ICURRENCY,       LOCALE_INEGCURR,
                                       LOCALE_SSHORTDATE,     LOCALE_STIMEFORMAT,     LOCALE_SLONGDATE};

    static std::wstring setting(LCID locale, LCTYPE type) {
        wchar_t text[100] = L"";
        GetLocaleInfoW(locale, type, text, static_cast<int>(std::size(text)));
        return text;
    }

    std::vector<std::wstring> before_;
};

/// How 1234.5, -1234.5, the evening of 31 December 2009 and a quarter are shown in the formats of amounts,
/// dates and shares. Wine's VarFormat takes sign, separators and digits of an amount from the settings, but
/// not the sign's place and the negative form, which are always those of the United States.
struct RegionalCase {
    const char* name;
    LCID locale;
    automation::TextView amount, debt, date, share;
};
inline constexpr RegionalCase regional_cases[] = {
    {"United States", 0x0409, u"$1,234.50", u"($1,234.50)", u"12/31/2009", u"25.00%"},
    {"British", 0x0809, u"\u00A31,234.50", u"(\u00A31,234.50)", u"31/12/2009", u"25.00%"},
    {"German", 0x0407, u"\u20AC1.234,50", u"(\u20AC1.234,50)", u"31.12.2009", u"25,00%"},
    {"French", 0x040C, u"\u20AC1\u00A0234,50", u"(\u20AC1\u00A0234,50)", u"31/12/2009", u"25,00%"},
};

}  // namespace windows::testing
