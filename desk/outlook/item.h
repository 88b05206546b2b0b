// An item of any class: a mail, a post, a contact, an appointment, a task, a sticky note.
#pragma once

#include "desk/base/base.h"
#include "desk/outlook/item_kinds.h"
#include "desk/store/store.h"

namespace desk {

class Inspector;
class Surroundings;

class Item : public ModelObject<Item> {
  public:
    static constexpr std::string_view name = "Item";
    static constexpr automation::TextView default_name = u"Subject";

    /// A new item that will be saved to a folder.
    Item(Desk& desk, RowId folder, ItemData data);
    /// A stored item.
    Item(Desk& desk, ItemRow row);

    static const automation::Members<Item>& members();

    std::string_view class_name() const override { return kind().name; }
    std::int32_t number() const override { return kind().number; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;
    automation::Value invoke(automation::Request& request) override;
    std::optional<automation::MemberIds> identify(automation::TextView member,
                                                  std::span<const automation::Text> parameters) override;
    std::int32_t subscribe(const automation::Guid& interface_id, const automation::Object& sink) override;

    const ItemKind& kind() const { return kind_of(data_.message_class); }
    RowId id() const { return id_; }
    RowId folder() const { return folder_; }
    std::int64_t size() const { return size_; }  ///< bytes at the last load
    /// Since it was made or saved.
    bool has_changes() const { return changed_ && (id_ != 0 || version_ != 0); }
    bool is_saved() const { return id_ != 0 && !changed_; }
    automation::Text entry_id() const;
    automation::Text subject() const;

    const ItemData& data() const { return data_; }
    const ItemData& whole();  ///< with its attachments

    /// Grows with each change, so that windows know whether to look.
    std::int64_t version() const { return version_; }

    /// Gives the data out to be changed.
    ItemData& change();
    ItemData& change_attachments();

    automation::Value field(automation::TextView field_name) const;
    void set_field(const tables::FieldRow& field, const automation::Value& value);
    void set_message_class(const automation::Text& message_class);

    void save();
    void post();
    void send();
    std::shared_ptr<Item> copy() { return copy_to(folder_); }
    std::shared_ptr<Item> copy_to(RowId folder);
    std::shared_ptr<Item> move_to(RowId folder);
    void remove();
    void remove_for_good();
    std::shared_ptr<Item> reply(bool to_all);
    std::shared_ptr<Item> forward();

    /// Throws `result::object_deleted` for an item that was moved or deleted.
    void check_there() const;

    bool is_gone() const { return gone_; }

    /// Somebody has stored the item anew past this object: it keeps what it has, but can't be saved any more.
    void outdate() { outdated_ = true; }

    /// Tells that the item has come from the store. Who is told may ask for its class and nothing else.
    void tell_loaded();

    /// Forgets what was changed since the last save.
    void revert();

    /// The item's folder was deleted, and the item with it.
    void folder_is_gone();

    /// The inspector that shows the item, made if there is none.
    std::shared_ptr<Inspector> inspector();
    std::weak_ptr<Inspector> shown_by;

    /// Recipients changed: the lines that name them follow.
    void people_changed();
    /// A program has had all of them resolved.
    void names_are_checked() { names_checked_ = true; }

    /// What is marked unread or read by the host itself counts as a change of the item.
    void mark_read(bool read);

  protected:
    std::optional<automation::MemberFacts> other_facts(automation::TextView member) const override;
    automation::Value other_member(automation::Request& request) override;

  private:
    void load_attachments();
    bool is_people_line(automation::TextView field_name) const;
    void set_people_line(automation::TextView line, automation::TextView names);
    std::shared_ptr<Item> answer_of(ItemData data, automation::TextView event);
    void leave_folder();
    /// Tells of the move to a folder in which the store has the item by now; this object ends with it.
    void settle_in(RowId target);
    void send_off(bool kept);
    void put_away(bool kept, bool is_new);
    void arrive(const ItemData& mail);
    void mark_sent();
    bool check_names();
    /// Asks those who listen. Throws if somebody else has changed it, or has moved or deleted it meanwhile.
    bool may_store();
    /// What is in the file is what the item holds from then on; where that fails it is as it was. With a
    /// target it lies there afterwards; of one that lay elsewhere nobody has been told so yet.
    void write(RowId target = 0);

    RowId id_ = 0;
    RowId folder_ = 0;
    ItemData data_;
    std::int64_t size_ = 0;
    std::int64_t version_ = 0;
    bool changed_ = false;
    bool attachments_loaded_ = true;
    bool attachments_changed_ = false;
    bool gone_ = false;
    bool outdated_ = false;
    bool names_checked_ = true;
    bool loading_ = false;
};

/// Has fields that depend on each other follow a change: names of a contact, times of an appointment, state
/// of a task, the forms of a body. `filed_as_before` is what `filed_as` told before the change: a contact
/// that was filed under that is filed anew.
void follow_change(ItemData& item, automation::TextView changed_field, automation::TextView filed_as_before,
                   Surroundings& surroundings);

/// Fills in what the host fills in when an item is saved.
void complete_for_saving(ItemData& item);

}  // namespace desk
