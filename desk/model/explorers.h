// The main windows: each shows a folder and what of it is selected.
#pragma once

#include "desk/model/base.h"
#include "desk/store/store.h"

namespace desk {

class CommandBars;

class Selection : public ModelObject<Selection> {
  public:
    static constexpr std::string_view name = "Selection";
    static constexpr host::TextView default_name = u"Item";

    Selection(Desk& desk, std::vector<host::Object> selected, host::Object owner)
        : ModelObject(desk), items(std::move(selected)), owner_(std::move(owner)) {}
    static const host::Members<Selection>& members();
    std::int32_t number() const override { return object_class::selection; }
    host::Object parent() const override { return owner_; }

    std::vector<host::Object> items;

  private:
    host::Object owner_;
};

class Explorer : public ModelObject<Explorer> {
  public:
    static constexpr std::string_view name = "Explorer";
    static constexpr host::TextView default_name = u"Caption";

    Explorer(Desk& desk, RowId folder);
    static const host::Members<Explorer>& members();
    std::int32_t number() const override { return object_class::explorer; }
    host::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    RowId folder() const { return folder_; }
    void show_folder(RowId folder);  ///< asks before and tells afterwards; may be refused
    void select(std::vector<host::Object> items);
    const std::vector<host::Object>& selected() const { return selected_; }
    const std::shared_ptr<CommandBars>& bars() const { return bars_; }
    host::Text caption() const;
    void activate();
    void close_window();

    std::int32_t left = 40, top = 40, width = 1080, height = 640;
    std::int32_t window_state = 2;  ///< OlWindowState: normal

  private:
    RowId folder_;
    std::vector<host::Object> selected_;
    std::shared_ptr<CommandBars> bars_;
};

class Explorers : public ModelObject<Explorers> {
  public:
    static constexpr std::string_view name = "Explorers";
    static constexpr host::TextView default_name = u"Item";

    using ModelObject::ModelObject;
    static const host::Members<Explorers>& members();
    std::int32_t number() const override { return object_class::explorers; }
    host::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    std::vector<std::shared_ptr<Explorer>> open;  ///< the active one last
    host::Object active() const;
    host::Object at(const host::Value& index) const;

    /// A new main window, told of by its event; it comes up with `Display`.
    host::Object make(RowId folder);
    void show(RowId folder);
};

}  // namespace desk
