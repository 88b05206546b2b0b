// The windows of single items.
#pragma once

#include "desk/model/base.h"
#include "desk/model/item.h"

namespace desk {

class CommandBars;

class Inspector : public ModelObject<Inspector> {
  public:
    static constexpr std::string_view name = "Inspector";
    static constexpr host::TextView default_name = u"Caption";

    Inspector(Desk& desk, std::shared_ptr<Item> item);
    static const host::Members<Inspector>& members();
    std::int32_t number() const override { return object_class::inspector; }
    host::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    const std::shared_ptr<Item>& item() const { return item_; }
    const std::shared_ptr<CommandBars>& bars() const { return bars_; }
    host::Text caption() const;
    void display();       ///< opens the window, or brings it up
    void close_window();  ///< leaves the item as it is
    bool is_open() const;

    std::int32_t left = 400, top = 320, width = 640, height = 400;
    std::int32_t window_state = 2;  ///< OlWindowState: normal

  private:
    std::shared_ptr<Item> item_;
    std::shared_ptr<CommandBars> bars_;
};

class Inspectors : public ModelObject<Inspectors> {
  public:
    static constexpr std::string_view name = "Inspectors";
    static constexpr host::TextView default_name = u"Item";

    using ModelObject::ModelObject;
    static const host::Members<Inspectors>& members();
    std::int32_t number() const override { return object_class::inspectors; }
    host::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    std::vector<std::shared_ptr<Inspector>> open;  ///< the active one last
    host::Object active() const;
    host::Object at(const host::Value& index) const;
};

}  // namespace desk
