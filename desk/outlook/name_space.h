// The session: stores, default folders, ids, and who people are.
#pragma once

#include "desk/base/base.h"
#include "desk/store/item_data.h"

namespace desk {

class Item;

class NameSpace : public ModelObject<NameSpace> {
  public:
    static constexpr std::string_view name = "NameSpace";
    static constexpr automation::TextView default_name = u"Type";

    using ModelObject::ModelObject;
    static const automation::Members<NameSpace>& members();
    std::int32_t number() const override { return object_class::name_space; }
    automation::Object parent() const override;

    automation::Object default_folder(std::int32_t folder_number) const;
    automation::Object folder_from_id(const automation::Text& id,
                                      const std::optional<automation::Value>& store) const;

    /// Throws `result::not_found` for an id that names no item, or none of that store.
    std::shared_ptr<Item> item_from_id(const automation::Text& id,
                                       const std::optional<automation::Value>& store) const;

    /// A recipient of no item, who is not resolved.
    automation::Object create_recipient(const automation::Text& recipient_name) const;

    automation::Object open_message_file(const automation::Text& path) const;

    /// A person by what was typed: an Internet address, or the full name or address of a contact. One who is
    /// not known comes back unresolved.
    Person person(const automation::Text& typed, std::int32_t kind) const;

    static automation::Text person_id(const Person& person);  ///< hexadecimal
    static constexpr automation::TextView user_address = u"user@tarnwell.example";
    Person user() const;  ///< whose mailbox it is
    automation::Text user_name() const { return u"Tarnwell User"; }
};

}  // namespace desk
