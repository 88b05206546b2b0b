#include "addin/commands/explorer_tracking.h"

#include <algorithm>
#include <limits>

#include "addin/ground/presence.h"
#include "addin/host/host_events.h"

namespace addin::commands {

using automation::Failure;
using automation::Text;
namespace result = automation::result;

namespace {

using Entry = std::pair<Text, std::shared_ptr<TrackExpl>>;

Text key_of(std::int16_t number) { return automation::to_text(static_cast<long long>(number)); }

}  // namespace

void TrackExpl::Explorer(const host::outlook::Explorer& explorer) {
    m_objExpl_.connect(host::events::explorer, explorer, {{u"Close", [this](auto) { m_objExpl_Close(); }}});
}

void TrackExpl::m_objExpl_Close() {
    const Presence here(trackers_.session());
    const std::shared_ptr<TrackExpl> alive = shared_from_this();  // the list holds the last reference
    const Steps steps(trackers_.session());
    steps.run([&] { trackers_.RemoveExplorerTracker(ExpID_); });
    m_objExpl_.clear();
    here.give_way();  // the host finishes closing the window
    constexpr std::int32_t several = 2;
    if (steps.possibly([&] {
            const bool few = trackers_.session().gOutlookApp.Explorers().Count() < several;
            return few && trackers_.Count() == 0;
        })) {
        steps.run([&] { trackers_.stop_add_in(); });
    }
}

void ExplorerTrackers::NewExplorer(const host::outlook::Explorer& explorer) {
    if (gSkipExplorerTracking) return;
    const Steps steps(session());
    steps.run([&] {
        if (gExplorerSerial == std::numeric_limits<std::int16_t>::max()) throw Failure(result::overflow);
        ++gExplorerSerial;
    });
    const auto tracker = std::make_shared<TrackExpl>(*this);
    steps.run([&] { tracker->Explorer(explorer); });
    tracker->ExpID(gExplorerSerial);
    steps.run([&] { Add(tracker, key_of(gExplorerSerial)); });
}

void ExplorerTrackers::RemoveExplorerTracker(std::int16_t anID) { Remove(key_of(anID)); }

void ExplorerTrackers::Add(std::shared_ptr<TrackExpl> tracker, const Text& key) {
    if (std::ranges::find(trackers_, key, &Entry::first) != trackers_.end()) {
        throw Failure(result::invalid_argument, key);
    }
    trackers_.emplace_back(key, std::move(tracker));
}

void ExplorerTrackers::Remove(const Text& key) {
    const auto found = std::ranges::find(trackers_, key, &Entry::first);
    if (found == trackers_.end()) throw Failure(result::invalid_argument, key);
    const Entry going = std::move(*found);  // its end comes after the list's change
    trackers_.erase(found);
}

}  // namespace addin::commands
