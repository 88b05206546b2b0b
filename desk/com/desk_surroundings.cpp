#include "desk/com/desk_surroundings.h"

#include <ntsecapi.h>

#include <algorithm>
#include <array>
#include <map>

#include "automation/com/failure.h"
#include "desk/driver/screen_picture.h"
#include "desk/driver/window_driver.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;
using windows::ComPtr;

namespace {

/// What other programs have noted in a list of the registry, in the order of their starts. Each entry: the
/// note, a tabulator, and the time of the start as digits that sort.
std::vector<Text> noted(TextView list) {
    const Text key = u"Software\\Tarnwell\\Family\\" + Text(list);
    std::multimap<Text, Text> by_time;
    for (int number = 1;; ++number) {
        std::array<wchar_t, 16> name{};
        swprintf(name.data(), name.size(), L"%04d", number);
        std::array<wchar_t, 4096> text{};
        DWORD size = sizeof text;
        if (RegGetValueW(HKEY_CURRENT_USER, windows::wide(key), name.data(), RRF_RT_REG_SZ, nullptr,
                         text.data(), &size) != ERROR_SUCCESS) {
            break;
        }
        const Text entry(reinterpret_cast<const char16_t*>(text.data()));
        const std::size_t tab = std::min(entry.rfind(u'\t'), entry.size());
        by_time.insert({entry.substr(tab), entry.substr(0, tab)});
    }
    std::vector<Text> notes;
    for (const auto& [time, note] : by_time) notes.push_back(note);
    return notes;
}

automation::Date date_of(const SYSTEMTIME& time) {
    return automation::to_date({time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond});
}

/// A word of the user's regional settings.
Text of_locale(LCTYPE word) {
    std::array<wchar_t, 256> buffer{};
    const int units =
        GetLocaleInfoW(LOCALE_USER_DEFAULT, word, buffer.data(), static_cast<int>(buffer.size()));
    return units > 0 ? Text(windows::from_wide(buffer.data(), static_cast<std::size_t>(units - 1))) : Text();
}

/// Objects of the surface itself are not counted as held: whoever looks at the counts holds them.
constexpr std::string_view uncounted[] = {"Entry", "Listing", "Window", "Control", "Row"};

}  // namespace

automation::Date DeskSurroundings::now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return date_of(time);
}

automation::Date DeskSurroundings::to_utc(automation::Date local) {
    SYSTEMTIME time{}, universal{};
    const bool known = VariantTimeToSystemTime(local.days, &time) &&
                       TzSpecificLocalTimeToSystemTime(nullptr, &time, &universal);
    return known ? date_of(universal) : local;
}

std::string DeskSurroundings::random_bytes(std::size_t count) {
    std::string bytes(count, '\0');
    if (!RtlGenRandom(bytes.data(), static_cast<ULONG>(bytes.size()))) {
        throw Failure(automation::result::fail, u"The system gives no random numbers.");
    }
    return bytes;
}

DateManners DeskSurroundings::date_manners() {
    DateManners manners;
    manners.morning = of_locale(LOCALE_S1159);
    manners.evening = of_locale(LOCALE_S2359);
    const Text order = of_locale(LOCALE_IDATE);
    if (order == u"1") manners.order = DateManners::Order::day_month_year;
    if (order == u"2") manners.order = DateManners::Order::year_month_day;
    for (std::size_t i = 0; i < manners.months.size(); ++i) {
        manners.months[i] = of_locale(LOCALE_SMONTHNAME1 + static_cast<LCTYPE>(i));
        manners.short_months[i] = of_locale(LOCALE_SABBREVMONTHNAME1 + static_cast<LCTYPE>(i));
    }
    for (std::size_t i = 0; i < manners.weekdays.size(); ++i) {  // the system's first day is Monday
        const auto from_monday =
            static_cast<LCTYPE>((i + manners.weekdays.size() - 1) % manners.weekdays.size());
        manners.weekdays[i] = of_locale(LOCALE_SDAYNAME1 + from_monday);
        manners.short_weekdays[i] = of_locale(LOCALE_SABBREVDAYNAME1 + from_monday);
    }
    return manners;
}

ItemData DeskSurroundings::read_mail(TextView path) { return mail_process_.read(Text(path)); }

Text DeskSurroundings::page_text(TextView html) { return mail_process_.page_text(html); }

Text DeskSurroundings::list_separator() { return of_locale(LOCALE_SLIST); }

void DeskSurroundings::wake() {
    if (hooks.wake) hooks.wake();
}

void DeskSurroundings::post(std::function<void()> action) {
    if (hooks.post) hooks.post(std::move(action));
}

std::unique_ptr<WindowDriver> DeskSurroundings::window(TextView caption) {
    return find_window(caption, apartment_->module(),
                       [this](std::function<void()> action) { post(std::move(action)); });
}

int DeskSurroundings::ask(TextView text, TextView title, std::uint32_t style) {
    return MessageBoxW(nullptr, windows::wide(Text(text)), windows::wide(Text(title)), style | MB_TASKMODAL);
}

void DeskSurroundings::pump(std::int32_t milliseconds) {
    if (hooks.pump) hooks.pump(milliseconds);
}

automation::Object DeskSurroundings::create_object(TextView prog_id) {
    CLSID class_id{};
    windows::check(CLSIDFromProgID(windows::wide(Text(prog_id)), &class_id), prog_id);
    ComPtr<IDispatch> object;
    windows::check(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                    IID_IDispatch, object.put_void()),
                   prog_id);
    return automation::Object(apartment_->adapt(object.get()));
}

bool DeskSurroundings::has_class(TextView prog_id) {
    CLSID class_id{};
    return SUCCEEDED(CLSIDFromProgID(windows::wide(Text(prog_id)), &class_id));
}

std::vector<StartedProgram> DeskSurroundings::programs() {
    std::vector<StartedProgram> started;
    for (const Text& entry : noted(u"Programs")) {  // folder, bar, command line
        const std::size_t bar = std::min(entry.find(u'|'), entry.size());
        started.push_back({entry.substr(std::min(bar + 1, entry.size())), entry.substr(0, bar)});
    }
    return started;
}

std::vector<Text> DeskSurroundings::opened() { return noted(u"Opened"); }

std::vector<LiveCount> DeskSurroundings::live() {
    std::vector<LiveCount> counts;
    for (const auto& [kind, count] : apartment_->counter()->live()) {
        if (std::ranges::find(uncounted, std::string_view(kind)) != std::end(uncounted)) continue;
        counts.push_back({kind, static_cast<std::int32_t>(count)});
    }
    return counts;
}

std::vector<CallCount> DeskSurroundings::calls() {
    std::vector<CallCount> counts;
    for (const auto& [member, calls] : apartment_->counter()->calls()) {
        counts.push_back({automation::to_utf8(member), static_cast<std::int64_t>(calls.invoked),
                          static_cast<std::int64_t>(calls.identified)});
    }
    return counts;
}

void DeskSurroundings::reset_calls() { apartment_->counter()->reset_calls(); }

void DeskSurroundings::snapshot(TextView path) { save_screen_picture(Text(path)); }

void DeskSurroundings::connect_add_in(TextView prog_id, bool connect) {
    if (hooks.connect_add_in) hooks.connect_add_in(prog_id, connect);
}

void DeskSurroundings::quit() {
    if (hooks.quit) hooks.quit();
}

void DeskSurroundings::changed() {
    if (hooks.changed) hooks.changed();
}

void DeskSurroundings::came_up() {
    changed();
    if (hooks.came_up) hooks.came_up();
}

void DeskSurroundings::remember_option(TextView name, TextView value) { store_setting(name, value); }

}  // namespace desk
