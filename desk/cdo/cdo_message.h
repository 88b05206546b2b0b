// A message of CDO: an item by its stored properties, whatever class it is of.
#pragma once

#include "desk/cdo/cdo.h"
#include "desk/store/item_data.h"

namespace desk {

/// Holds the item as it was stored when the message was got. What is changed is the message's own until it is
/// updated; an object of the host that shows the item is another one and never follows.
class CdoMessage : public ModelObject<CdoMessage>, public CdoProperties {
  public:
    static constexpr std::string_view name = "CDO.Message";
    static constexpr automation::TextView default_name = u"Subject";

    CdoMessage(Desk& desk, ItemRow row, automation::Object session)
        : ModelObject(desk), row_(std::move(row)), session_(std::move(session)) {}
    static const automation::Members<CdoMessage>& members();
    std::int32_t number() const override;
    automation::Object parent() const override { return session_; }
    automation::Value property(std::int32_t tag) const override;
    void property(std::int32_t tag, const automation::Value& value) override;
    automation::Object as_object() override { return self(); }

    const ItemRow& stored() const { return row_; }
    automation::Value field(automation::TextView field_name) const;
    void field(automation::TextView field_name, const automation::Value& value);

    /// Stores what was changed, if `for_good`, and has the message show what is stored, if `refresh`. Throws
    /// `result::not_found` for an item that has been moved or deleted.
    void update(bool for_good, bool refresh);

  private:
    ItemRow row_;
    std::map<automation::Text, automation::Value, IgnoringCase> changed_;
    automation::Object session_;
};

}  // namespace desk
