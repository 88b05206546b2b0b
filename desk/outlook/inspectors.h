// The windows of single items.
#pragma once

#include "desk/outlook/host_window.h"
#include "desk/outlook/item.h"

namespace desk {

/// OlInspectorClose.
namespace save_mode {
inline constexpr std::int32_t save = 0, discard = 1, ask = 2;
}

/// The host's own buttons on the bar "Standard" of an inspector, by their ids.
namespace own_button {
inline constexpr std::int32_t send = 2617, save_and_close = 1975, save = 3, reply = 354, reply_all = 355,
                              forward = 356, remove = 478;
}

class Inspector : public ModelObject<Inspector>, public HostWindow {
  public:
    static constexpr std::string_view name = "Inspector";
    static constexpr automation::TextView default_name = u"Caption";

    Inspector(Desk& desk, std::shared_ptr<Item> item);
    static const automation::Members<Inspector>& members();
    std::int32_t number() const override { return object_class::inspector; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    const std::shared_ptr<Item>& item() const { return item_; }
    const std::shared_ptr<CommandBars>& bars() const override { return bars_; }
    automation::Text caption() const override;

    /// Mail that Word edits: its bars are Word's own, shared by all such windows, and what is added to them
    /// stays until it is deleted.
    bool is_word_mail() const { return is_word_mail_; }

    /// Opens the window, or brings it up. Throws `result::object_deleted` if it has been closed.
    void display();
    void activate() override { display(); }

    /// Closes it with what `save_mode` says of the item's changes. The item or the user may keep it open.
    void close(std::int32_t mode);
    void close_by_user() override;
    void close_window();  ///< leaves the item as it is
    void kept_changed();

    automation::Object held() override { return self(); }

  private:
    ModelBase& object() override { return *this; }
    void add_own_controls();
    bool take_care_of_changes(std::int32_t mode);

    std::shared_ptr<Item> item_;
    bool is_word_mail_;
    bool was_closed_ = false;
    std::shared_ptr<CommandBars> bars_;
};

class Inspectors : public ModelObject<Inspectors> {
  public:
    static constexpr std::string_view name = "Inspectors";
    static constexpr automation::TextView default_name = u"Item";

    using ModelObject::ModelObject;
    static const automation::Members<Inspectors>& members();
    std::int32_t number() const override { return object_class::inspectors; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    std::vector<std::shared_ptr<Inspector>> open;  ///< the active one last
    automation::Object active() const;

    /// The bars of all windows of mail that Word edits.
    const std::shared_ptr<CommandBars>& word_bars();
    /// The window that bars belong to; of those that share them, the one that was active last.
    std::shared_ptr<Inspector> with(const CommandBars& bars) const;

  private:
    std::shared_ptr<CommandBars> word_bars_;
};

}  // namespace desk
