#include "family/context.h"

#include <algorithm>
#include <random>

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

bool Context::shows_windows() const {
    const bool shows_settings = shown_settings_.window && shown_settings_.window->loaded();
    return shows_settings || std::ranges::any_of(shown_templates_, [](const auto& entry) {
               return entry.second.window->loaded();
           });
}

void Context::close_windows() {
    for (const auto& [kind, shown] : shown_templates_) shown.window->unload();
    shown_templates_.clear();
    if (shown_settings_.window) shown_settings_.window->unload();
    shown_settings_ = {};
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
