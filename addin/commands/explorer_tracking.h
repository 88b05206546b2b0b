// Keeping track of the main windows that come after the first, so that the last one's end is noticed.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "addin/ground/session.h"
#include "automation/events.h"

namespace addin::commands {

class ExplorerTrackers;

/// Follows one main window.
class TrackExpl : public std::enable_shared_from_this<TrackExpl> {
  public:
    explicit TrackExpl(ExplorerTrackers& trackers) : trackers_(trackers) {}

    host::outlook::Explorer Explorer() const { return host::outlook::Explorer(m_objExpl_.source()); }
    /// Throws `Failure` if the window can't be listened to; it is held all the same.
    void Explorer(const host::outlook::Explorer& explorer);
    void ExpID(std::int16_t number) { ExpID_ = number; }

  private:
    void m_objExpl_Close();

    ExplorerTrackers& trackers_;
    automation::Sink m_objExpl_;
    std::int16_t ExpID_ = 0;
};

/// The trackers by their numbers' texts.
class ExplorerTrackers {
  public:
    /// `stop_add_in` runs when the last tracker has gone and no main window is left but one: on an add-in
    /// object of the tracker's own, which shares the session with the one that the host connected, and
    /// nothing else.
    ExplorerTrackers(Session& session, std::function<void()> stop_add_in)
        : session_(session), stop_add_in_(std::move(stop_add_in)) {}

    /// A further main window is followed by a tracker of its own.
    void NewExplorer(const host::outlook::Explorer& explorer);
    void RemoveExplorerTracker(std::int16_t anID);  ///< throws `Failure` if there is none of that number

    /// Throws `Failure` if the key is there already.
    void Add(std::shared_ptr<TrackExpl> tracker, const automation::Text& key);
    /// Throws `Failure` if there is no such key.
    void Remove(const automation::Text& key);
    std::int32_t Count() const { return static_cast<std::int32_t>(trackers_.size()); }

    Session& session() { return session_; }
    void stop_add_in() const { stop_add_in_(); }

    std::int16_t gExplorerSerial = 0;    ///< the number of the last tracker; never reset
    bool gSkipExplorerTracking = false;  ///< nothing sets it

  private:
    Session& session_;
    std::function<void()> stop_add_in_;
    std::vector<std::pair<automation::Text, std::shared_ptr<TrackExpl>>> trackers_;
};

}  // namespace addin::commands
