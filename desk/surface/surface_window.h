// The add-in's windows, offered to whoever drives the desk from outside: a window, its controls, the rows of
// a list. Everything counts from 1 here.
#pragma once

#include "desk/base/base.h"
#include "desk/base/window_driver.h"

namespace desk {

class SurfaceWindow : public ModelObject<SurfaceWindow> {
  public:
    static constexpr std::string_view name = "Window";
    static constexpr automation::TextView default_name = u"Caption";

    SurfaceWindow(Desk& desk, std::unique_ptr<WindowDriver> driver)
        : ModelObject(desk), driver_(std::move(driver)) {}
    static const automation::Members<SurfaceWindow>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;

    WindowDriver& driver() const { return *driver_; }
    /// By the control's own name; Nothing if the window has none such.
    automation::Object control(const automation::Text& control_name);

  private:
    std::unique_ptr<WindowDriver> driver_;
};

class SurfaceControl : public ModelObject<SurfaceControl> {
  public:
    static constexpr std::string_view name = "Control";
    static constexpr automation::TextView default_name = u"Text";

    SurfaceControl(Desk& desk, std::shared_ptr<ControlDriver> driver, automation::Object window)
        : ModelObject(desk), driver_(std::move(driver)), window_(std::move(window)) {}
    static const automation::Members<SurfaceControl>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override { return window_; }

    /// The control with its entries. Throws `result::member_not_found` if it has none such.
    ControlDriver& with_entries() const;
    ControlDriver& as_list() const;
    ControlDriver& driver() const { return *driver_; }

    automation::Value item(std::int32_t place);
    std::int32_t selected() const;
    void select(std::int32_t place);
    automation::Object columns();
    void column_click(std::int32_t place);
    void drop(std::int32_t row, std::int32_t column);  ///< below the rows if the row is 0

  private:
    std::shared_ptr<ControlDriver> driver_;
    automation::Object window_;
};

/// A row of a list, as it stands at each look.
class SurfaceRow : public ModelObject<SurfaceRow> {
  public:
    static constexpr std::string_view name = "Row";
    static constexpr automation::TextView default_name = u"Text";

    SurfaceRow(Desk& desk, std::shared_ptr<ControlDriver> list, int row, automation::Object control)
        : ModelObject(desk), list_(std::move(list)), row_(row), control_(std::move(control)) {}
    static const automation::Members<SurfaceRow>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override { return control_; }

    automation::Text text() const { return list_->item(row_, 0); }
    automation::Text sub_item(std::int32_t place) const;  ///< 1: the second column

  private:
    std::shared_ptr<ControlDriver> list_;
    int row_;
    automation::Object control_;
};

}  // namespace desk
