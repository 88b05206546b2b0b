// The controls of all bars that `FindControls` has found.
#pragma once

#include "desk/office/command_bars.h"

namespace desk {

class FoundControls : public ModelObject<FoundControls> {
  public:
    static constexpr std::string_view name = "CommandBarControls";
    static constexpr automation::TextView default_name = u"Item";

    FoundControls(Desk& desk, automation::Object bars,
                  std::vector<std::shared_ptr<CommandBarControl>> controls)
        : ModelObject(desk), bars_(std::move(bars)), controls_(std::move(controls)) {}
    static const automation::Members<FoundControls>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override { return bars_; }

    const std::vector<std::shared_ptr<CommandBarControl>>& controls() const { return controls_; }

  private:
    automation::Object bars_;
    std::vector<std::shared_ptr<CommandBarControl>> controls_;
};

}  // namespace desk
