#include "desk/base/desk.h"

#include <algorithm>

#include "automation/failure.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;

void Desk::later(std::function<void()> what) {
    waiting_.push_back(std::move(what));
    surroundings_.wake();
}

void Desk::now_or_later(bool now, std::function<void()> what) {
    if (now) {
        what();
    } else {
        later(std::move(what));
    }
}

void Desk::yield() {
    while (!waiting_.empty()) {
        const std::function<void()> next = std::move(waiting_.front());
        waiting_.pop_front();
        next();
    }
}

template <class Fits>
void Desk::post_planned(Fits fits) {
    std::vector<std::function<void()>> due;
    std::erase_if(planned_, [&](Planned& plan) {
        if (!fits(plan.moment)) return false;
        due.push_back(std::move(plan.action));
        return true;
    });
    ++telling_;  // they come at the next turn, also where nothing else runs
    for (auto& action : due) surroundings_.post(std::move(action));
    --telling_;
}

void Desk::when(TextView moment, std::function<void()> action) {
    planned_.push_back({Text(moment), std::move(action)});
}

void Desk::moment_comes(TextView event) {
    if (planned_.empty()) return;
    post_planned([&](const Text& moment) { return moment == event; });
}

void Desk::status_window_up(TextView text) {
    if (text == status_label) return;
    status_waits_ = true;
    later([this, shown = Text(text)] {
        if (status_waits_) status_shown(shown);
    });
}

void Desk::status_shown(TextView text) {
    status_waits_ = false;
    statuses.emplace_back(text);
    post_planned([&](const Text& moment) { return text.find(moment) != TextView::npos; });
}

void Desk::note_filter(TextView filter) {
    constexpr std::size_t most = 500;
    if (filters.size() == most) filters.pop_front();
    filters.emplace_back(filter);
}

int Desk::take_answer(TextView title, TextView text) {
    const auto found = std::ranges::find_if(answers, [&](const QueuedAnswer& answer) {
        return answer.title == title && text.find(answer.fragment) != TextView::npos;
    });
    if (found == answers.end()) return 0;
    const int button = found->button;
    answers.erase(found);
    return button;
}

void Desk::check_planned_failures(std::string_view class_name, TextView member) {
    if (planned_failures.empty()) return;
    const Text full = automation::from_utf8(class_name) + u"." + Text(member);
    for (PlannedFailure& planned : planned_failures) {
        if (!automation::same_ignoring_case(planned.member, full)) continue;
        if (planned.after > 0) {
            --planned.after;
            continue;
        }
        if (planned.times == 0) continue;
        if (planned.times > 0) --planned.times;
        throw Failure(planned.number, u"The call of " + full + u" was made to fail.");
    }
}

}  // namespace desk
