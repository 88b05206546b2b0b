// Keeping track of the main windows that come after the first, so that the last one's end is noticed.
#pragma once

#include <utility>
#include <vector>

#include "addin/connect/connect.h"

namespace addin {

/// Follows one main window.
class TrackExpl : public std::enable_shared_from_this<TrackExpl> {
  public:
    explicit TrackExpl(Session& session) : session_(session) {}

    host::outlook::Explorer Explorer() const { return host::outlook::Explorer(m_objExpl_.source()); }
    /// Throws `Failure` if the window can't be listened to; it is held all the same.
    void Explorer(const host::outlook::Explorer& explorer);
    void ExpID(std::int16_t number) { ExpID_ = number; }

  private:
    void m_objExpl_Close();

    /// An add-in object of the tracker's own: it shares the session with the one that the host connected, and
    /// nothing else. Made on first use.
    Connect& mConnect();

    Session& session_;
    automation::Sink m_objExpl_;
    std::int16_t ExpID_ = 0;
    std::shared_ptr<Connect> mConnect_;
};

/// The trackers by their numbers' texts.
class ExplorerTrackers {
  public:
    /// Throws `Failure` if the key is there already.
    void Add(std::shared_ptr<TrackExpl> tracker, const automation::Text& key);
    /// Throws `Failure` if there is no such key.
    void Remove(const automation::Text& key);
    std::int32_t Count() const { return static_cast<std::int32_t>(trackers_.size()); }

  private:
    std::vector<std::pair<automation::Text, std::shared_ptr<TrackExpl>>> trackers_;
};

}  // namespace addin
