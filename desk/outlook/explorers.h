// The main windows: each shows a folder and what of it is selected.
#pragma once

#include "desk/outlook/host_window.h"
#include "desk/store/store.h"

namespace desk {

class CommandBar;

class Selection : public ModelObject<Selection> {
  public:
    static constexpr std::string_view name = "Selection";
    static constexpr automation::TextView default_name = u"Item";

    Selection(Desk& desk, std::vector<automation::Object> selected, automation::Object owner)
        : ModelObject(desk), items(std::move(selected)), owner_(std::move(owner)) {}
    static const automation::Members<Selection>& members();
    std::int32_t number() const override { return object_class::selection; }
    automation::Object parent() const override { return owner_; }

    std::vector<automation::Object> items;

  private:
    automation::Object owner_;
};

class Explorer : public ModelObject<Explorer>, public HostWindow {
  public:
    static constexpr std::string_view name = "Explorer";
    static constexpr automation::TextView default_name = u"Caption";

    Explorer(Desk& desk, RowId folder);
    static const automation::Members<Explorer>& members();
    std::int32_t number() const override { return object_class::explorer; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    RowId folder() const { return folder_; }
    void show_folder(RowId folder);  ///< asks before and tells afterwards; may be refused
    void select(std::vector<automation::Object> items);
    /// What it is to drop the selection on a folder: its items are moved there, or copied. They stay selected
    /// while the folder tells of them; what has left the explorer's folder isn't selected any more
    /// afterwards. An item that can't be moved or copied stays.
    void drop_selection_on(RowId folder, bool copies);
    const std::vector<automation::Object>& selected() const { return selected_; }
    const std::shared_ptr<CommandBars>& bars() const override { return bars_; }
    automation::Text caption() const override;
    void activate() override;
    /// The last one ends the host, so the windows of items are closed before, as by the user, too: where one
    /// stays open, because something in it would be lost, so does this one.
    void close_by_user() override;
    void close_window();
    void open_window(bool in_front);  ///< without an event
    void kept_changed();

    /// What a right click on the selection does: the bars' `OnUpdate`, then the bar of the menu is answered.
    std::shared_ptr<CommandBar> context_menu();

    automation::Object held() override { return self(); }

  private:
    ModelBase& object() override { return *this; }

    RowId folder_;
    std::vector<automation::Object> selected_;
    std::shared_ptr<CommandBars> bars_;
};

class Explorers : public ModelObject<Explorers> {
  public:
    static constexpr std::string_view name = "Explorers";
    static constexpr automation::TextView default_name = u"Item";

    using ModelObject::ModelObject;
    static const automation::Members<Explorers>& members();
    std::int32_t number() const override { return object_class::explorers; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    std::vector<std::shared_ptr<Explorer>> open;  ///< the active one last
    automation::Object active() const;

    /// A new main window, told of by its event; it comes up with `Display`.
    automation::Object make(RowId folder);
    void show(RowId folder);
};

}  // namespace desk
