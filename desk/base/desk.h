// The desk as a whole: its store, its options, its windows and the events that wait.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

#include "automation/object.h"
#include "desk/base/options.h"
#include "desk/base/surroundings.h"
#include "desk/store/store.h"

namespace desk {

class AddIns;
class Application;
class Explorer;
class Explorers;
class Folder;
class FoldersCollection;
class HostWindow;
class Inspectors;
class Item;
class Items;
class NameSpace;

/// A message box that was shown.
struct ShownMessage {
    automation::Text title;
    automation::Text text;
    std::uint32_t style = 0;
    int answer = 0;  ///< 0: the desk closed an unexpected one
};

/// An answer that waits for its message box.
struct QueuedAnswer {
    automation::Text title;
    automation::Text fragment;
    int button = 0;
};

/// A call that is made to fail, so that others can be watched failing with it.
struct PlannedFailure {
    automation::Text member;  ///< "Items.Find", by class and member, without regard to case
    std::int32_t after = 0;   ///< how many calls of it still succeed
    std::int32_t times = 1;   ///< how many fail then; below 0: all
    std::int32_t number = 0;
};

/// The base names the objects of the host and knows none of them: the members that make them and tell of them
/// are written in their room (desk/outlook/desk_objects.cpp, desk/outlook/desk_events.cpp).
class Desk {
  public:
    Desk(Surroundings& surroundings, std::unique_ptr<Store> store, Options options);
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    Surroundings& surroundings() { return surroundings_; }
    Store& store() { return *store_; }
    Options& options() { return options_; }

    const std::shared_ptr<Application>& application() { return application_; }
    const std::shared_ptr<NameSpace>& name_space() { return name_space_; }
    const std::shared_ptr<Explorers>& explorers() { return explorers_; }
    const std::shared_ptr<Inspectors>& inspectors() { return inspectors_; }
    const std::shared_ptr<AddIns>& add_ins() { return add_ins_; }

    /// The application and the session as every object answers them.
    const automation::Object& application_object() const { return application_object_; }
    const automation::Object& session_object() const { return session_object_; }

    automation::Object surface;  ///< for scripts, beyond the real host's members; Nothing until it is offered

    // folders
    static constexpr std::size_t store_uid_digits = 32;
    const std::vector<FolderRow>& folder_rows() const { return folders_; }
    const FolderRow* folder_row(RowId id) const;
    const FolderRow& existing_folder(
        RowId id) const;                             ///< throws `result::object_deleted` for one that is gone
    RowId root_of(RowId folder) const;               ///< the root of the store that a folder lies in
    automation::Text store_uid(RowId folder) const;  ///< of the store that a folder lies in
    RowId default_folder(std::int32_t number) const;  ///< 0 if the profile has none
    std::vector<RowId> folders_below(RowId parent) const;
    RowId add_folder(const FolderRow& row);
    /// Stores a folder's row, and only then is it the folder's.
    void change_folder(const FolderRow& row);
    void remove_folder(RowId id);
    void refresh_folders();

    // items
    const std::vector<RowId>& contents(RowId folder);
    void item_added(RowId folder, RowId item);
    void item_removed(RowId folder, RowId item);
    /// How many items have left a folder since the start.
    std::int64_t departures(RowId folder) const;

    /// The one object for an item while anybody holds it.
    std::shared_ptr<Item> open_item(RowId item);  ///< null for one that is gone
    std::shared_ptr<Item> existing_item(
        RowId item);  ///< throws `result::object_deleted` for one that is gone
    void remember_open(RowId item, const std::shared_ptr<Item>& object);
    void forget_open(RowId item);
    /// How many items are remembered: those that are held, and at most as many more.
    std::size_t remembered() const { return open_items_.size(); }

    /// Stores an item anew past the objects that show it. Who opens it from now on gets another object; its
    /// folder tells of the change as of one that somebody else has made: at the next yield.
    void rewrite_item(RowId item, RowId folder, const ItemData& data);

    // ids: "00000000", 32 digits of the store, a kind of 4 digits, 16 digits of the row, all upper-case
    // hexadecimal
    automation::Text item_entry_id(RowId item, RowId folder) const;
    automation::Text folder_entry_id(RowId folder) const;
    static std::optional<RowId> item_of_entry_id(automation::TextView id);
    std::optional<RowId> folder_of_entry_id(automation::TextView id) const;

    // events
    void watch(RowId folder, const std::shared_ptr<Items>& items);
    void watch_folders(RowId parent, const std::shared_ptr<FoldersCollection>& folders);
    void tell_item_added(RowId folder, RowId item);
    void tell_item_changed(RowId folder, const std::shared_ptr<Item>& item);
    void tell_item_removed(RowId folder);
    void tell_folders(RowId parent, automation::TextView event, RowId folder);

    /// Runs at the next turn of the message loop, after what waits already.
    void later(std::function<void()> what);

    /// Runs what waits, until nothing does.
    void yield();
    [[nodiscard]] bool anything_waits() const { return !waiting_.empty(); }

    /// Has a mail lie in the Inbox, unread, and tells of it: one of a file, or one that came otherwise.
    std::shared_ptr<Item> deliver(automation::TextView path);
    std::shared_ptr<Item> receive(ItemData mail);

    // the windows
    std::vector<HostWindow*> window_order;  ///< all that are open, the active one last

    // the status window, told by whoever watches the windows: it is found by its caption and its label
    static constexpr automation::TextView status_caption = u"Tarnwell", status_label = u"Label1";
    void status_shown(automation::TextView text);  ///< a text is set while the window is visible
    /// The window has come up with this text. It counts unless another one follows before the next turn of
    /// the message loop; what the label was designed with is no status.
    void status_window_up(automation::TextView text);

    /// Has an action posted to the message loop, once, when a moment comes: an event of that name, or a
    /// status that holds that text.
    void when(automation::TextView moment, std::function<void()> action);
    void moment_comes(automation::TextView event);

    /// Events are being told while this is above 0.
    int& telling() { return telling_; }

    // what a person or a script watches
    std::deque<ShownMessage> messages;  ///< its elements stay where they are while it grows
    std::deque<QueuedAnswer> answers;
    std::vector<automation::Text> statuses;
    std::vector<automation::Object> displayed;
    std::vector<PlannedFailure> planned_failures;
    std::deque<automation::Text> filters;  ///< the last ones that items were asked for, in order

    /// Keeps the last filters that items were asked for.
    void note_filter(automation::TextView filter);

    /// The button that a waiting answer gives to a message box, and the answer is used up; 0 if none waits.
    int take_answer(automation::TextView title, automation::TextView text);

    /// Throws if the call is one that is planned to fail.
    void check_planned_failures(std::string_view class_name, automation::TextView member);

  private:
    void tell_item_rewritten(RowId folder, RowId item);
    void now_or_later(bool now, std::function<void()> what);
    void load_folders();

    Surroundings& surroundings_;
    std::unique_ptr<Store> store_;
    Options options_;
    struct Planned {
        automation::Text moment;
        std::function<void()> action;
    };
    template <class Fits>
    void post_planned(Fits fits);

    std::vector<Planned> planned_;
    bool status_waits_ = false;
    int telling_ = 0;
    std::vector<FolderRow> folders_;
    std::unordered_map<RowId, std::size_t> folder_places_;
    std::unordered_map<RowId, std::vector<RowId>> contents_;
    std::unordered_map<RowId, std::int64_t> departures_;
    std::unordered_map<RowId, std::weak_ptr<Item>> open_items_;
    std::size_t sweep_above_ = 0;  ///< so many remembered items are looked through for those that have gone
    std::unordered_map<RowId, std::vector<std::weak_ptr<Items>>> watchers_;
    std::unordered_map<RowId, std::vector<std::weak_ptr<FoldersCollection>>> folder_watchers_;
    std::deque<std::function<void()>> waiting_;
    std::shared_ptr<Application> application_;
    std::shared_ptr<NameSpace> name_space_;
    std::shared_ptr<Explorers> explorers_;
    std::shared_ptr<Inspectors> inspectors_;
    std::shared_ptr<AddIns> add_ins_;
    automation::Object application_object_, session_object_;
};

}  // namespace desk
