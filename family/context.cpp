#include "family/context.h"

#include <algorithm>
#include <random>

#include "family/filed_today.h"
#include "family/settings_form.h"
#include "family/template_list.h"

namespace family {

using automation::Text;
using automation::TextView;

void Context::random_bytes(std::span<std::uint8_t> bytes) {
    std::random_device source;
    std::uniform_int_distribution<unsigned> byte(0, 255);
    for (std::uint8_t& place : bytes) place = static_cast<std::uint8_t>(byte(source));
}

Text Context::time_text(automation::Date date) {
    constexpr std::size_t begin = 11, length = 5;  // "2026-03-03 09:15:00"
    return automation::to_text(date).substr(begin, length);
}

void Context::start_check() {
    throw automation::Failure(automation::result::not_found,
                              u"TarnwellAdmin.exe, which checks a set-up, is not there.");
}

bool Context::shows_windows() const {
    const auto is_loaded = [](const auto& shown) { return shown.window && shown.window->loaded(); };
    return is_loaded(shown_settings_) || is_loaded(shown_filed_today_) ||
           std::ranges::any_of(shown_templates_, [&](const auto& entry) { return is_loaded(entry.second); });
}

void Context::close_windows() {
    for (const auto& [kind, shown] : shown_templates_) shown.window->unload();
    shown_templates_.clear();
    const auto close = [](auto& shown) {
        if (shown.window) shown.window->unload();
        shown.window.reset();  // before what it is made of
        shown = {};
    };
    close(shown_settings_);
    close(shown_filed_today_);
}

void Context::check(TextView object, TextView member) {
    const Text list = setting(setting::fail);
    if (list.empty()) return;
    const Text full = Text(object) + u"." + Text(member);
    for (TextView rest = list; !rest.empty();) {
        const std::size_t end = std::min(rest.find(u';'), rest.size());
        const Text listed = automation::trimmed(rest.substr(0, end));
        if (automation::same_ignoring_case(listed, member) || automation::same_ignoring_case(listed, full)) {
            throw automation::Failure(automation::result::fail, full + u" is among the members that fail");
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

}  // namespace family
