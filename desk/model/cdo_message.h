// A message of CDO: an item by its stored properties, whatever class it is of.
#pragma once

#include "desk/model/cdo.h"
#include "desk/store/item_data.h"

namespace desk {

/// Holds the item as it was stored when the message was got. What is changed is the message's own until it is
/// updated; an object of the host that shows the item is another one and never follows.
class CdoMessage : public ModelObject<CdoMessage>, public CdoProperties {
  public:
    static constexpr std::string_view name = "CDO.Message";
    static constexpr host::TextView default_name = u"Subject";

    CdoMessage(Desk& desk, ItemRow row, host::Object session)
        : ModelObject(desk), row_(std::move(row)), session_(std::move(session)) {}
    static const host::Members<CdoMessage>& members();
    std::int32_t number() const override;
    host::Object parent() const override { return session_; }
    host::Value property(std::int32_t tag) const override;
    void property(std::int32_t tag, const host::Value& value) override;
    host::Object as_object() override { return self(); }

    const ItemRow& row() const { return row_; }
    host::Value field(host::TextView field_name) const;
    void field(host::TextView field_name, const host::Value& value);

    /// Stores what was changed, if `for_good`, and has the message show what is stored, if `refresh`. Throws
    /// `result::not_found` for an item that has been moved or deleted.
    void update(bool for_good, bool refresh);

  private:
    ItemRow row_;
    std::map<host::Text, host::Value, IgnoringCase> changed_;
    host::Object session_;
};

}  // namespace desk
