#include "addin/commands/explorer_tracking.h"

#include <algorithm>
#include <limits>

#include "addin/ground/presence.h"
#include "addin/host/host_events.h"

namespace addin {

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

Connect& TrackExpl::mConnect() {
    if (!mConnect_) mConnect_ = std::make_shared<Connect>(session_);
    return *mConnect_;
}

void TrackExpl::m_objExpl_Close() {
    const Presence here(session_);
    const std::shared_ptr<TrackExpl> alive = shared_from_this();  // the list holds the last reference
    Steps steps;
    steps.run([&] { mConnect().RemoveExplorerTracker(ExpID_); });
    m_objExpl_.clear();
    here.give_way(steps);  // the host finishes closing the window
    constexpr std::int32_t several = 2;
    if (steps.holds([&] {
            const bool few = session_.gOutlookApp.Explorers().Count() < several;
            return few && session_.gExplorerList->Count() == 0;
        })) {
        steps.run([&] { mConnect().StopAddIn(); });
    }
}

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

void Connect::goExplorers_NewExplorer(const host::outlook::Explorer& Explorer) {
    if (!session_.gSkipExplorerTracking) AddExplorerTracker(Explorer);
}

void Connect::AddExplorerTracker(const host::outlook::Explorer& objExpl) {
    Steps steps;
    steps.run([&] {
        if (session_.gExplorerSerial == std::numeric_limits<std::int16_t>::max()) {
            throw Failure(result::overflow);
        }
        ++session_.gExplorerSerial;
    });
    const auto tracker = std::make_shared<TrackExpl>(session_);
    steps.run([&] { tracker->Explorer(objExpl); });
    tracker->ExpID(session_.gExplorerSerial);
    steps.run([&] { session_.gExplorerList->Add(tracker, key_of(session_.gExplorerSerial)); });
}

void Connect::RemoveExplorerTracker(std::int16_t anID) { session_.gExplorerList->Remove(key_of(anID)); }

}  // namespace addin
